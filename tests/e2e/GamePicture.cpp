#include "GamePicture.h"

#include <QRect>
#include <algorithm>
#include <cmath>

/// Lines of the game's picture and the mean colour between them. The lanterns change it a little, hence the tolerance.
struct Band {
    int from, to;
    int red, green, blue;
};
constexpr Band bands[] = {{2, 20, 24, 23, 44},  {30, 46, 38, 35, 79},   {56, 64, 114, 72, 107},
                          {88, 96, 60, 49, 76}, {112, 126, 20, 18, 33}, {129, 143, 42, 42, 48}};
constexpr int tolerance = 24;
constexpr int gameWidth = 160, gameHeight = 144;

static QRect largestGame(QSize screen)
{
    const QSize size = QSize(gameWidth, gameHeight).scaled(screen, Qt::KeepAspectRatio);
    return {QPoint((screen.width() - size.width()) / 2, (screen.height() - size.height()) / 2), size};
}

static bool hasColours(const QImage &screen, const QRect &game, const Band &band)
{
    const double scale = double(game.height()) / gameHeight;
    const int first = game.top() + int(band.from * scale), last = game.top() + int(band.to * scale);
    double red = 0, green = 0, blue = 0;
    for (int y = first; y < last; ++y) {
        for (int x = game.left(); x <= game.right(); ++x) {
            const QRgb pixel = screen.pixel(x, y);
            red += qRed(pixel), green += qGreen(pixel), blue += qBlue(pixel);
        }
    }
    const double count = double(last - first) * game.width();
    return std::abs(red / count - band.red) < tolerance && std::abs(green / count - band.green) < tolerance
        && std::abs(blue / count - band.blue) < tolerance;
}

static bool isBlackBeside(const QImage &screen, const QRect &game)
{
    if (game.left() < 8) return true;
    const int y = screen.height() / 2;
    return qGray(screen.pixel(game.left() / 2, y)) < 8
        && qGray(screen.pixel(screen.width() - 1 - game.left() / 2, y)) < 8;
}

bool showsDemoGame(const QImage &screen)
{
    if (screen.isNull()) return false;
    const QRect game = largestGame(screen.size());
    return isBlackBeside(screen, game)
        && std::ranges::all_of(bands, [&](const Band &band) { return hasColours(screen, game, band); });
}
