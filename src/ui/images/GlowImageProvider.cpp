#include "ui/images/GlowImageProvider.h"

#include <QColor>
#include <QRandomGenerator>
#include <cmath>

QImage GlowImageProvider::requestImage(const QString &id, QSize *size, const QSize &)
{
    const QColor colour(u'#' + id);
    QImage image(240, 135, QImage::Format_ARGB32_Premultiplied);
    QRandomGenerator noise(1);
    for (int y = 0; y < image.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const double dx = (x + 0.5) / image.width() * 2 - 1;
            const double dy = (y + 0.5) / image.height() * 2 - 1;
            const double light = qMax(0.0, 1 - std::hypot(dx, dy));
            const double alpha = light == 0 ? 0 : light * 255 + noise.bounded(1.0) - 0.5;
            line[x] = qPremultiply(qRgba(colour.red(), colour.green(), colour.blue(), qBound(0, qRound(alpha), 255)));
        }
    }
    *size = image.size();
    return image;
}
