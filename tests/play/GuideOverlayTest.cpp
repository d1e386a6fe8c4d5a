#include "play/overlay/GuideOverlay.h"

#include "emulators/finding/InstalledEmulators.h"
#include "play/ControllerInput.h"
#include "play/GameFreezer.h"
#include "play/shots/Screenshots.h"
#include "play/states/SaveStates.h"

#include "fakes/FakeGamepads.h"
#include "fakes/FakeLocalSockets.h"
#include "fakes/FakeScreenCapture.h"
#include "play/SupervisionHouse.h"

#include <QCoreApplication>
#include <QPainter>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// A game that runs, a controller in the player's hands, and the menu over it.
struct GuideOverlayTest : SupervisionHouse {
    static constexpr qint64 helper = 501, otherProgram = 900;
    static constexpr quint64 velkoWindow = 20, otherWindow = 30;

    FakeGamepads pads;
    FakeScreenCapture capture;
    FakeLocalSockets sockets;
    GameReach reach{Host::linux, house.clock, windows, accessibility, keys, house.processes, log};
    ControllerInput controller{pads, house.clock};
    std::unique_ptr<GameFreezer> freezer = std::make_unique<GameFreezer>(reach, library);
    InstalledEmulators emulators{house.places, house.workspace, house.index, house.preferences, house.tasks};
    SaveStates states{{house.places, house.clock, house.tasks, windows, keys, accessibility, house.processes, sockets},
                      library,
                      emulators};
    Screenshots screenshots{house.places, house.clock, house.tasks, windows, capture, house.processes};
    int velkoShown = 0;
    QStringList order; ///< of what happens to game and panel
    GuideOverlay guide{
        {reach, library, house.preferences, controller, *freezer, supervisor, states, screenshots, capture, emulators},
        {.show = [this] { ++velkoShown; }}};

    GuideOverlayTest()
    {
        controller.isActive = [this] { return windows.active == velkoWindow; };
        QObject::connect(&guide, &GuideOverlay::panelChanged, &guide, [this] {
            order += guide.isOpen() ? u"open"_s : u"closed"_s;
            windows.becomeActive(guide.isOpen() ? velkoWindow : 0);
        });
        QObject::connect(freezer.get(), &GameFreezer::frozenChanged, &guide,
                         [this] { order += freezer->frozenPID() ? u"frozen"_s : u"thawed"_s; });
        QObject::connect(&windows, &Windows::activeChanged, &guide, [this] {
            if (windows.active == gameWindow) order += u"game in front"_s;
        });
        windows.windows = {{.id = velkoWindow, .pid = QCoreApplication::applicationPid(), .title = u"Velko"_s},
                           {.id = otherWindow, .pid = otherProgram}};
        addProcess(otherProgram, 1);
        addProcess(QCoreApplication::applicationPid(), 1);
        pads.plugIn();
    }
    void start(const QString &engine = u"mgba"_s)
    {
        options.fullScreenWanted = false;
        play(engine);
        addProcess(helper, pid);
        show(gameWindow, {0, 0, 1920, 1080});
        windows.find(gameWindow)->title = u"Lanterns"_s;
        guide.begin(*supervisor.game());
        order.clear();
    }
    void chord()
    {
        pads.press(PadButton::view);
        pads.tap(PadButton::menu);
        pads.release(PadButton::view);
    }
    void press(const QList<PadButton> &buttons)
    {
        for (const PadButton button : buttons)
            pads.tap(button);
    }
    void press(int times, PadButton button)
    {
        for (int i = 0; i < times; ++i)
            pads.tap(button);
    }
    void choose(GuideItem item)
    {
        guide.select(int(guide.items().indexOf(item)));
        pads.tap(PadButton::a);
    }
    bool frozen() const { return house.processes.frozen.contains(pid) && house.processes.frozen.contains(helper); }
    QString notice() { return guide.notices().hud() ? english(guide.notices().text()) : QString(); }
    QString toast() const { return guide.toast() ? english(guide.toast()->text) : QString(); }
};

