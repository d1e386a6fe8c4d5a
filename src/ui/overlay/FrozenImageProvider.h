#pragma once

#include <QQuickImageProvider>

class GuideOverlay;

/// "image://frozen/<number>": the picture of the game that stands still. It is held by the overlay and gone when the
/// panel closes.
class FrozenImageProvider : public QQuickImageProvider {
public:
    explicit FrozenImageProvider(const GuideOverlay &guide) : QQuickImageProvider(Image), m_guide(guide) { }
    QImage requestImage(const QString &id, QSize *size, const QSize &requestedSize) override;

private:
    const GuideOverlay &m_guide;
};
