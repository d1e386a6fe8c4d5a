#include "ui/images/FrameImageProvider.h"

#include <QPainter>

QImage FrameImageProvider::requestImage(const QString &id, QSize *size, const QSize &)
{
    const QString measure = id.section(u'/', 0, 0);
    const int width = qBound(4, measure.section(u'x', 0, 0).toInt(), 4096);
    const int height = qBound(4, measure.section(u'x', 1, 1).toInt(), 4096);
    const double radius = id.section(u'/', 1, 1).toDouble();
    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    QPen pen(QColor(u'#' + id.section(u'/', 2, 2)), 2);
    pen.setDashPattern({4, 3});
    pen.setCapStyle(Qt::FlatCap);
    painter.setPen(pen);
    painter.drawRoundedRect(QRectF(1, 1, width - 2, height - 2), radius, radius);
    painter.end();
    *size = image.size();
    return image;
}
