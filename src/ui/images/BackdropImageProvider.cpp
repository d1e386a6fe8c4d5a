#include "ui/images/BackdropImageProvider.h"

#include <QPainter>
#include <QPainterPath>

static QColor withAlpha(QColor colour, double alpha)
{
    colour.setAlphaF(float(alpha));
    return colour;
}

QImage BackdropImageProvider::requestImage(const QString &id, QSize *size, const QSize &)
{
    const QColor ground(u'#' + id.section(u'/', 0, 0));
    const QColor colour(u'#' + id.section(u'/', 1, 1));
    const QString measure = id.section(u'/', 2, 2);
    const int width = qBound(8, measure.section(u'x', 0, 0).toInt(), 8192);
    const int height = qBound(8, measure.section(u'x', 1, 1).toInt(), 8192);
    const double radius = id.section(u'/', 3, 3).toDouble();

    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    QPainterPath card;
    card.addRoundedRect(image.rect(), radius, radius);
    painter.setClipPath(card);
    painter.fillRect(image.rect(), ground);
    QLinearGradient across(width * 0.3, height, width, 0);
    across.setColorAt(0, withAlpha(colour, 0));
    across.setColorAt(0.55, withAlpha(colour, 0.35));
    across.setColorAt(1, withAlpha(colour, 0.9));
    painter.fillRect(image.rect(), across);
    for (const double reach : {1.12, 0.74, 0.4}) {
        painter.setBrush(withAlpha(colour.lighter(135), 0.2));
        painter.drawEllipse(QPointF(width * 0.985, height), height * reach, height * reach);
    }
    if (id.endsWith(u"/fading")) {
        QLinearGradient fade(0, 0, 0, height);
        fade.setColorAt(0, withAlpha(Qt::black, 0.15));
        fade.setColorAt(0.3, withAlpha(Qt::black, 0.55));
        fade.setColorAt(0.55, withAlpha(Qt::black, 0.5));
        fade.setColorAt(1, withAlpha(Qt::black, 0));
        painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
        painter.fillRect(image.rect(), fade);
    }
    painter.end();
    *size = image.size();
    return image;
}
