#include "ui/images/IconImageProvider.h"

#include <QPainter>
#include <QSvgRenderer>

using namespace Qt::StringLiterals;

static QString drawing(const QString &name)
{
    const QString folder = name.startsWith(u"glyphs."_s) ? u"glyphs/"_s : u"icons/"_s;
    return u":/qt/qml/Velko/"_s + folder + name.section(u'.', -1) + u".svg"_s;
}

QImage IconImageProvider::requestImage(const QString &id, QSize *size, const QSize &requestedSize)
{
    QSvgRenderer renderer(drawing(id.section(u'/', 0, 0)));
    const int height = requestedSize.height() > 0 ? requestedSize.height() : 24;
    const QSizeF natural = renderer.isValid() ? QSizeF(renderer.defaultSize()) : QSizeF(1, 1);
    QImage image(qRound(height * natural.width() / natural.height()), height, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter);
    const QString colour = id.section(u'/', 1, 1);
    if (!colour.isEmpty()) {
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(image.rect(), QColor(u'#' + colour));
    }
    painter.end();
    *size = image.size();
    return image;
}
