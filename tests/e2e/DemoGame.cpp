#include "DemoGame.h"

#include "GamePicture.h"
#include "Program.h"
#include "Waiting.h"

#include <QDir>
#include <QtEndian>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

static const QString folder = u"Games/Game Boy"_s, name = u"Lanterns (Demo)"_s;

bool writeDemoGame(const VirtualDisplay &display)
{
    QFile built(QStringLiteral(VELKO_BUILD_DIR "/demo-game/Games/Game Boy/Lanterns (Demo).gb"));
    if (!built.open(QFile::ReadOnly)) return false;
    display.write(folder + u'/' + name + u".gb"_s, built.readAll());
    return true;
}

bool installDemoGame(const VirtualDisplay &display)
{
    if (!writeDemoGame(display)) return false;
    Program scan(display, {u"scan"_s, display.home() + u"/Games"_s});
    return scan.ends(10s) && scan.status() == 0;
}

std::optional<DemoGameSave> demoGameSave(const VirtualDisplay &display)
{
    const QByteArray bytes = display.read(folder + u'/' + name + u".sav"_s);
    if (bytes.size() < 12 || !bytes.startsWith("VLKO\1")) return {};
    return DemoGameSave{bytes.mid(5, 1).toHex().toInt(), bytes.mid(6, 2).toHex().toInt(),
                        qFromLittleEndian<quint32>(bytes.constData() + 8)};
}

std::optional<DesktopWindow> waitForDemoGame(VirtualDisplay &display, std::chrono::milliseconds limit)
{
    std::optional<DesktopWindow> found;
    const QRect screen(QPoint(), display.desktop().size());
    waitFor(limit, [&] {
        found.reset();
        for (const DesktopWindow &window : display.desktop().windows())
            if (window.fullScreen && window.place == screen) found = window;
        if (found && showsDemoGame(display.desktop().picture())) return true;
        found.reset();
        return false;
    });
    return found;
}

bool isMoving(VirtualDisplay &display)
{
    const QImage before = display.desktop().picture();
    return waitFor(10s, [&] { return display.desktop().picture() != before; });
}
