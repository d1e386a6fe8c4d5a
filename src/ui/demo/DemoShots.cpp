#include "ui/demo/DemoShots.h"

#include "play/shots/ScreenshotFiles.h"

#include <QDir>
#include <QPainter>
#include <QPainterPath>
#include <QRandomGenerator>

/// An evening at a lake, different for each seed.
static QImage landscape(quint32 seed)
{
    QRandomGenerator random(seed);
    QImage picture(1280, 720, QImage::Format_RGB32);
    const int hue = int(random.bounded(360));
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient sky(0, 0, 0, 480);
    sky.setColorAt(0, QColor::fromHsl(hue, 110, 40));
    sky.setColorAt(1, QColor::fromHsl((hue + 40) % 360, 170, 160));
    painter.fillRect(picture.rect(), sky);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(255, 244, 220));
    painter.drawEllipse(QPointF(200 + random.bounded(900), 380), 46, 46);
    for (int hill = 0; hill < 3; ++hill) {
        QPainterPath shape(QPointF(0, 720));
        const double base = 400 + hill * 60, wave = 140 + random.bounded(200), shift = random.bounded(400);
        for (int x = 0; x <= 1280; x += 20)
            shape.lineTo(x, base - 44 * std::sin((x + shift) / wave));
        shape.lineTo(1280, 720);
        painter.setBrush(QColor::fromHsl(hue, 90, 78 - hill * 24));
        painter.drawPath(shape);
    }
    painter.setBrush(QColor(255, 220, 130, 220));
    for (int light = 0; light < 40; ++light)
        painter.drawEllipse(QPointF(random.bounded(1280), random.bounded(600)), 3 + random.bounded(4), 5);
    return picture;
}

void writeDemoShots(const QList<GameEntry> &games, const QDateTime &now, const QString &folder)
{
    QDir().mkpath(folder);
    for (int game = 0; game < 4 && game < games.size(); ++game) {
        for (int shot = 0; shot < 9 - 2 * game; ++shot) {
            const QDateTime moment = now.addDays(-game).addSecs(-3600 * shot);
            landscape(quint32(game * 100 + shot)).save(screenshotPath(folder, games[game].title, moment), "PNG", 90);
        }
    }
}