TEST_F(GuideOverlayTest, opensOverTheFrozenGameAndGoesBackInTheRightOrder)
{
    start();
    capture.windows[gameWindow] = QImage(4, 4, QImage::Format_RGB32);
    chord();
    EXPECT_EQ(order, (QStringList{u"frozen"_s, u"open"_s}));
    EXPECT_TRUE(frozen());
    EXPECT_FALSE(guide.picture().isNull());
    EXPECT_EQ(guide.page(), GuidePage::menu);
    EXPECT_EQ(guide.selection(), 0);

    order.clear();
    pads.tap(PadButton::a); // Resume
    EXPECT_EQ(order, (QStringList{u"thawed"_s, u"closed"_s, u"game in front"_s}));
    EXPECT_TRUE(house.processes.frozen.empty());
    EXPECT_TRUE(guide.picture().isNull());
    EXPECT_FALSE(controller.overlayHandler);
}

TEST_F(GuideOverlayTest, pictureOfTheGameIsWithoutTheNotice)
{
    start();
    const QRect notice(1300, 40, 596, 96);
    capture.picture = QImage(1920, 1080, QImage::Format_RGB32);
    capture.picture.fill(Qt::blue);
    QPainter(&capture.picture).fillRect(notice, Qt::red);
    capture.windows[gameWindow] = QImage(1920, 1080, QImage::Format_RGB32);
    capture.windows[gameWindow].fill(Qt::green);
    const auto shown = [&] {
        chord();
        const QColor colour = guide.picture().pixelColor(notice.center());
        chord();
        return colour;
    };
    guide.noticeComes(notice);
    EXPECT_EQ(shown(), QColor(Qt::blue)) << "made up from what is around";
    windows.composed = true;
    EXPECT_EQ(shown(), QColor(Qt::green)) << "the window's own";
    guide.noticeGoes();
    house.clock.advance(60ms);
    EXPECT_EQ(shown(), QColor(Qt::red)) << "the game has drawn since";
}

TEST_F(GuideOverlayTest, curtainMakesRoomForTheMenu)
{
    start();
    capture.picture = QImage(1920, 1080, QImage::Format_RGB32);
    emit supervisor.curtainWanted(u"LEFT"_s);
    EXPECT_EQ(guide.curtain(), u"LEFT"_s);
    chord();
    EXPECT_FALSE(guide.curtain());
    EXPECT_TRUE(guide.picture().isNull()) << "a picture of the curtain";
    pads.tap(PadButton::b);
    EXPECT_EQ(guide.curtain(), u"LEFT"_s);
    emit supervisor.curtainDone();
    EXPECT_FALSE(guide.curtain());
}

TEST_F(GuideOverlayTest, chordWithoutAGameBringsVelkoToTheFront)
{
    chord();
    EXPECT_EQ(velkoShown, 1);
    guide.hotKey(); // the keyboard's way is only for games
    EXPECT_EQ(velkoShown, 1);
    EXPECT_FALSE(guide.isOpen());
}

TEST_F(GuideOverlayTest, selectionStopsAtBothEndsAndPagesComeBackToTheirItem)
{
    start(u"dolphin"_s);
    chord();
    press({PadButton::dpadUp});
    EXPECT_EQ(guide.selection(), 0);
    press(9, PadButton::dpadDown);
    EXPECT_EQ(guide.items()[guide.selection()], GuideItem::quit);

    choose(GuideItem::settings);
    EXPECT_EQ(guide.page(), GuidePage::settings);
    press(9, PadButton::dpadDown);
    EXPECT_EQ(guide.settings()[guide.settingsPad()], GuideSetting::controller);
    pads.tap(PadButton::a);
    EXPECT_EQ(guide.page(), GuidePage::controller);
    pads.tap(PadButton::b);
    EXPECT_EQ(guide.page(), GuidePage::settings);
    pads.tap(PadButton::b);
    EXPECT_EQ(guide.page(), GuidePage::menu);
    EXPECT_EQ(guide.items()[guide.selection()], GuideItem::settings);
    choose(GuideItem::info);
    pads.tap(PadButton::b);
    EXPECT_EQ(guide.items()[guide.selection()], GuideItem::info);
    pads.tap(PadButton::b);
    EXPECT_FALSE(guide.isOpen());
}

