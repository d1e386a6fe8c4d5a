#include "Processes.h"
#include "VirtualDisplay.h"
#include "Waiting.h"

#include "emulators/finding/InstalledEmulators.h"
#include "emulators/launch/CommandChannel.h"
#include "emulators/settings/RetroArchConfig.h"
#include "fakes/FakeFileIndex.h"
#include "fakes/FakeGameLauncher.h"
#include "library/LibraryStore.h"
#include "platform/Preferences.h"
#include "platform/linux/LinuxServices.h"
#include "play/shots/ScreenshotStore.h"
#include "play/shots/Screenshots.h"
#include "play/states/SaveStates.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>
#include <gtest/gtest.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// A desktop on which one emulator plays one game, with all that reaches it.
struct StateDesk {
    VirtualDisplay display;
    const QByteArray name = display.environment().value(u"DISPLAY"_s).toUtf8();
    const Places places = linuxPlaces(display.home(), display.environment());
    Preferences preferences{places.preferencesFile()};
    std::unique_ptr<Clock> clock = makeClock();
    std::unique_ptr<Tasks> tasks = makeTasks();
    std::unique_ptr<Workspace> workspace = makeWorkspace(places);
    std::unique_ptr<ProcessControl> processes = makeProcessControl();
    std::unique_ptr<Windows> windows = makeWindows(name);
    std::unique_ptr<Keys> keys = makeKeys(name);
    std::unique_ptr<ScreenCapture> capture = makeScreenCapture(name);
    std::unique_ptr<Accessibility> accessibility =
        makeAccessibility(*tasks, display.environment().value(u"DBUS_SESSION_BUS_ADDRESS"_s));
    std::unique_ptr<LocalSockets> sockets = makeLocalSockets();
    FakeFileIndex index;
    FakeGameLauncher launcher;
    LibraryStore library{places, preferences, *clock, *tasks, index, *workspace, *processes, launcher};
    InstalledEmulators emulators{places, *workspace, index, preferences, *tasks};
    QProcess program;
    RunningGame game;
    QString toast;

    ~StateDesk()
    {
        killTree(program.processId());
        program.waitForFinished();
    }

    bool play(const QString &engine, const QString &file, const QByteArray &content, const QString &command,
              QStringList arguments)
    {
        GameEntry entry;
        entry.title = u"Lab"_s;
        entry.consoleID = u"gb"_s;
        entry.path = display.write(file, content);
        library.add({entry});
        arguments.replaceInStrings(u"GAME"_s, entry.path);
        QProcessEnvironment environment = display.environment();
        environment.insert(u"QT_LINUX_ACCESSIBILITY_ALWAYS_ON"_s, u"1"_s);
        program.setProcessEnvironment(environment);
        program.setStandardOutputFile(QProcess::nullDevice());
        program.setStandardErrorFile(QProcess::nullDevice());
        program.start(command, arguments);
        if (!program.waitForStarted()) return false;
        game = {library.games().first().id, entry.title, program.processId(), engine, engine, clock->now()};
        return waitFor(40s, [this] { return isPlaying(); });
    }
    /// Whether the game itself is there: a program that counts has no picture, but its emulator's title does.
    bool isPlaying() const
    {
        const auto all = windows->windowsOf(processes->tree(game.pid));
        if (all.isEmpty() || !all.first().fullScreen) return false;
        static const QRegularExpression frames(u"VPS: [1-9]"_s);
        return game.engine == u"dolphin" ? all.first().title.contains(frames)
                                         : shades(capture->window(all.first().id)) >= 4;
    }
    static qsizetype shades(const QImage &picture)
    {
        QSet<QRgb> colours;
        for (int y = 0; y < picture.height(); ++y)
            colours.insert(picture.pixel(picture.width() / 2, y));
        return colours.size();
    }
    /// The toast at the end of what is asked; empty when there was none in time.
    std::string ask(void (SaveStates::*command)(const RunningGame &), Keys &how)
    {
        SaveStates states({places, *clock, *tasks, *windows, how, *accessibility, *processes, *sockets}, library,
                          emulators);
        QString answer;
        QObject::connect(&states, &SaveStates::finished, [&](const Message &text) { answer = english(text); });
        (states.*command)(game);
        waitFor(30s, [&] { return !answer.isEmpty(); });
        return answer.toStdString();
    }
    QString savedFile() const { return library.games().first().statePath.value_or(QString()); }
};

/// A keyboard that is out of reach.
struct NoKeys final : Keys {
    bool press(const KeyStroke &) override { return false; }
};

/// A Game Boy game that paints stripes for ever.
static QByteArray stripes()
{
    QByteArray rom(32 * 1024, '\0');
    rom.replace(0x100, 4, QByteArray::fromHex("00c35001"));
    rom.replace(0x104, 48,
                QByteArray::fromHex("ceed6666cc0d000b03730083000c000d0008111f8889000edccc6ee6ddddd999bbbb67636e0eecccdd"
                                    "dc999fbbb9333e"));
    char sum = 0;
    for (int i = 0x134; i < 0x14d; ++i)
        sum = char(sum - rom[i] - 1);
    rom[0x14d] = sum;
    return rom.replace(0x150, 5, QByteArray::fromHex("3ce04718fb"));
}

