#include "emulators/launch/EmulatorLauncher.h"
#include "emulators/finding/InstalledEmulators.h"
#include "emulators/settings/EmulatorChanges.h"
#include "fakes/FakeFileIndex.h"
#include "fakes/FakeProcessControl.h"
#include "fakes/FakeTasks.h"
#include "fakes/FakeWorkspace.h"
#include "fakes/ManualClock.h"
#include "fakes/TemporaryHome.h"
#include "platform/Preferences.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// Counts how often the machine is searched.
class CountingIndex final : public FileIndex {
public:
    mutable int searches = 0;
    QStringList named(const QString &, const QStringList &) const override { return {}; }
    QStringList beginningWith(const QString &, const QString &) const override { return (++searches, QStringList()); }
};

class Launcher : public testing::Test {
protected:
    QString program(const QString &name)
    {
        const QString file = home.write(name, "#!/bin/sh\n");
        QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return file;
    }
    void launch(const QString &console, const QString &path)
    {
        launcher->launch({u"Game"_s, path, console, settings, statePath},
                         [this](const LaunchResult &answer) { answers += answer; });
    }
    QString failure() const
    {
        return answers.size() == 1 && !answers[0] ? english(answers[0].failure().message) : QString();
    }
    StartRequest lastStart() const { return workspace.started.value(workspace.lastPid); }

    const TemporaryHome home;
    const Places places = home.places();
    Preferences preferences{home.path() + u"/preferences.ini"_s};
    FakeWorkspace workspace;
    FakeProcessControl processes;
    ManualClock clock;
    FakeTasks tasks;
    CountingIndex index;
    Session session;
    GameSettings settings;
    std::optional<QString> statePath;
    QList<LaunchResult> answers;
    InstalledEmulators installed{places, workspace, index, preferences, tasks};
    EmulatorChanges changes{places, clock, tasks, processes};
    std::unique_ptr<EmulatorLauncher> launcher = std::make_unique<EmulatorLauncher>(
        places, preferences, workspace, processes, clock, tasks, installed, changes, [this] { return session; });
};

TEST_F(Launcher, startsTheEmulatorAndSaysWhatRuns)
{
    const QString mgba = program(u"bin/mgba-qt"_s);
    const QString game = home.write(u"Games/Zelda – été.gba"_s);
    launch(u"gba"_s, game);
    EXPECT_TRUE(workspace.started.isEmpty()) << "everything slow is done in the background";
    tasks.finish();
    ASSERT_EQ(answers.size(), 1);
    ASSERT_TRUE(answers[0]);
    const StartedGame started = answers[0].value();
    EXPECT_EQ(started.pid, workspace.lastPid);
    EXPECT_EQ(started.engine, u"mgba"_s);
    EXPECT_EQ(started.applicationID, u"mgba-qt"_s);
    EXPECT_EQ(started.logFile, places.logFolder() + u"/sessions/mgba-2026-03-14 20.00.00.log"_s);
    EXPECT_EQ(lastStart().command, (QStringList{mgba, u"-f"_s, game}));
    EXPECT_EQ(lastStart().workingFolder, home.path());
    EXPECT_EQ(lastStart().logFile, started.logFile);
    EXPECT_EQ(lastStart().environment.value(u"QT_LINUX_ACCESSIBILITY_ALWAYS_ON"_s), u"1"_s);
    EXPECT_TRUE(QFileInfo(QFileInfo(started.logFile).path()).isDir());
}

TEST_F(Launcher, saysWhyItCannotStart)
{
    const QString game = home.write(u"game.gba"_s);
    const QList<std::array<QString, 3>> cases{
        {u"gba"_s, home.path() + u"/gone.gba"_s, u"File not found: "_s + home.path() + u"/gone.gba"_s},
        {u"gba"_s, game, u"No emulator installed for Game Boy Advance. Install mGBA (Essentials tab)."_s},
        {u"unheard-of"_s, game,
         u"Velko doesn't know the console “unheard-of” of this game. Remove the game and add it again."_s},
        {u"cdi"_s, game, u"Velko can't play CD-i games yet."_s}};
    for (const auto &[console, path, sentence] : cases) {
        answers.clear();
        launch(console, path);
        tasks.finish();
        EXPECT_EQ(failure(), sentence);
    }
    answers.clear();
    program(u"bin/mgba-qt"_s);
    workspace.refusal = Message{u"Exec format error"_s, {}};
    launch(u"gba"_s, game);
    tasks.finish();
    EXPECT_EQ(failure(), u"Exec format error"_s) << "the system's own words";
    EXPECT_TRUE(workspace.started.isEmpty());
    EXPECT_FALSE(QFile::exists(places.dataFolder()));
}

