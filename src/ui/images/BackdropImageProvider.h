#pragma once

#include <QQuickImageProvider>

/// `image://backdrop/<rrggbb or aarrggbb>/<rrggbb>/<w>x<h>/<radius>`: a wide card's ground in the first colour that
/// turns into the second towards the right, with the quarter discs of the console plates in its lower right corner.
/// With
/// "/fading" behind, it fades out towards its top and bottom.
class BackdropImageProvider final : public QQuickImageProvider {
public:
    BackdropImageProvider() : QQuickImageProvider(QQuickImageProvider::Image) { }
    QImage requestImage(const QString &id, QSize *size, const QSize &requestedSize) override;
};