TEST_F(GuideOverlayTest, settingsAreKeptForTheNextTime)
{
    start(u"dolphin"_s);
    chord();
    choose(GuideItem::settings);
    press({PadButton::dpadRight, PadButton::dpadRight, PadButton::dpadRight}); // quality, up to the best
    press({PadButton::dpadDown, PadButton::a}); // widescreen
    const GameSettings settings = library.games().first().settings.value_or(GameSettings());
    EXPECT_EQ(settings.quality, QualityPreset::maximum);
    EXPECT_TRUE(settings.widescreen);
    EXPECT_TRUE(frozen());
}

TEST_F(GuideOverlayTest, quitWantsASecondPressThatNothingElseGives)
{
    start();
    house.processes.stubborn = {pid};
    windows.unclosable = {gameWindow};
    chord();
    choose(GuideItem::quit);
    EXPECT_TRUE(guide.confirmQuit());
    press({PadButton::dpadUp, PadButton::dpadDown});
    EXPECT_FALSE(guide.confirmQuit());
    press({PadButton::a, PadButton::a});
    EXPECT_TRUE(guide.quitStarted());
    EXPECT_TRUE(house.processes.frozen.empty()); // a stopped program would never hear of it
    EXPECT_TRUE(guide.isOpen());
    EXPECT_EQ(notice(), u"Closes by itself in 4 s, no need to press ⌘Q");

    chord(); // while the game is being quit
    press({PadButton::b, PadButton::a, PadButton::share});
    EXPECT_TRUE(guide.isOpen());
    advance(2s);
    EXPECT_EQ(notice(), u"Closes by itself in 2 s, no need to press ⌘Q");
    advance(20s);
    EXPECT_FALSE(guide.isOpen());
    EXPECT_FALSE(guide.session());
    EXPECT_EQ(notice(), QString());
}

TEST_F(GuideOverlayTest, countsOnWhileTheEmulatorStillSaves)
{
    start(u"retroarch"_s);
    house.processes.stubborn = {pid};
    const Timer saving = house.clock.every(500ms, [this] { house.processes.written[pid] += 4096; });
    chord();
    choose(GuideItem::quit);
    pads.tap(PadButton::a);
    advance(5s);
    EXPECT_EQ(notice(), u"Closes by itself in 7 s, no need to press ⌘Q");
}

TEST_F(GuideOverlayTest, questionWhileQuittingIsTheUsersAndTheMenuComesBackOnDemand)
{
    start();
    house.processes.stubborn = {pid};
    windows.unclosable = {gameWindow};
    chord();
    choose(GuideItem::quit);
    pads.tap(PadButton::a);
    ask();
    advance(4s);
    EXPECT_FALSE(guide.isOpen());
    EXPECT_EQ(notice(), u"Answer mGBA's question to finish quitting");
    chord();
    EXPECT_TRUE(guide.isOpen());
    EXPECT_TRUE(frozen());
    EXPECT_FALSE(guide.quitStarted());
}

TEST_F(GuideOverlayTest, anotherProgramInFrontLetsTheGameGoOn)
{
    start();
    chord();
    windows.becomeActive(otherWindow);
    EXPECT_FALSE(guide.isOpen());
    EXPECT_TRUE(house.processes.frozen.empty());
    EXPECT_EQ(windows.active, 0u); // its window is not fetched from the user's hands
}

TEST_F(GuideOverlayTest, backToVelkoKeepsTheGameUntilTheUserGoesBackToIt)
{
    start();
    chord();
    choose(GuideItem::library);
    windows.becomeActive(velkoWindow);
    EXPECT_FALSE(guide.isOpen());
    EXPECT_EQ(velkoShown, 1);
    EXPECT_TRUE(frozen());
    guide.goBackToGame();
    EXPECT_TRUE(house.processes.frozen.empty());
    EXPECT_EQ(windows.active, gameWindow);

    chord();
    choose(GuideItem::library);
    windows.becomeActive(velkoWindow);
    windows.becomeActive(gameWindow); // by the desktop's own means
    EXPECT_TRUE(house.processes.frozen.empty());
}

