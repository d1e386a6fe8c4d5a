#include "SupervisionHouse.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using Placing = SupervisionHouse;

static const QRect small(100, 100, 640, 480);

TEST_F(Placing, doesNothingWithOneDisplayAndAWindowedGame)
{
    options.fullScreenWanted = false;
    play(u"dolphin"_s);
    EXPECT_FALSE(supervisor.placing());
    EXPECT_FALSE(supervisor.cancelLaunch()) << "B belongs to the game";
    EXPECT_TRUE(supervisor.game());
    EXPECT_EQ(house.clock.pending(), 1) << "the clock of play time";
    EXPECT_EQ(file(), "");
}

TEST_F(Placing, leavesAloneWhatIsFullScreenByItself)
{
    play(u"dolphin"_s);
    advance(2s);
    show(gameWindow, leftDisplay.geometry);
    windows.find(gameWindow)->fullScreen = true;
    advance(20s);
    EXPECT_EQ(lines(), QStringList{u"start Dolphin pid 500 target - wantFull true"_s});
    EXPECT_EQ(told, QStringList{u"placed"_s}) << "and no curtain with one display";
    EXPECT_FALSE(supervisor.placing());
    EXPECT_EQ(house.clock.pending(), 1) << "nothing looks any more";
}

TEST_F(Placing, movesTheWindowToTheChosenDisplayAndMakesItFull)
{
    twoDisplays();
    play(u"dolphin"_s);
    EXPECT_EQ(told, QStringList{u"curtain RIGHT"_s});
    show(gameWindow, small);
    advance(3500ms);
    EXPECT_EQ(shown().geometry, rightDisplay.geometry);
    EXPECT_TRUE(shown().fullScreen);
    EXPECT_EQ(told, (QStringList{u"curtain RIGHT"_s, u"placed"_s})) << "seen in place three times, 0.5 s apart";
    advance(1s);
    EXPECT_EQ(told.last(), u"curtain done"_s);
    EXPECT_EQ(windows.active, gameWindow);
    advance(20s);
    EXPECT_EQ(lines(),
              (QStringList{u"start Dolphin pid 500 target (1920, 0, 1920, 1080) wantFull true"_s,
                           u"move window (640, 480) to (1920, 0, 1920, 1080)"_s,
                           u"full screen (640, 480) try 1 way 0 (game active: true, moved: true)"_s,
                           u"Dolphin look 1: placed"_s}));
    EXPECT_TRUE(file().startsWith("20:00:00  start ")) << file().constData();
    EXPECT_EQ(told.size(), 3);
    EXPECT_FALSE(supervisor.placing());
}

TEST_F(Placing, movesAWindowedGameWithoutChangingItsSize)
{
    twoDisplays();
    options = {.fullScreenWanted = true, .fullScreenSuppressed = true};
    play(u"dolphin"_s);
    show(gameWindow, small);
    advance(20s);
    EXPECT_EQ(shown().geometry, QRect(1920 + 640, 300, 640, 480));
    EXPECT_EQ(lines().last(), u"Dolphin look 1: placed"_s);
}

TEST_F(Placing, repeatsWhatAnEmulatorUndoesWhileItLoads)
{
    twoDisplays();
    play(u"dolphin"_s);
    show(gameWindow, small);
    advance(5s);
    windows.find(gameWindow)->fullScreen = false;
    windows.find(gameWindow)->geometry = small;
    advance(6s);
    EXPECT_EQ(told.mid(3), (QStringList{u"curtain RIGHT"_s})) << "raised again at the second look";
    advance(20s);
    EXPECT_EQ(shown().geometry, rightDisplay.geometry);
    EXPECT_EQ(lines().last(), u"Dolphin look 2: placed"_s);
    EXPECT_EQ(told.count(u"placed"_s), 1);
    EXPECT_EQ(told.last(), u"curtain done"_s);
}

TEST_F(Placing, waitsForAWindowManagerThatIsLate)
{
    twoDisplays();
    windows.late = true;
    const Timer manager = house.clock.every(700ms, [this] { windows.carryOut(); });
    play(u"dolphin"_s);
    show(gameWindow, small);
    advance(20s);
    EXPECT_EQ(shown().geometry, rightDisplay.geometry);
    EXPECT_TRUE(lines().contains(u"Dolphin look 1: placed"_s)) << qPrintable(lines().join(u'\n'));
    EXPECT_EQ(lines().filter(u"full screen"_s).size(), 1);
}