TEST_F(Launcher, searchesOnlyWhenTheLastLookDoesNotHold)
{
    const QString file = program(u"own/mgba-qt"_s);
    preferences.set(preference::emulatorPath(u"mgba"_s), file);
    const QString game = home.write(u"game.gba"_s);
    installed.refresh();
    tasks.finish();
    const int searches = index.searches;
    launch(u"gba"_s, game);
    tasks.finish();
    EXPECT_EQ(lastStart().command.first(), file);
    EXPECT_EQ(index.searches, searches);

    QFile::remove(file);
    launch(u"gba"_s, game);
    tasks.finish();
    EXPECT_GT(index.searches, searches);
    EXPECT_FALSE(answers.last());
    const QString other = program(u"bin/mgba-qt"_s);
    launch(u"gba"_s, game);
    tasks.finish();
    EXPECT_EQ(lastStart().command.first(), other);
}

TEST_F(Launcher, usesTheSessionTheQualityAndTheState)
{
    program(u"bin/dolphin-emu"_s);
    const QString game = home.write(u"game.rvz"_s);
    session.wayland = true;
    preferences.set(preference::defaultQuality, u"maximum"_s);
    statePath = home.path() + u"/game.s01"_s;
    launch(u"gc"_s, game);
    tasks.finish();
    EXPECT_TRUE(lastStart().command.contains(u"Graphics.Settings.InternalResolution=4"_s));
    EXPECT_FALSE(lastStart().command.contains(u"-s"_s)) << "the state is not there";
    EXPECT_EQ(lastStart().environment.value(u"QT_QPA_PLATFORM"_s), u"xcb"_s);
    home.write(u"game.s01"_s);
    launch(u"gc"_s, game);
    tasks.finish();
    EXPECT_TRUE(lastStart().command.contains(*statePath));
}

TEST_F(Launcher, writesRetroArchsSettingsBeforeItStarts)
{
    program(u"bin/retroarch"_s);
    const QString core = home.write(u"usr/lib/libretro/nestopia_libretro.so"_s);
    settings.showFPS = true;
    launch(u"nes"_s, home.write(u"game.nes"_s));
    tasks.finish();
    const QString config = places.dataFolder() + u"/retroarch.cfg"_s;
    EXPECT_EQ(lastStart().command.sliced(1, 5), (QStringList{u"-f"_s, u"-L"_s, core, u"--appendconfig"_s, config}));
    EXPECT_TRUE(home.read(u".local/share/VelkoEmu/retroarch.cfg"_s).contains("fps_show = \"true\""));

    statePath = home.write(u"states/game.state2"_s, "the state");
    launch(u"nes"_s, home.write(u"game.nes"_s));
    tasks.finish();
    EXPECT_TRUE(lastStart().command.join(u' ').contains(u" -e 2 "_s));
    EXPECT_EQ(home.read(u"states/game.state2.entry"_s), "the state");
    EXPECT_EQ(home.read(u"states/game.state2"_s), "the state");

    launch(u"snes"_s, home.write(u"game.sfc"_s));
    tasks.finish();
    EXPECT_TRUE(
        english(answers.last().failure().message).startsWith(u"RetroArch has no core for Super Nintendo yet."_s));
}

TEST_F(Launcher, startsNativeGamesThemselves)
{
    const QString port = program(u"Games/Port.AppImage"_s);
    program(u"bin/mangohud"_s);
    settings.showFPS = true;
    launch(u"n64"_s, port);
    tasks.finish();
    ASSERT_TRUE(answers.last());
    EXPECT_EQ(answers.last().value().engine, u"native"_s);
    EXPECT_EQ(lastStart().command, (QStringList{u"mangohud"_s, port}));
    launch(u"native"_s, home.write(u"Games/readme.txt"_s));
    tasks.finish();
    EXPECT_TRUE(english(answers.last().failure().message).contains(u"isn't allowed to run yet"_s));
}

