#pragma once

#include <QQuickImageProvider>

/// `image://frame/<w>x<h>/<radius>/<rrggbb or aarrggbb>`: a dashed outline of an empty place.
class FrameImageProvider final : public QQuickImageProvider {
public:
    FrameImageProvider() : QQuickImageProvider(QQuickImageProvider::Image) { }
    QImage requestImage(const QString &id, QSize *size, const QSize &requestedSize) override;
};
