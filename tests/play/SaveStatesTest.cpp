#include "play/states/SaveStates.h"

#include "emulators/finding/InstalledEmulators.h"
#include "emulators/launch/CommandChannel.h"

#include "fakes/FakeAccessibility.h"
#include "fakes/FakeKeys.h"
#include "fakes/FakeLocalSockets.h"
#include "fakes/FakeWindows.h"
#include "library/LibraryHouse.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

struct SaveStatesTest : testing::Test {
    LibraryHouse house;
    FakeWindows windows;
    FakeKeys keys;
    FakeAccessibility accessibility;
    FakeLocalSockets sockets;
    LibraryStore &library = house.open();
    InstalledEmulators emulators{house.places, house.workspace, house.index, house.preferences, house.tasks};
    SaveStates states{{house.places, house.clock, house.tasks, windows, keys, accessibility, house.processes, sockets},
                      library,
                      emulators};
    QString id, toast, symbol;
    int toasts = 0;

    SaveStatesTest()
    {
        library.add({existingGame(house, u"Lanterns"_s)});
        id = library.games().first().id;
        house.processes.processes = {{10, {10, 1, u"flatpak"_s}}, {11, {11, 10, u"emulator"_s}}};
        windows.windows = {{.id = 1, .pid = 11, .geometry = {0, 0, 800, 600}}, {.id = 7, .pid = 99}};
        windows.active = 7;
        QObject::connect(&states, &SaveStates::finished, [this](const Message &text, const QString &sign) {
            toast = english(text);
            symbol = sign;
            ++toasts;
        });
    }
    RunningGame game(const QString &engine, const QString &name) const
    {
        return {id, u"Lanterns"_s, 10, engine, name, house.clock.now()};
    }
    RunningGame mgba() const { return game(u"mgba"_s, u"mGBA"_s); }
    QString write(const QString &name, const QByteArray &content = "state") const
    {
        return house.home.write(name, content);
    }
    void wait(std::chrono::milliseconds time)
    {
        for (auto passed = 0ms; passed < time; passed += 50ms) {
            house.clock.advance(50ms);
            accessibility.finish();
        }
    }
};

TEST_F(SaveStatesTest, theKeyGoesToTheGameAndTheFileIsTheProof)
{
    quint64 front = 0;
    keys.onPress = [&](const KeyStroke &) {
        front = windows.active;
        write(u"Roms/Lanterns.ss1"_s);
    };
    states.save(mgba());
    EXPECT_EQ(front, 1);
    EXPECT_EQ(keys.pressed, (QList<KeyStroke>{{Qt::Key_F1, Qt::ShiftModifier}}));
    EXPECT_EQ(toasts, 0) << "not before the file was seen, and seen complete";
    wait(300ms);
    EXPECT_EQ(toast, u"State saved"_s);
    EXPECT_EQ(symbol, u"square.and.arrow.down.fill"_s);
    const GameEntry &entry = *library.game(id);
    EXPECT_EQ(entry.statePath, house.home.path() + u"/Roms/Lanterns.ss1"_s);
    ASSERT_TRUE(entry.stateSavedAt);
    wait(30s);
    EXPECT_EQ(toasts, 1);
    EXPECT_EQ(house.clock.pending(), 0);

    keys.onPress = {};
    states.load(mgba());
    EXPECT_EQ(keys.pressed.last(), (KeyStroke{Qt::Key_F1}));
    EXPECT_EQ(toast, u"State loaded"_s);
    EXPECT_EQ(symbol, u"clock.arrow.circlepath"_s);
}

TEST_F(SaveStatesTest, anOldStateProvesNothing)
{
    write(u"Roms/Lanterns.ss1"_s);
    states.save(mgba());
    states.save(mgba()); // while the first is under way
    wait(1900ms);
    EXPECT_EQ(toasts, 0);
    wait(200ms);
    EXPECT_EQ(toast, u"mGBA didn't create the save state. Check its save state shortcuts."_s);
    EXPECT_EQ(symbol, u"exclamationmark.triangle.fill"_s);
    EXPECT_FALSE(library.game(id)->stateSavedAt);
    EXPECT_EQ(keys.pressed.size(), 1);
}