/// A GameCube program that counts for ever.
static QByteArray counter()
{
    QByteArray program(0x200, '\0');
    program.replace(0x00, 4, QByteArray::fromHex("00000100"));
    program.replace(0x48, 4, QByteArray::fromHex("80003100"));
    program.replace(0x90, 4, QByteArray::fromHex("00000100"));
    program.replace(0xe0, 4, QByteArray::fromHex("80003100"));
    return program.replace(0x100, 12, QByteArray::fromHex("38600000386300014bfffffc"));
}

TEST(SaveStatesForReal, mgba)
{
    StateDesk desk;
    ASSERT_TRUE(desk.play(u"mgba"_s, u"Roms/lab.gb"_s, stripes(), u"/usr/games/mgba-qt"_s, {u"-f"_s, u"GAME"_s}));
    EXPECT_EQ(desk.ask(&SaveStates::load, *desk.keys), "There is no save state of “Lab” yet.");
    EXPECT_EQ(desk.ask(&SaveStates::save, *desk.keys), "State saved");
    EXPECT_EQ(desk.savedFile().toStdString(), desk.display.home().toStdString() + "/Roms/lab.ss1");
    EXPECT_EQ(desk.ask(&SaveStates::load, *desk.keys), "State loaded");

    QFile::remove(desk.savedFile());
    NoKeys none;
    EXPECT_EQ(desk.ask(&SaveStates::save, none), "State saved") << "by its menu";
    EXPECT_TRUE(QFile::exists(desk.savedFile()));
}

TEST(SaveStatesForReal, mgbaThatNumbersItsProcessesItself)
{
    if (getuid() != 0) GTEST_SKIP() << "needs the right to make a namespace";
    StateDesk desk;
    ASSERT_TRUE(desk.play(u"mgba"_s, u"Roms/lab.gb"_s, stripes(), u"unshare"_s,
                          {u"--pid"_s, u"--fork"_s, u"/usr/games/mgba-qt"_s, u"-f"_s, u"GAME"_s}));
    EXPECT_EQ(desk.ask(&SaveStates::save, *desk.keys), "State saved");
    EXPECT_EQ(desk.ask(&SaveStates::load, *desk.keys), "State loaded");
}

TEST(SaveStatesForReal, retroArch)
{
    StateDesk desk;
    const quint16 port = retroArchPort(desk.display.home() + u"/Roms/lab.gb"_s);
    const QString config = desk.display.write(u"ours.cfg"_s, retroArchConfig({}, port));
    ASSERT_TRUE(desk.play(u"retroarch"_s, u"Roms/lab.gb"_s, stripes(), u"retroarch"_s,
                          {u"-f"_s, u"-L"_s, u"/usr/lib/x86_64-linux-gnu/libretro/gambatte_libretro.so"_s,
                           u"--appendconfig"_s, config, u"GAME"_s}));
    NoKeys none;
    EXPECT_EQ(desk.ask(&SaveStates::save, none), "State saved");
    EXPECT_EQ(QFileInfo(desk.savedFile()).fileName().toStdString(), "lab.state1");
    EXPECT_EQ(desk.ask(&SaveStates::load, none), "State loaded");
}

TEST(SaveStatesForReal, dolphinByKeyAndByMenu)
{
    StateDesk desk;
    ASSERT_TRUE(desk.play(u"dolphin"_s, u"Roms/lab.dol"_s, counter(), u"/usr/games/dolphin-emu"_s,
                          {u"-C"_s, u"Dolphin.Display.Fullscreen=True"_s, u"-C"_s,
                           u"Dolphin.Analytics.PermissionAsked=True"_s, u"-b"_s, u"-e"_s, u"GAME"_s}));
    EXPECT_EQ(desk.ask(&SaveStates::save, *desk.keys), "State saved");
    EXPECT_EQ(QFileInfo(desk.savedFile()).fileName().toStdString(), "ID-lab.s01");
    NoKeys none;
    EXPECT_EQ(desk.ask(&SaveStates::save, none), "State saved") << "by its menu";
    EXPECT_EQ(desk.ask(&SaveStates::load, none), "State loaded");
}

TEST(ScreenshotsForReal, showTheGame)
{
    StateDesk desk;
    ASSERT_TRUE(desk.play(u"mgba"_s, u"Roms/lab.gb"_s, stripes(), u"/usr/games/mgba-qt"_s, {u"-f"_s, u"GAME"_s}));
    Screenshots screenshots(desk.places, *desk.clock, *desk.tasks, *desk.windows, *desk.capture, *desk.processes);
    QString file;
    QObject::connect(&screenshots, &Screenshots::saved, [&](const QString &path) { file = path; });
    screenshots.take(desk.game, true);
    ASSERT_TRUE(waitFor(20s, [&] { return !file.isEmpty(); }));
    const QImage picture(file);
    ASSERT_EQ(picture.size(), desk.display.desktop().size());
    EXPECT_GE(StateDesk::shades(picture), 4) << "stripes in the four shades";
}
