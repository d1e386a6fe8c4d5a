#include "DemoGame.h"
#include "Library.h"
#include "Processes.h"
#include "Program.h"
#include "Waiting.h"

#include "library/LibraryStore.h"
#include "platform/Preferences.h"
#include "platform/linux/LinuxServices.h"
#include "play/supervision/GameSupervisor.h"
#include "play/supervision/PlacementLog.h"

#include "fakes/FakeAccessibility.h"
#include "fakes/FakeGameLauncher.h"

#include <QDebug>
#include <QElapsedTimer>
#include <QStandardPaths>
#include <QtEndian>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

static const QString logName = u".local/state/VelkoEmu/Velko-placement.log"_s;

// Two displays

class TwoDisplays : public testing::TestWithParam<const char *> { };

TEST_P(TwoDisplays, theGameFillsTheOneThatTheUserChose)
{
    VirtualDisplay display(XServer::Kind::twoOutputs, QString::fromLatin1(GetParam()));
    if (!display.isReady()) GTEST_SKIP() << "no X server with two outputs";
    display.write(u".config/VelkoEmu/preferences.ini"_s, "[General]\nplayDisplay=DUMMY1\n");
    ASSERT_TRUE(installDemoGame(display));
    const auto fills = [&](const QRect &output) {
        const QList<DesktopWindow> windows = display.desktop().windows();
        return std::any_of(windows.begin(), windows.end(),
                           [&](const DesktopWindow &window) { return window.fullScreen && window.place == output; });
    };

    const auto places = [&] {
        QString text;
        QDebug stream(&text);
        for (const DesktopWindow &window : display.desktop().windows())
            stream << window.title << window.place << window.fullScreen;
        return text;
    };

    Program play(display, {u"play"_s, demoGameTitle});
    EXPECT_TRUE(waitFor(30s, [&] { return display.read(logName).contains("look 1: placed"); }))
        << display.read(logName).constData() << play.errors().constData();
    EXPECT_TRUE(fills({1920, 0, 1920, 1080})) << qPrintable(places());

    ASSERT_TRUE(display.run(u"xrandr"_s, {u"--output"_s, u"DUMMY1"_s, u"--off"_s}));
    EXPECT_TRUE(waitFor(30s, [&] { return fills({0, 0, 1920, 1080}); })) << display.read(logName).constData();
    EXPECT_TRUE(play.isRunning());

    ASSERT_FALSE(display.desktop().windows().isEmpty());
    display.desktop().close(display.desktop().windows().first().id);
    EXPECT_TRUE(play.ends(20s));
    EXPECT_EQ(play.status(), 0) << play.errors().constData();
}

INSTANTIATE_TEST_SUITE_P(Managers, TwoDisplays, testing::Values("openbox"),
                         [](const auto &manager) { return manager.param; });

// Quitting

/// A game in a real program on a real desktop, watched over by this test's own supervisor.
class RealQuit : public testing::Test {
protected:
    void play(const QString &engine, const QStringList &command)
    {
        ASSERT_TRUE(display.isReady());
        library.add({GameEntry{.id = newGameID(), .title = u"Game"_s, .consoleID = u"gb"_s, .path = command.last()}});
        QObject::connect(
            &library, &LibraryStore::gameStarted, &supervisor, [this](const QString &id, const StartedGame &program) {
                supervisor.startWatching(runningGame(id, u"Game"_s, program, Host::linux, clock->now()), {});
            });
        QObject::connect(&supervisor, &GameSupervisor::quitFinished, &supervisor, [this] { finished = true; });
        library.launch(library.games().first().id);
        QMap<QString, QString> environment;
        for (const QString &name : display.environment().keys())
            environment.insert(name, display.environment().value(name));
        environment[u"QT_QPA_PLATFORM"_s] = u"xcb"_s; // our own is another
        const auto started = workspace->start({command, environment, display.home(), {}});
        ASSERT_TRUE(started);
        pid = started.value();
        launcher.answer(StartedGame{pid, engine, engine, {}});
    }
    /// Quits, and answers how long it took.
    std::chrono::milliseconds quit()
    {
        QElapsedTimer time;
        time.start();
        supervisor.quit();
        EXPECT_TRUE(waitFor(30s, [this] { return finished; }));
        EXPECT_FALSE(isRunning(pid));
        EXPECT_TRUE(waitFor(2s, [this] { return leftBehind().isEmpty(); }))
            << qPrintable(commandLine(leftBehind().value(0))) << " is left behind";
        EXPECT_TRUE(library.running().isEmpty());
        EXPECT_EQ(library.games().first().sessionCount, 1);
        return std::chrono::milliseconds(time.elapsed());
    }
    QList<qint64> leftBehind() const
    {
        QList<qint64> all = display.programs();
        all.removeIf([](qint64 each) { return commandLine(each).contains(u"velko-freeze-guard"_s); }); // our own
        return all;
    }
    bool becomesFull()
    {
        return waitFor(30s, [this] {
            const QList<DesktopWindow> windows = display.desktop().windows();
            return !windows.isEmpty() && windows.first().fullScreen && windows.first().place == QRect(0, 0, 1280, 720);
        });
    }