TEST_F(GuideOverlayTest, anEarlierGameThatWaitsGoesOnInFrontAlsoAfterALaterOneHasEnded)
{
    start();
    chord();
    choose(GuideItem::library);
    windows.becomeActive(velkoWindow);
    play(u"dolphin"_s, 600);
    guide.begin(*supervisor.game());
    end(600);
    EXPECT_FALSE(guide.session());
    EXPECT_TRUE(frozen());
    windows.becomeActive(gameWindow);
    EXPECT_TRUE(house.processes.frozen.empty());
}

TEST_F(GuideOverlayTest, endOfTheGameTakesEverythingWithIt)
{
    start();
    chord();
    house.processes.processes.erase(helper);
    end(pid);
    EXPECT_FALSE(guide.isOpen());
    EXPECT_FALSE(guide.session());
    EXPECT_FALSE(controller.overlayHandler);
    EXPECT_FALSE(freezer->frozenPID());
}

TEST_F(GuideOverlayTest, nothingStaysStoppedWhenVelkoEnds)
{
    start();
    chord();
    freezer.reset();
    EXPECT_TRUE(house.processes.frozen.empty());
}

TEST_F(GuideOverlayTest, statesThatVelkoCannotReachAreExplainedInThePanel)
{
    start(u"cemu"_s);
    chord();
    choose(GuideItem::saveState);
    EXPECT_TRUE(guide.isOpen());
    EXPECT_EQ(toast(), u"Cemu has no save states Velko can reach.");
    house.clock.advance(10s);
    EXPECT_EQ(toast(), QString());
}

TEST_F(GuideOverlayTest, stateIsSavedByTheGameInFront)
{
    start();
    chord();
    choose(GuideItem::saveState);
    EXPECT_FALSE(guide.isOpen());
    EXPECT_TRUE(house.processes.frozen.empty());
    EXPECT_TRUE(states.busy());
    advance(5s); // the emulator does nothing
    EXPECT_EQ(notice(), u"mGBA didn't create the save state. Check its save state shortcuts.");
}

TEST_F(GuideOverlayTest, screenshotIsTakenWithoutPanelAndNotice)
{
    start();
    capture.windows[gameWindow] = QImage(4, 4, QImage::Format_RGB32);
    chord();
    choose(GuideItem::screenshot);
    EXPECT_FALSE(guide.isOpen());
    EXPECT_EQ(notice(), QString());
    advance(1s);
    EXPECT_EQ(notice(), u"Screenshot saved · in your Profile");
    pads.tap(PadButton::share);
    EXPECT_EQ(notice(), QString());
}

// The controller that does not respond

TEST_F(GuideOverlayTest, threePressesInFrontBringTheHintAndTheStepsOnce)
{
    start(u"dolphin"_s);
    advance(2s);
    press(5, PadButton::a); // still starting
    EXPECT_FALSE(guide.hint().visible());
    advance(2s);
    windows.becomeActive(otherWindow);
    press(5, PadButton::a); // meant for another program
    windows.becomeActive(gameWindow);
    press({PadButton::a, PadButton::b});
    EXPECT_FALSE(guide.hint().visible());
    pads.tap(PadButton::x);
    EXPECT_TRUE(guide.hint().visible());

    chord();
    EXPECT_FALSE(guide.hint().visible());
    EXPECT_TRUE(guide.isOpen());
    EXPECT_EQ(guide.page(), GuidePage::controller);
    EXPECT_TRUE(frozen());
    press({PadButton::dpadRight, PadButton::a}); // It works now
    EXPECT_TRUE(house.preferences.get(preference::controllerConfigured(u"dolphin"_s)));
    EXPECT_FALSE(guide.isOpen());
    press(9, PadButton::a);
    EXPECT_FALSE(guide.hint().visible());
}

struct QuietGame {
    const char *name;
    const char *engine;
    std::chrono::seconds played;
    bool configured;
};
class NoHint : public GuideOverlayTest, public testing::WithParamInterface<QuietGame> { };

TEST_P(NoHint, isShown)
{
    const QuietGame &game = GetParam();
    start(QString::fromLatin1(game.engine));
    if (game.configured)
        house.preferences.set(preference::controllerConfigured(QString::fromLatin1(game.engine)), true);
    advance(game.played);
    press(9, PadButton::a);
    EXPECT_FALSE(guide.hint().visible());
}