TEST_F(Placing, goesFromOneWayToTheNext)
{
    windows.neverFull = {gameWindow};
    accessibility.menus[pid] = {{u"Toggle fullscreen"_s, {}, true, true, u"entry"_s}};
    play(u"mgba"_s);
    show(gameWindow, {0, 0, 160, 144});
    QList<qint64> times;
    for (qsizetype seen = 0; !lines().contains(u"mGBA look 1: gave up"_s); seen = lines().filter(u"try"_s).size()) {
        advance(50ms);
        if (lines().filter(u"try"_s).size() > seen) times += house.clock.awake().count();
        ASSERT_FALSE(supervisor.starting()) << "the game is there, and B is its own";
    }
    EXPECT_EQ(told, QStringList{u"placed"_s}) << "it stays where it is";
    EXPECT_GE(times.size(), 7);
    for (int i = 0; i < times.size(); ++i) {
        EXPECT_TRUE(lines()[i + 1].contains(u" try %1 way %2 "_s.arg(i + 1).arg(i % 3))) << qPrintable(lines()[i + 1]);
        EXPECT_GT(times[i], i > 0 ? times[i - 1] + 2500 : 0);
    }
    EXPECT_EQ(keys.pressed.size(), times.size() / 3);
    EXPECT_EQ(accessibility.pressed.size(), times.size() - keys.pressed.size()) << "it has to hide its bar itself";
    EXPECT_EQ(keys.pressed.value(0), (KeyStroke{Qt::Key_F, Qt::ControlModifier}));
    EXPECT_TRUE(supervisor.game()) << "the session goes on";
}

struct WayRow {
    const char *name;
    bool menuWorks, keyWorks, inFront;
    int tries; ///< until it is full screen; 0: never
};
class Way : public SupervisionHouse, public testing::WithParamInterface<WayRow> { };

TEST_P(Way, takesTheWindowThere)
{
    windows.neverFull = {gameWindow};
    const auto goFull = [this] {
        windows.find(gameWindow)->fullScreen = true;
        windows.find(gameWindow)->geometry = leftDisplay.geometry;
    };
    if (GetParam().menuWorks) accessibility.menus[pid] = {{u"Toggle fullscreen"_s, {}, true, true, u"entry"_s}};
    accessibility.onPress = [goFull](const MenuEntry &) { goFull(); };
    if (GetParam().keyWorks) keys.onPress = [goFull](const KeyStroke &) { goFull(); };
    play(u"dolphin"_s);
    show(gameWindow, small);
    if (!GetParam().inFront) { // another window that keeps the keyboard
        show(99, {0, 0, 50, 50}, 1);
        addProcess(1, 0);
        windows.windows.back().pid = 1;
        QObject::connect(&windows, &Windows::activeChanged, &windows, [this] { windows.active = 99; });
    }
    advance(45s);
    const QStringList tries = lines().filter(u"try"_s);
    EXPECT_EQ(shown().fullScreen, GetParam().tries > 0);
    EXPECT_TRUE(GetParam().tries == 0 || tries.size() == GetParam().tries) << tries.size();
    EXPECT_TRUE(lines().contains(GetParam().tries > 0 ? u"Dolphin look 1: placed"_s : u"Dolphin look 1: gave up"_s));
}

INSTANTIATE_TEST_SUITE_P(All, Way,
                         testing::Values(WayRow{"menu", true, true, true, 2}, WayRow{"key", false, true, true, 3},
                                         WayRow{"menuNeedsNoKeyboard", true, true, false, 2},
                                         WayRow{"keyIsNotTypedIntoAnotherProgram", false, true, false, 0},
                                         WayRow{"none", false, false, true, 0}),
                         [](const auto &row) { return row.param.name; });