    VirtualDisplay display;
    const Places places = linuxPlaces(display.home(), display.environment());
    Preferences preferences{places.preferencesFile()};
    const std::unique_ptr<Clock> clock = makeClock();
    const std::unique_ptr<Workspace> workspace = makeWorkspace(places);
    const std::unique_ptr<ProcessControl> processes = makeProcessControl();
    const std::unique_ptr<FileIndex> index = makeFileIndex(places);
    const std::unique_ptr<Tasks> tasks = makeTasks();
    const std::unique_ptr<Windows> windows = makeWindows(display.name());
    const std::unique_ptr<Keys> keys = makeKeys(display.name());
    FakeAccessibility accessibility;
    FakeGameLauncher launcher;
    LibraryStore library{places, preferences, *clock, *tasks, *index, *workspace, *processes, launcher};
    PlacementLog log{places, *clock, *tasks};
    GameSupervisor supervisor{
        {Host::linux, *clock, *windows, accessibility, *keys, *processes, log}, library, *workspace, preferences};
    qint64 pid = 0;
    bool finished = false;
};

TEST_F(RealQuit, closesTheWindowOfAnEmulatorThatSavesThen)
{
    ASSERT_TRUE(installDemoGame(display));
    const QString game = display.home() + u"/Games/Game Boy/Lanterns (Demo).gb"_s;
    play(u"mgba"_s, {u"/usr/games/mgba-qt"_s, game}); // in a window
    EXPECT_TRUE(becomesFull());
    EXPECT_TRUE(isMoving(display));
    processes->freeze(pid);
    int signal = -1;
    QObject::connect(workspace.get(), &Workspace::ended, &supervisor,
                     [&signal](qint64, ProgramEnd end) { signal = end.signal; });
    quit();
    EXPECT_EQ(signal, 0) << "it was ended by force";
    EXPECT_TRUE(demoGameSave(display));
}

TEST_F(RealQuit, endsByForceWhatIgnoresIt)
{
    const QString script = display.write(u"stubborn"_s, "trap '' TERM\nsleep 1000 &\nwhile :; do sleep 0.1; done\n");
    play(u"retroarch"_s, {u"/bin/sh"_s, script});
    EXPECT_FALSE(waitFor(1s, [this] { return !isRunning(pid); }));
    const auto time = quit();
    EXPECT_GT(time, 4s);
    EXPECT_LT(time, 8s);
}

static QByteArray countingProgram()
{
    QByteArray dol(0x200, 0);
    const auto put = [&dol](int place, quint32 value) { qToBigEndian(value, dol.data() + place); };
    constexpr quint32 address = 0x80003100;
    put(0x00, 0x100); // where its one part lies in the file,
    put(0x48, address); // in memory,
    put(0x90, 0x100); // how long it is,
    put(0xe0, address); // and where it begins
    put(0x100, 0x38630001); // addi r3, r3, 1
    put(0x104, 0x4bfffffc); // b -4
    return dol;
}

TEST_F(RealQuit, handsDolphinsQuestionToTheUser)
{
    const QString game = display.write(u"Counting.dol"_s, countingProgram());
    play(u"dolphin"_s,
         {u"/usr/games/dolphin-emu"_s, u"-C"_s, u"Dolphin.Analytics.PermissionAsked=True"_s, u"-C"_s,
          u"Dolphin.Interface.ConfirmStop=True"_s, u"-b"_s, u"-e"_s, game});
    EXPECT_TRUE(becomesFull());
    supervisor.quit();
    EXPECT_TRUE(waitFor(10s, [this] { return supervisor.question() == GameSupervisor::Question::quit; }));
    EXPECT_FALSE(waitFor(6s, [this] { return finished; })) << "the user has time";
    EXPECT_TRUE(keys->press({Qt::Key_Return}));
    EXPECT_TRUE(waitFor(15s, [this] { return finished; }));
    EXPECT_FALSE(isRunning(pid));
    EXPECT_TRUE(waitFor(2s, [this] { return leftBehind().isEmpty(); }));
}
