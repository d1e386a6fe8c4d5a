#pragma once

#include <QQuickImageProvider>

/// `image://glow/<rrggbb>`: a soft light, the colour in the middle and nothing at the edge, small and dithered so that
/// it can be stretched over a screen without bands. It has the same size whatever is requested.
class GlowImageProvider final : public QQuickImageProvider {
public:
    GlowImageProvider() : QQuickImageProvider(QQuickImageProvider::Image) { }
    QImage requestImage(const QString &id, QSize *size, const QSize &requestedSize) override;
};
