#include "CouchPlay.h"

#include "Library.h"
#include "Processes.h"
#include "Waiting.h"

#include <QDir>
#include <sys/stat.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

TestPad::TestPad(const QString &pipe) : m_pipe(pipe)
{
    mkfifo(QFile::encodeName(pipe).constData(), 0600);
    // For reading as well, so that it opens before Velko listens.
    if (!m_pipe.open(QFile::ReadWrite | QFile::Unbuffered)) qFatal("cannot open %s", qPrintable(pipe));
}

void TestPad::say(const QByteArray &line)
{
    m_pipe.write(line + '\n');
}

void TestPad::press(const char *button, int times)
{
    for (int i = 0; i < times; ++i)
        say(QByteArray("press ") + button);
}

void TestPad::chord()
{
    say("hold View");
    say("press Menu");
    say("release View");
}

CouchPlay::CouchPlay(XServer::Kind kind, const QString &windowManager) : display(kind, windowManager) { }

void CouchPlay::SetUp()
{
    ASSERT_TRUE(display.isReady());
    if (screen.isNull()) screen = QRect(QPoint(), display.desktop().size());
    pad = std::make_unique<TestPad>(display.home() + u"/pad"_s);
}

void CouchPlay::chooseEmulator(const QByteArray &preferences)
{
    display.write(u".config/VelkoEmu/preferences.ini"_s, "[General]\n" + preferences + '\n');
}

void CouchPlay::play(const QString &title)
{
    velko = std::make_unique<Program>(display, QStringList{u"play"_s, title, u"--virtual-pad"_s, pad->pipe()});
}

void CouchPlay::openWindow()
{
    velko = std::make_unique<Program>(display, QStringList{u"--virtual-pad"_s, pad->pipe()});
}

QList<qint64> CouchPlay::game() const
{
    QList<qint64> all = display.programs();
    all.removeIf([this](qint64 pid) { return !commandLine(pid).section(u' ', 0, 0).contains(emulatorName); });
    return all;
}

bool CouchPlay::gameIsInFront()
{
    const auto front = display.desktop().active();
    // Not by the window's own word: in a namespace its process has another number.
    return front && front->fullScreen && front->place == screen && front->pid != velko->pid();
}

bool CouchPlay::menuIsInFront()
{
    const auto isMenu = [this](const DesktopWindow &window) {
        return window.pid == velko->pid() && window.place == screen;
    };
    // Some window managers put nothing in front of a game; then the menu is not theirs.
    const auto front = display.desktop().active();
    return (front && isMenu(*front)) || std::ranges::any_of(display.desktop().unmanaged(), isMenu);
}

bool CouchPlay::gameStandsStill() const
{
    const QList<qint64> all = game();
    return !all.isEmpty() && std::ranges::all_of(all, isStopped);
}

bool CouchPlay::openMenu()
{
    pad->chord();
    return waitFor(5s, [this] { return gameStandsStill() && menuIsInFront(); });
}

bool CouchPlay::chooseItem(int item)
{
    pad->press("Down", item);
    pad->press("A");
    return waitFor(5s, [this] { return !gameStandsStill(); });
}

void CouchPlay::quitFromMenu()
{
    pad->press("Down", 7);
    pad->press("A", 2);
}

QJsonObject CouchPlay::firstGame() const
{
    return libraryOf(display).value_or(QJsonArray()).first().toObject();
}

std::string CouchPlay::story()
{
    QString text = QString::fromUtf8(display.read(u".local/state/VelkoEmu/Velko-placement.log"_s));
    const auto front = display.desktop().active();
    const QList<DesktopWindow> windows = display.desktop().windows();
    for (const DesktopWindow &window : windows) {
        const QRect &place = window.place;
        text += u"%1 “%2” %3,%4 %5x%6%7%8\n"_s.arg(window.id)
                    .arg(window.title)
                    .arg(place.x())
                    .arg(place.y())
                    .arg(place.width())
                    .arg(place.height())
                    .arg(window.fullScreen ? u" full screen"_s : QString(),
                         front && front->id == window.id ? u" in front"_s : QString());
    }
    if (!velko->isRunning()) text += u"velko has ended with %1\n"_s.arg(velko->status());
    return text.toStdString() + velko->errors().toStdString();
}

QStringList CouchPlay::files(const QString &folder, const QString &pattern) const
{
    const QDir found(display.home() + u'/' + folder);
    QStringList all;
    for (const QString &name : found.entryList({pattern}, QDir::Files))
        all += found.filePath(name);
    return all;
}