TEST_F(SaveStatesTest, aStateThatStillGrowsIsWaitedFor)
{
    QByteArray content = "begun";
    keys.onPress = [&](const KeyStroke &) { write(u"Roms/Lanterns.ss1"_s, {}); };
    states.save(mgba());
    for (int i = 0; i < 30; ++i) {
        write(u"Roms/Lanterns.ss1"_s, content += "more");
        wait(100ms);
        ASSERT_EQ(toasts, 0);
    }
    wait(200ms);
    EXPECT_EQ(toast, u"State saved"_s);
}

TEST_F(SaveStatesTest, theMenuIsTheSecondWay)
{
    const QStringList quickSave{u"File"_s, u"Quick save"_s};
    accessibility.menus[11] = {{u"State 1"_s, quickSave, true, true, u"a"_s}};
    accessibility.onPress = [&](const MenuEntry &) { write(u"Roms/Lanterns.ss1"_s); };
    states.save(mgba()); // the key does nothing
    wait(3s);
    EXPECT_EQ(accessibility.pressed.size(), 1);
    EXPECT_EQ(toast, u"State saved"_s);
}

TEST_F(SaveStatesTest, noKeyIsPressedIntoAnotherWindow)
{
    windows.windows[0].kind = WindowKind::dialog;
    states.save(mgba());
    wait(1s);
    EXPECT_TRUE(keys.pressed.isEmpty());
    EXPECT_EQ(toast, u"mGBA didn't create the save state. Check its save state shortcuts."_s);
}

struct MenuSearchRow {
    const char *name;
    bool available, entry, dead;
    StateCommand command;
    const char *toast;
};
struct MenuSearch : SaveStatesTest, testing::WithParamInterface<MenuSearchRow> { };
TEST_P(MenuSearch, saysWhatWentWrong)
{
    const QString state = house.places.data + u"/azahar-emu/states/0004000000030800.00.cst"_s;
    write(QDir(house.home.path()).relativeFilePath(state));
    accessibility.available = keys.reachable = GetParam().available;
    accessibility.menus[11] = {{u"Open File"_s, {}, true, true, u"c"_s}};
    if (GetParam().entry)
        accessibility.menus[11] = {{u"Quick Save"_s, {}, true, true, u"a"_s},
                                   {u"Quick Load"_s, {}, true, true, u"b"_s}};
    if (GetParam().dead) accessibility.dead = {u"a"_s, u"b"_s};
    const RunningGame azahar = game(u"azahar"_s, u"Azahar"_s);
    GetParam().command == StateCommand::save ? states.save(azahar) : states.load(azahar);
    wait(5s);
    EXPECT_EQ(toast, QString::fromUtf8(GetParam().toast));
    EXPECT_TRUE(keys.pressed.isEmpty());
}
INSTANTIATE_TEST_SUITE_P(
    Azahar, MenuSearch,
    testing::Values(
        MenuSearchRow{"notAllowed", false, true, false, StateCommand::save,
                      "Allow Velko in System Settings → Privacy & Security → Accessibility, then try again."},
        MenuSearchRow{"noEntry", true, false, false, StateCommand::save, "No save state command found in Azahar"},
        MenuSearchRow{"entryIsGone", true, true, true, StateCommand::load, "No save state command found in Azahar"},
        MenuSearchRow{"noFile", true, true, false, StateCommand::save,
                      "Azahar didn't create the save state. Check its save state shortcuts."},
        MenuSearchRow{"loaded", true, true, false, StateCommand::load, "State loaded"}),
    [](const auto &row) { return row.param.name; });

