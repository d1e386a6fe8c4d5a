#include "ui/images/CoverPlate.h"

#include "ui/images/ConsoleHue.h"

#include <QFont>
#include <QFontMetricsF>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QTextLayout>

using namespace Qt::StringLiterals;

static constexpr double margin = 0.085; // of the shorter side

static double shorterSide(const CoverPlate &plate)
{
    return std::min(plate.size.width(), plate.size.height());
}

static QColor plateColor(const CoverPlate &plate, double saturation, double lightness, double alpha = 1)
{
    const double kept = plate.faded ? 0.4 : 1;
    return hueColor(consoleHue(plate.consoleID), saturation * kept, lightness, alpha);
}

static QFont displayFont(double pixels, QFont::Weight weight)
{
    QFont font;
    font.setFamilies({u"Inter Display"_s, u"Inter"_s, u"Noto Sans"_s, u"DejaVu Sans"_s});
    font.setPixelSize(std::max(1, qRound(pixels)));
    font.setWeight(weight);
    font.setLetterSpacing(QFont::AbsoluteSpacing, -0.024 * pixels);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

static void paintGround(QPainter &painter, const CoverPlate &plate, const QRectF &area)
{
    QLinearGradient ground(area.topLeft(), area.bottomLeft());
    ground.setColorAt(0, plateColor(plate, 0.32, 0.29));
    ground.setColorAt(1, plateColor(plate, 0.38, 0.16));
    QPainterPath outline;
    outline.addRoundedRect(area, plate.radius, plate.radius);
    painter.fillPath(outline, ground);

    // The discs stay inside the outline because they are cut by it, not because the painter clips (its edge is hard).
    const double unit = shorterSide(plate);
    const bool tile = plate.label.isEmpty();
    const QPointF centre(area.width() * (tile ? 0.835 : 0.98), area.height() * (tile ? 0.88 : 1));
    for (const double radius : {0.63 * unit, 0.4 * unit}) {
        QPainterPath disc;
        disc.addEllipse(centre, radius, radius);
        painter.fillPath(disc.intersected(outline), plateColor(plate, 0.40, 0.43, 0.20));
    }
}

static void paintTitle(QPainter &painter, const CoverPlate &plate, const QRectF &area)
{
    constexpr int mostLines = 3;
    const double side = margin * shorterSide(plate);
    const double pixels = 0.11 * std::min(area.width(), area.height() * 4 / 3);
    const QFont font = displayFont(pixels, QFont::DemiBold);
    const double width = area.width() - 2 * side;
    const double lineHeight = 1.16 * font.pixelSize();
    painter.setFont(font);
    painter.setPen(QColor(u"#F4F1EB"_s));

    QTextLayout layout(plate.title, font, painter.device());
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    double baseline = side + 0.82 * font.pixelSize();
    for (int i = 0; i < mostLines; ++i, baseline += lineHeight) {
        QTextLine line = layout.createLine();
        if (!line.isValid()) break;
        line.setLineWidth(width);
        const QString rest = plate.title.mid(line.textStart());
        const bool last = i == mostLines - 1;
        painter.drawText(QPointF(side, baseline),
                         last ? QFontMetricsF(font).elidedText(rest, Qt::ElideRight, width)
                              : rest.left(line.textLength()).trimmed());
    }
    layout.endLayout();
}

static void paintLabel(QPainter &painter, const CoverPlate &plate, const QRectF &area)
{
    const double unit = shorterSide(plate);
    const qsizetype letters = plate.label.size();
    const double pixels = unit * (letters > 4 ? 0.20 : letters > 3 ? 0.25 : 0.31);
    painter.setFont(displayFont(pixels, QFont::Bold));
    QColor color = plateColor(plate, 0.64, 0.84);
    if (plate.faded) color.setAlphaF(0.62F);
    painter.setPen(color);
    painter.drawText(QPointF(margin * unit, area.height() - margin * unit), plate.label);
}

/// A cover ends somewhere even where it is as dark as the page.
static void paintEdge(QPainter &painter, const CoverPlate &plate, const QRectF &area)
{
    painter.setPen(QPen(QColor(255, 255, 255, 23), 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(area.adjusted(0.5, 0.5, -0.5, -0.5), plate.radius - 0.5, plate.radius - 0.5);
}

QImage painted(const CoverPlate &plate)
{
    if (plate.size.isEmpty()) return {};
    QImage image(plate.size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF area(QPointF(), QSizeF(plate.size));
    paintGround(painter, plate, area);
    if (!plate.title.isEmpty()) paintTitle(painter, plate, area);
    if (!plate.label.isEmpty()) paintLabel(painter, plate, area);
    paintEdge(painter, plate, area);
    return image;
}