TEST_F(Placing, takesSmallWindowsForLoaders)
{
    twoDisplays();
    play(u"dolphin"_s);
    show(gameWindow, {0, 0, 400, 600});
    advance(31s);
    EXPECT_EQ(lines().mid(1), QStringList{u"Dolphin look 1: gave up"_s});
    windows.find(gameWindow)->geometry = small;
    advance(8s);
    windows.find(gameWindow)->geometry = {2000, 0, 320, 240}; // it was large once
    windows.find(gameWindow)->fullScreen = false;
    advance(20s);
    EXPECT_EQ(shown().geometry, rightDisplay.geometry);
}

TEST_F(Placing, givesUpOnAWindowThatCannotBeMoved)
{
    twoDisplays();
    windows.unmovable = {gameWindow};
    play(u"dolphin"_s);
    show(gameWindow, small);
    advance(33s);
    EXPECT_EQ(lines().last(), u"Dolphin look 1: gave up"_s);
    EXPECT_EQ(told.last(), u"curtain done"_s);
    EXPECT_TRUE(supervisor.game());
}

TEST_F(Placing, waits90SecondsForAWindow)
{
    twoDisplays();
    play(u"dolphin"_s);
    advance(89s);
    EXPECT_TRUE(supervisor.starting());
    advance(33s);
    EXPECT_EQ(lines().mid(1), QStringList{u"Dolphin look 1: gave up"_s});
    EXPECT_FALSE(supervisor.starting());
    advance(20s);
    EXPECT_FALSE(supervisor.placing());
}

TEST_F(Placing, handsControlToTheUserWhileTheEmulatorAsks)
{
    play(u"dolphin"_s);
    advance(80s);
    ask(question, 0);
    advance(500ms);
    EXPECT_EQ(supervisor.question(), GameSupervisor::Question::launch);
    EXPECT_EQ(windows.active, question);
    EXPECT_EQ(lines().last(), u"Dolphin asks a question: handed over"_s);
    advance(5min);
    EXPECT_EQ(supervisor.question(), GameSupervisor::Question::launch);
    windows.close(question);
    advance(1s);
    EXPECT_EQ(supervisor.question(), GameSupervisor::Question::none);
    advance(80s); // the wait began anew
    EXPECT_TRUE(supervisor.starting());
    show(gameWindow, small);
    ask(question);
    advance(1min); // longer than a placement may take
    windows.close(question);
    advance(10s);
    EXPECT_EQ(lines().last(), u"Dolphin look 1: placed"_s);
    EXPECT_EQ(lines().count(u"Dolphin asks a question: handed over"_s), 2);
}

TEST_F(Placing, countsAnotherProgramsQuestionAboutTheGame)
{
    play(u"dolphin"_s);
    show(gameWindow, small);
    addProcess(900, 1);
    ask(question, gameWindow, 900);
    windows.becomeActive(question);
    advance(1s);
    EXPECT_EQ(supervisor.question(), GameSupervisor::Question::launch);
}

TEST_F(Placing, findsTheWindowOfADescendant)
{
    play(u"dolphin"_s);
    addProcess(501, pid);
    addProcess(502, 501);
    show(gameWindow, small, 502);
    advance(10s);
    EXPECT_EQ(lines().last(), u"Dolphin look 1: placed"_s);
}

TEST_F(Placing, leavesAPausedGameAlone)
{
    twoDisplays();
    play(u"dolphin"_s);
    show(gameWindow, small);
    supervisor.setPaused(true);
    advance(2min);
    EXPECT_EQ(shown().geometry, small);
    supervisor.setPaused(false);
    advance(10s);
    EXPECT_EQ(shown().geometry, rightDisplay.geometry);
}

TEST_F(Placing, goesToTheMainDisplayWhenItsOwnIsUnplugged)
{
    twoDisplays();
    windows.neverFull = {gameWindow};
    play(u"dolphin"_s);
    show(gameWindow, small);
    advance(3s);
    EXPECT_TRUE(rightDisplay.geometry.contains(shown().geometry));
    windows.connectDisplays({leftDisplay});
    EXPECT_EQ(told.last(), u"curtain done"_s);
    windows.neverFull.clear();
    windows.find(gameWindow)->geometry = small;
    advance(10s);
    EXPECT_EQ(shown().geometry, leftDisplay.geometry);
    EXPECT_TRUE(lines().contains(u"Dolphin look 1: placed"_s));

    // And later, during play: without the curtain, and B stays the game's.
    advance(30s);
    EXPECT_FALSE(supervisor.placing());
    windows.connectDisplays({leftDisplay, rightDisplay});
    advance(2s);
    EXPECT_FALSE(supervisor.cancelLaunch());
    advance(30s);
    EXPECT_EQ(shown().geometry, rightDisplay.geometry);
    EXPECT_FALSE(supervisor.placing());
}