TEST_F(Launcher, endsARunningCemuFirst)
{
    program(u"bin/Cemu"_s);
    const QString game = home.write(u"game.wua"_s);
    processes.processes = {{10, {10, 1, u"Cemu"_s}}, {11, {11, 1, u"cemu-other"_s}}};
    launch(u"wiiu"_s, game);
    tasks.finish();
    EXPECT_FALSE(processes.isAlive(10));
    EXPECT_TRUE(processes.isAlive(11));
    ASSERT_EQ(workspace.started.size(), 1);

    processes.processes = {{20, {20, 1, u"Cemu"_s}}};
    processes.stubborn = {20};
    launch(u"wiiu"_s, game);
    tasks.finish();
    clock.advance(2s);
    EXPECT_EQ(workspace.started.size(), 1) << "still waiting";
    processes.processes.clear();
    clock.advance(100ms);
    tasks.finish();
    EXPECT_EQ(workspace.started.size(), 2);
    EXPECT_EQ(clock.pending(), 0);

    processes.processes = {{30, {30, 1, u"Cemu"_s}}};
    processes.stubborn = {30};
    launch(u"wiiu"_s, game);
    tasks.finish();
    clock.advance(1min);
    EXPECT_EQ(workspace.started.size(), 2);
    EXPECT_EQ(english(answers.last().failure().message),
              u"Cemu is still running and doesn't close. Quit it, then play again."_s);
    EXPECT_EQ(answers.size(), 3);
    EXPECT_EQ(clock.pending(), 0);
}

TEST_F(Launcher, setsTheEmulatorUpBeforeItStarts)
{
    program(u"bin/Cemu"_s);
    const QString file = u".config/Cemu/settings.xml"_s;
    home.write(file, "<content>\n</content>\n");
    // A Cemu that runs writes its own settings when it ends, over what was written before.
    processes.processes = {{10, {10, 1, u"Cemu"_s}}};
    processes.stubborn = {10};
    launch(u"wiiu"_s, home.write(u"Games/game.wua"_s));
    tasks.finish();
    EXPECT_EQ(home.read(file), "<content>\n</content>\n");
    processes.processes.clear();
    clock.advance(100ms);
    tasks.finish();
    EXPECT_TRUE(home.read(file).contains("<Entry>" + home.path().toUtf8() + "/Games</Entry>"));
    EXPECT_EQ(changes.of(u"cemu"_s).size(), 2);
    ASSERT_EQ(workspace.started.size(), 1);
    EXPECT_TRUE(answers.last().value().shortcomings.isEmpty());

    home.write(file, "<content>");
    launch(u"wiiu"_s, home.write(u"Games/game.wua"_s));
    tasks.finish();
    EXPECT_EQ(workspace.started.size(), 2) << "what cannot be written does not stop the launch";
    ASSERT_EQ(answers.last().value().shortcomings.size(), 1);
    EXPECT_TRUE(english(answers.last().value().shortcomings.first()).contains(u"/.config/Cemu/settings.xml"_s));
}

TEST_F(Launcher, putsRpcs3sFrameRateBackAndMapsControllersOnlyIfAllowed)
{
    program(u"bin/rpcs3"_s);
    const QString rpcs3 = u".config/rpcs3/config.yml"_s;
    home.write(rpcs3, "Video:\n  Vblank Rate: 120\n");
    launch(u"ps3"_s, home.write(u"Games/EBOOT.BIN"_s));
    tasks.finish();
    EXPECT_TRUE(home.read(rpcs3).contains("Vblank Rate: 120\n")) << "the user's own";
    preferences.set(preference::rpcs3VblankRaised, true);
    launch(u"ps3"_s, home.write(u"Games/EBOOT.BIN"_s));
    tasks.finish();
    EXPECT_TRUE(home.read(rpcs3).contains("Vblank Rate: 60\n"));
    EXPECT_FALSE(preferences.get(preference::rpcs3VblankRaised));

    program(u"bin/pcsx2-qt"_s);
    const QString pcsx2 = u".config/PCSX2/inis/PCSX2.ini"_s;
    home.write(pcsx2, "[Pad1]\nCross = Keyboard/K\n");
    session.controllers = {u"Xbox Wireless Controller"_s};
    preferences.set(preference::autoXboxSetup, false);
    launch(u"ps2"_s, home.write(u"Games/game.iso"_s));
    tasks.finish();
    EXPECT_TRUE(home.read(pcsx2).contains("Cross = Keyboard/K\n"));
    preferences.remove(preference::autoXboxSetup);
    launch(u"ps2"_s, home.write(u"Games/game.iso"_s));
    tasks.finish();
    EXPECT_TRUE(home.read(pcsx2).contains("Cross = SDL-0/FaceSouth\n")) << "allowed when nothing is said";
}