TEST_F(SaveStatesTest, emulatorsWithAnInterfaceNeedNoKeyboard)
{
    const QString state = house.places.config + u"/retroarch/states/Gambatte/Lanterns.state1"_s;
    const RunningGame retroArch = game(u"retroarch"_s, u"RetroArch"_s);
    const quint16 port = retroArchPort(library.game(id)->path);
    sockets.atPort[port].answer = [&](const QByteArray &question) -> QByteArray {
        if (question == "SAVE_STATE") write(QDir(house.home.path()).relativeFilePath(state));
        return question == "GET_STATUS" ? "GET_STATUS PLAYING game_boy,lanterns\n" : "";
    };
    states.save(retroArch);
    wait(300ms);
    EXPECT_EQ(toast, u"State saved"_s);
    EXPECT_EQ(library.game(id)->statePath, state);
    EXPECT_TRUE(keys.pressed.isEmpty());

    sockets.atPort.clear(); // its port was taken
    states.load(retroArch);
    EXPECT_EQ(keys.pressed, (QList<KeyStroke>{{Qt::Key_F4}}));
}

TEST_F(SaveStatesTest, keysThatTheUserChose)
{
    const QString settings = u".local/share/duckstation/settings.ini"_s;
    const RunningGame duckStation = game(u"duckstation"_s, u"DuckStation"_s);
    write(settings,
          "[Hotkeys]\nSaveSelectedSaveState = SDL-0/Back & SDL-0/A\n"
          "SaveSelectedSaveState = Keyboard/Control & Keyboard/F7\n");
    states.save(duckStation);
    EXPECT_EQ(keys.pressed, (QList<KeyStroke>{{Qt::Key_F7, Qt::ControlModifier}}));
    wait(3s);
    keys.pressed.clear();
    write(settings, "[Main]\n");
    states.save(duckStation);
    EXPECT_EQ(keys.pressed, (QList<KeyStroke>{{Qt::Key_F2}})) << "its usual ones";
}

TEST_F(SaveStatesTest, explainsWhatItCannotDo)
{
    states.save(game(u"rpcs3"_s, u"RPCS3"_s));
    EXPECT_EQ(
        toast,
        u"RPCS3 has its own menu for save states: it opens with the same buttons (View + Menu). Save and load from there."_s);
    states.load(game(u"ppsspp"_s, u"PPSSPP"_s));
    EXPECT_TRUE(toast.startsWith(u"PPSSPP has its own save states: press Esc"_s));
    states.load(mgba());
    EXPECT_EQ(toast, u"There is no save state of “Lanterns” yet."_s);
    EXPECT_TRUE(keys.pressed.isEmpty());

    int changes = 0;
    QObject::connect(&states, &SaveStates::policyChanged, [&] { ++changes; });
    write(u".config/ppsspp/PSP/SYSTEM/controls.ini"_s,
          "[ControlMapping]\nSave State = 10-190,1-132\nLoad State = 1-134\n");
    house.tasks.immediate = false;
    const RunningGame ppsspp = game(u"ppsspp"_s, u"PPSSPP"_s);
    EXPECT_EQ(states.policy(ppsspp).kind, SaveStatePolicy::Kind::keyboardMenu);
    house.tasks.finish();
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(states.policy(ppsspp).kind, SaveStatePolicy::Kind::shortcut);
}

TEST_F(SaveStatesTest, theEndOfTheGameEndsTheCommand)
{
    library.launch(id);
    house.launcher.answer(StartedGame{10, {}, u"mgba"_s, {}});
    house.workspace.running = {10};
    states.save(mgba());
    house.workspace.end(10);
    wait(5s);
    EXPECT_EQ(toasts, 0);
    EXPECT_FALSE(states.busy());
    EXPECT_EQ(house.clock.pending(), 0);
}

