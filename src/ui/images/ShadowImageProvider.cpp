#include "ui/images/ShadowImageProvider.h"

#include <cmath>

QImage ShadowImageProvider::requestImage(const QString &id, QSize *size, const QSize &)
{
    const int radius = id.section(u'/', 0, 0).toInt();
    const int blur = qBound(1, id.section(u'/', 1, 1).toInt(), 128);
    const double alpha = id.section(u'/', 2, 2).toInt() / 100.0;
    const int side = 2 * (radius + 2 * blur) + 2;
    const int card = qMin(id.section(u'/', 3, 3).toInt(), 4096);
    QImage image(side, card > 0 ? card + 2 * blur : side, QImage::Format_ARGB32_Premultiplied);
    const double halfWidth = image.width() / 2.0, halfHeight = image.height() / 2.0;
    const double corner = blur + radius; // as far from the edges the corner begins
    for (int y = 0; y < image.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const double dx = std::abs(x + 0.5 - halfWidth) - (halfWidth - corner);
            const double dy = std::abs(y + 0.5 - halfHeight) - (halfHeight - corner);
            const double outside = std::hypot(qMax(dx, 0.0), qMax(dy, 0.0)) + qMin(qMax(dx, dy), 0.0) - radius;
            const double fade = std::erfc(outside / blur * 2) / 2;
            line[x] = qRgba(0, 0, 0, qRound(255 * alpha * fade));
        }
    }
    *size = image.size();
    return image;
}