INSTANTIATE_TEST_SUITE_P(Games, NoHint,
                         testing::Values(QuietGame{"emulatorKnowsTheController", "mgba", 10s, false},
                                         QuietGame{"velkoSetsItUp", "pcsx2", 10s, false},
                                         QuietGame{"userHasSetItUp", "dolphin", 10s, true},
                                         QuietGame{"afterTwoMinutes", "dolphin", 120s, false},
                                         QuietGame{"noEmulator", "native", 10s, false}),
                         [](const auto &row) { return row.param.name; });

TEST_F(GuideOverlayTest, emulatorsSettingsOpenByMenuOrByTheUsualKey)
{
    const auto openSettings = [this] {
        chord();
        choose(GuideItem::settings);
        press(9, PadButton::dpadDown);
        press({PadButton::a, PadButton::a});
    };
    start(u"dolphin"_s);
    accessibility.menus[pid] = {
        {.title = u"Configure…"_s, .enabled = true, .pressable = true, .reference = u"wrong"_s},
        {.title = u"Preferences…"_s, .enabled = false, .pressable = true, .reference = u"off"_s},
        {.title = u"Settings…"_s, .enabled = true, .pressable = false, .reference = u"container"_s},
        {.title = u"Graphics Settings…"_s, .enabled = true, .pressable = true, .reference = u"right"_s}};
    openSettings();
    EXPECT_TRUE(house.processes.frozen.empty());
    advance(350ms);
    EXPECT_TRUE(accessibility.pressed.isEmpty());
    advance(100ms);
    ASSERT_EQ(accessibility.pressed.size(), 1);
    EXPECT_EQ(accessibility.pressed.first().reference, u"right");

    accessibility.menus.clear();
    openSettings();
    advance(500ms);
    EXPECT_EQ(keys.pressed, (QList<KeyStroke>{{Qt::Key_Comma, Qt::ControlModifier}}));
}

// What is said over the game

TEST_F(GuideOverlayTest, saysHowToReachTheMenuWhileTheGameStarts)
{
    play(u"mgba"_s);
    guide.begin(*supervisor.game());
    EXPECT_EQ(notice(), u"Hold View, press Menu: Velko menu");
    ask();
    advance(1s);
    pads.tap(PadButton::view);
    EXPECT_EQ(notice(), u"Answer mGBA's question to start the game");
    windows.close(question);
    show(gameWindow, {0, 0, 1920, 1080});
    advance(1s);
    EXPECT_EQ(notice(), u"Hold View, press Menu: Velko menu");
    advance(60s);
    EXPECT_EQ(notice(), QString());
    EXPECT_EQ(house.clock.pending(), 1); // the play clock

    guide.notices().show(GuideToast{{u"State saved"_s, {}}, {}});
    pads.tap(PadButton::view); // the menu is about to open, and with it a picture of the game
    EXPECT_EQ(notice(), QString());
}

TEST_F(GuideOverlayTest, saysNothingMoreOfAGameThatEndsWhileItStarts)
{
    play(u"mgba"_s);
    guide.begin(*supervisor.game());
    end(pid);
    EXPECT_EQ(notice(), QString());
}

TEST_F(GuideOverlayTest, backCancelsALaunch)
{
    play(u"mgba"_s);
    guide.begin(*supervisor.game());
    house.processes.stubborn = {pid};
    pads.tap(PadButton::b);
    advance(1s);
    EXPECT_EQ(notice(), u"Launch cancelled");
    chord();
    EXPECT_FALSE(freezer->frozenPID()) << "stopped while it ends, it could not save";
    EXPECT_EQ(velkoShown, 1);
    advance(4s);
    EXPECT_FALSE(guide.session());
}

TEST_F(GuideOverlayTest, openingIsWrittenDown)
{
    start();
    chord();
    advance(400ms);
    const QStringList written = lines();
    ASSERT_GE(written.size(), 2);
    EXPECT_EQ(written[written.size() - 2], u"menu: open over Lanterns, Velko full screen: false, policy kept: true");
    EXPECT_EQ(written.last(),
              u"menu: 0.4 s later, front app: Velko, panel on active space: false, Velko active: false");
}
