#pragma once

#include <QQuickImageProvider>

/// `image://icon/<name>/<rrggbb or aarrggbb>`: a line drawing of icons/ in one colour. `image://icon/glyphs.<name>/…`
/// draws a controller glyph, whose width follows from the requested height; an icon is square.
class IconImageProvider final : public QQuickImageProvider {
public:
    IconImageProvider() : QQuickImageProvider(QQuickImageProvider::Image) { }
    QImage requestImage(const QString &id, QSize *size, const QSize &requestedSize) override;
};