struct EndRow {
    const char *name;
    std::chrono::milliseconds at;
    bool window, question;
};
class EndOfTheGame : public SupervisionHouse, public testing::WithParamInterface<EndRow> { };

TEST_P(EndOfTheGame, endsTheWatch)
{
    twoDisplays();
    play(u"dolphin"_s);
    if (GetParam().window) show(gameWindow, small);
    if (GetParam().question) ask(question, 0);
    advance(GetParam().at);
    end(pid);
    EXPECT_FALSE(supervisor.placing());
    EXPECT_FALSE(supervisor.game());
    EXPECT_EQ(supervisor.question(), GameSupervisor::Question::none);
    EXPECT_EQ(told.last(), u"curtain done"_s);
    EXPECT_EQ(house.clock.pending(), 0);
    EXPECT_TRUE(library.running().isEmpty());
}

INSTANTIATE_TEST_SUITE_P(States, EndOfTheGame,
                         testing::Values(EndRow{"atOnce", 0ms, false, false}, EndRow{"waiting", 10s, false, false},
                                         EndRow{"asking", 10s, false, true}, EndRow{"placing", 1500ms, true, false},
                                         EndRow{"askingWhilePlacing", 1500ms, true, true},
                                         EndRow{"betweenLooks", 8s, true, false}),
                         [](const auto &row) { return row.param.name; });

TEST_F(Placing, isOfTheNewestGameOnly)
{
    play(u"dolphin"_s);
    advance(1s);
    play(u"mgba"_s, 600);
    show(gameWindow, small);
    show(20, small, 600);
    advance(20s);
    EXPECT_EQ(shown().geometry, small);
    EXPECT_TRUE(shown(20).fullScreen);
    EXPECT_EQ(library.running().size(), 2);
    end(pid);
    EXPECT_EQ(supervisor.game()->pid, 600);
}

TEST_F(Placing, isCancelledByB)
{
    const GameEntry game = existingGame(house, u"Early"_s);
    library.add({game});
    library.launch(game.id);
    EXPECT_TRUE(supervisor.cancelLaunch()) << "before the program runs";
    EXPECT_FALSE(library.launching());
    EXPECT_FALSE(supervisor.cancelLaunch());
    house.launcher.waiting.clear();

    twoDisplays();
    house.processes.stubborn = {pid};
    bool failed = false;
    QObject::connect(&library, &LibraryStore::closedAtOnce, &library, [&] { failed = true; });
    play(u"retroarch"_s);
    advance(1s);
    EXPECT_TRUE(supervisor.cancelLaunch()) << "before its window is there";
    EXPECT_EQ(told, (QStringList{u"cancelled"_s, u"curtain RIGHT"_s, u"curtain done"_s, u"cancelled"_s}));
    EXPECT_FALSE(supervisor.game());
    EXPECT_FALSE(supervisor.leaving());
    EXPECT_EQ(house.processes.asked, std::vector<qint64>{pid});
    advance(5s);
    EXPECT_FALSE(house.processes.isAlive(pid));
    EXPECT_TRUE(library.running().isEmpty());
    EXPECT_FALSE(failed);
    EXPECT_EQ(house.clock.pending(), 0);
}

TEST_F(Placing, isLoggedOneLineAtATime)
{
    log.write(u"a\nb\tc"_s + QString(5000, u'x'));
    house.tasks.immediate = false;
    log.write(u"second"_s);
    log.write(u"third"_s);
    {
        PlacementLog other(house.places, house.clock, house.tasks);
        other.write(u"under way"_s);
        other.write(u"written at the end"_s);
    }
    house.tasks.finish();
    EXPECT_EQ(lines().size(), 5);
    EXPECT_TRUE(lines()[0].startsWith(u"a b cxxx"_s));
    EXPECT_LT(lines()[0].size(), 1100);
    EXPECT_EQ(lines().last(), u"third"_s);
}