TEST_F(Launcher, nothingStartsOnceItIsGone)
{
    program(u"bin/Cemu"_s);
    const QString game = home.write(u"game.wua"_s);
    processes.processes = {{10, {10, 1, u"Cemu"_s}}};
    processes.stubborn = {10};
    launch(u"wiiu"_s, game);
    tasks.finish();
    launch(u"wiiu"_s, game);
    launcher.reset();
    tasks.finish();
    processes.processes.clear();
    clock.advance(1min);
    EXPECT_TRUE(workspace.started.isEmpty());
    EXPECT_TRUE(answers.isEmpty());
}

TEST_F(Launcher, nothingStartsOnceItIsCancelled)
{
    program(u"bin/Cemu"_s);
    const QString game = home.write(u"game.wua"_s);
    const QString file = u".config/Cemu/settings.xml"_s;
    home.write(file, "<content>\n</content>\n");
    const auto cancelAfter = [&](const std::function<void()> &steps) {
        processes.processes = {{10, {10, 1, u"Cemu"_s}}};
        processes.stubborn = {10};
        launch(u"wiiu"_s, game);
        steps();
        launcher->cancel();
        processes.processes.clear();
        tasks.finish();
        clock.advance(1min);
        tasks.finish();
        EXPECT_TRUE(workspace.started.isEmpty());
        EXPECT_TRUE(answers.isEmpty());
        EXPECT_EQ(clock.pending(), 0);
    };
    cancelAfter([] {});
    cancelAfter([&] { tasks.finish(); }); // while the other Cemu ends
    EXPECT_EQ(home.read(file), "<content>\n</content>\n");
    cancelAfter([&] {
        tasks.finish();
        processes.processes.clear();
        clock.advance(100ms);
    }); // while its files are written
    EXPECT_EQ(changes.of(u"cemu"_s).isEmpty(), home.read(file) == "<content>\n</content>\n");

    launch(u"wiiu"_s, game);
    tasks.finish();
    EXPECT_EQ(workspace.started.size(), 1) << "the next one does";
}

TEST_F(Launcher, namesTheEmulatorThatMustBeSetUpFirst)
{
    program(u"bin/xemu"_s);
    installed.refresh();
    tasks.finish();
    launch(u"xbox"_s, home.write(u"game.iso"_s));
    tasks.finish();
    launch(u"dc"_s, home.write(u"game.gdi"_s));
    tasks.finish();
    launch(u"dc"_s, home.path() + u"/gone.gdi"_s);
    tasks.finish();
    QStringList ids;
    for (const LaunchResult &answer : std::as_const(answers))
        ids += answer ? u"started"_s : answer.failure().emulatorToSetUp;
    EXPECT_EQ(ids, (QStringList{u"xemu"_s, u"flycast"_s, QString()}));
}

TEST_F(Launcher, asksForTheControllerUntilItIsSettled)
{
    for (const QString &name : {u"bin/dolphin-emu"_s, u"bin/mgba-qt"_s})
        program(name);
    const auto asks = [this](const QString &console, const QString &path = u"/game"_s) {
        return launcher->controllerToSetUp({u"Game"_s, path, console, {}, {}});
    };
    session.controllers = {u"Xbox Series X Controller"_s};
    EXPECT_EQ(asks(u"gc"_s), QString()) << "nobody has looked yet";
    installed.refresh();
    tasks.finish();
    EXPECT_EQ(asks(u"gc"_s), u"dolphin"_s);
    EXPECT_EQ(asks(u"gba"_s), QString()) << "takes it by itself";
    EXPECT_EQ(asks(u"gc"_s, u"/game.AppImage"_s), QString()) << "no emulator plays it";
    EXPECT_EQ(asks(u"ps3"_s), QString()) << "no emulator is installed";
    session.controllers.clear();
    EXPECT_EQ(asks(u"gc"_s), QString()) << "played by keyboard";
    session.controllers = {u"Pad"_s};
    preferences.set(preference::hideControllerNotice(u"dolphin"_s), true);
    EXPECT_EQ(asks(u"gc"_s), QString());
    preferences.set(preference::hideControllerNotice(u"dolphin"_s), false);
    preferences.set(preference::controllerConfigured(u"dolphin"_s), true);
    EXPECT_EQ(asks(u"gc"_s), QString());
}