TEST_F(SaveStatesTest, theKeyIsForWhereNoMenuCanBeReached)
{
    keys.onPress = [&](const KeyStroke &) { write(u".local/share/azahar-emu/states/0004000000030800.01.cst"_s); };
    for (const bool menus : {false, true}) { // then it is the emulator that shows none
        accessibility.available = menus;
        QFile::remove(house.places.data + u"/azahar-emu/states/0004000000030800.01.cst"_s);
        toast.clear();
        keys.pressed.clear();
        states.save(game(u"azahar"_s, u"Azahar"_s));
        wait(300ms);
        EXPECT_EQ(toast, u"State saved"_s);
        EXPECT_EQ(keys.pressed, (QList<KeyStroke>{{Qt::Key_C, Qt::ControlModifier}}));
    }
}

TEST_F(SaveStatesTest, goesOnOnceTheEmulatorCanLoad)
{
    const QString state = house.places.data + u"/azahar-emu/states/0004000000030800.00.cst"_s;
    write(QDir(house.home.path()).relativeFilePath(state));
    library.stateSaved(id, state);
    library.resume(id);
    house.launcher.answer(StartedGame{10, {}, u"azahar"_s, {}});
    MenuEntry quickLoad{u"Quick Load"_s, {}, false, true, u"a"_s};
    accessibility.menus[11] = {quickLoad};
    states.continueFromState(game(u"azahar"_s, u"Azahar"_s));
    wait(3s);
    EXPECT_EQ(toasts, 0);
    quickLoad.enabled = true;
    accessibility.menus[11] = {quickLoad};
    wait(3s);
    EXPECT_EQ(toast, u"Save state loaded"_s);
    EXPECT_EQ(accessibility.pressed.size(), 1);
}

TEST_F(SaveStatesTest, waitsForTheWindowAlsoWhereNoMenuCanBeReached)
{
    accessibility.available = false;
    library.stateSaved(id, write(u"Roms/Lanterns.ml1"_s));
    library.resume(id);
    house.launcher.answer(StartedGame{10, {}, u"melonds"_s, {}});
    const auto shown = std::exchange(windows.windows, {});
    states.continueFromState(game(u"melonds"_s, u"melonDS"_s));
    wait(3s);
    EXPECT_EQ(toasts, 0);
    windows.windows = shown;
    wait(3s);
    EXPECT_EQ(toast, u"Save state loaded"_s);
}

TEST_F(SaveStatesTest, goesOnFromAStateAfterTheStart)
{
    const RunningGame melonDS = game(u"melonds"_s, u"melonDS"_s);
    const QString state = write(u"Roms/Lanterns.ml1"_s);
    const auto startAgain = [&](bool resume) {
        resume ? library.resume(id) : library.launch(id);
        house.launcher.answer(StartedGame{10, {}, u"melonds"_s, {}});
        house.workspace.running = {10};
        states.continueFromState(melonDS);
        wait(15s);
        house.workspace.end(10);
    };
    library.stateSaved(id, state);
    startAgain(false);
    EXPECT_EQ(toasts, 0);
    startAgain(true);
    EXPECT_EQ(toast, u"Save state loaded"_s);
    EXPECT_EQ(keys.pressed, (QList<KeyStroke>{{Qt::Key_F1}}));
    keys.reachable = false;
    startAgain(true);
    EXPECT_EQ(toast, u"Couldn't load the save state: use Load state in the menu"_s);
    accessibility.available = false;
    startAgain(true);
    EXPECT_EQ(toast, u"Allow Velko in Accessibility to load your save state automatically."_s);
    library.resume(id);
    house.launcher.answer(StartedGame{10, {}, u"mgba"_s, {}});
    states.continueFromState(mgba());
    EXPECT_EQ(toasts, 3) << "resumed by itself";
    QFile::remove(state);
    states.continueFromState(mgba());
    EXPECT_EQ(toast, u"Couldn't load the save state: use Load state in the menu"_s);
}
