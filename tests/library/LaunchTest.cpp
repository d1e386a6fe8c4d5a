#include "LibraryHouse.h"

#include "library/EarlyEnd.h"
#include "library/MovedFile.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// A store with one game, and what it told about launches.
struct Launch : testing::Test {
    LibraryHouse house;
    GameEntry game = existingGame(house, u"One"_s);
    QStringList told;

    LibraryStore &open()
    {
        LibraryStore &store = house.open();
        store.add({game});
        QObject::connect(
            &store, &LibraryStore::gameStarted, &store,
            [this](const QString &, const StartedGame &program) { told += u"started %1"_s.arg(program.pid); });
        QObject::connect(&store, &LibraryStore::gameEnded, &store,
                         [this](const QString &, double seconds) { told += u"ended after %1"_s.arg(seconds); });
        QObject::connect(&store, &LibraryStore::launchFailed, &store,
                         [this](const QString &, const Message &why) { told += u"failed: "_s + english(why); });
        return store;
    }
    void play(qint64 pid, const QString &logFile = {})
    {
        house.store->launch(game.id);
        house.workspace.running.insert(pid);
        house.processes.processes[pid] = {pid, 1, u"mgba"_s};
        house.launcher.answer(StartedGame{pid, {}, {}, logFile});
    }
    /// The file is elsewhere from now on; answers where.
    QString move()
    {
        const QString place = house.home.path() + u"/Elsewhere/One.gb"_s;
        QDir().mkpath(QFileInfo(place).path());
        QFile::rename(game.path, place);
        return place;
    }
};

TEST_F(Launch, countsASession)
{
    LibraryStore &store = open();
    store.launch(game.id);
    ASSERT_EQ(house.launcher.requests.size(), 1);
    EXPECT_EQ(house.launcher.requests[0].path, game.path);
    EXPECT_EQ(store.launching()->gameID, game.id);
    house.launcher.answer(StartedGame{77});
    EXPECT_FALSE(store.launching());
    EXPECT_EQ(store.running(), QSet{game.id});
    EXPECT_EQ(house.onDisk()[0].lastPlayed, ReferenceDate::from(house.clock.present));

    house.clock.advance(59s);
    EXPECT_EQ(house.onDisk()[0].playSeconds, 40);
    house.workspace.running.insert(77);
    house.workspace.end(77);
    EXPECT_EQ(house.onDisk()[0].playSeconds, 59);
    EXPECT_EQ(house.onDisk()[0].daily, (QMap<QString, double>{{u"2026-03-14"_s, 59}}));
    EXPECT_EQ(house.onDisk()[0].sessionCount, 1);
    EXPECT_EQ(house.onDisk()[0].lastSessionSeconds, 59);
    EXPECT_TRUE(store.running().isEmpty());
    EXPECT_EQ(house.clock.pending(), 0);
    EXPECT_FALSE(store.lastError());
    EXPECT_EQ(told, (QStringList{u"started 77"_s, u"ended after 59"_s}));
}

TEST_F(Launch, handsOverSettingsAndState)
{
    house.preferences.set(preference::default60FPS, true);
    game.statePath = u"/states/one"_s;
    LibraryStore &store = open();
    store.launch(game.id);
    EXPECT_TRUE(house.launcher.requests[0].settings.fps60);
    EXPECT_EQ(house.launcher.requests[0].statePath, std::nullopt);
    store.cancelLaunch();
    store.setSettings(game.id, {.showFPS = true});
    store.resume(game.id);
    EXPECT_TRUE(store.launching()->loading);
    EXPECT_EQ(house.launcher.requests[1].settings, GameSettings{.showFPS = true});
    EXPECT_EQ(house.launcher.requests[1].statePath, game.statePath);
}

TEST_F(Launch, tellsWhyItFailed)
{
    LibraryStore &store = open();
    store.launch(game.id);
    store.launch(game.id);
    EXPECT_EQ(house.launcher.requests.size(), 1);
    house.launcher.answer(Message{u"Install %@ first."_s, {u"mGBA"_s}});
    EXPECT_EQ(english(*store.lastError()), u"Install mGBA first."_s);
    EXPECT_EQ(told, QStringList{u"failed: Install mGBA first."_s});
    EXPECT_FALSE(store.launching());
    EXPECT_FALSE(house.onDisk()[0].lastPlayed);
}

TEST_F(Launch, asksALateProgramOfACancelledLaunchToQuit)
{
    LibraryStore &store = open();
    store.launch(game.id);
    store.cancelLaunch();
    EXPECT_EQ(house.launcher.cancelled, 1);
    EXPECT_FALSE(store.launching());
    store.launch(game.id);
    house.processes.processes[5] = {5, 1, u"mgba"_s};
    house.processes.processes[6] = {6, 1, u"mgba"_s};
    house.launcher.answer(StartedGame{5});
    EXPECT_TRUE(store.launching());
    house.launcher.answer(StartedGame{6});
    EXPECT_FALSE(house.processes.isAlive(5));
    EXPECT_TRUE(house.processes.isAlive(6));
    EXPECT_EQ(told, QStringList{u"started 6"_s});
}

TEST_F(Launch, noticesAProgramThatEndedBeforeItWasReported)
{
    LibraryStore &store = open();
    store.launch(game.id);
    house.workspace.running.insert(9);
    house.workspace.end(9, {.exitStatus = 1});
    house.launcher.answer(StartedGame{9});
    EXPECT_TRUE(store.running().isEmpty());
    EXPECT_EQ(told, (QStringList{u"started 9"_s, u"ended after 0"_s}));
    EXPECT_TRUE(english(*store.lastError()).contains(u"exit status 1"_s));
}

TEST_F(Launch, quotesTheLogOfAGameThatClosedAtOnce)
{
    LibraryStore &store = open();
    play(9, house.home.write(u"log"_s, "starting\n\x1B[31mno such ROM\x1B[0m\n"));
    house.clock.advance(2999ms);
    house.workspace.end(9, {.signal = 11});
    EXPECT_EQ(english(*store.lastError()),
              u"“One” closed at once (signal 11). Its last words tell what to look for:\nstarting\nno such ROM"_s);
    store.dismissError();
    play(10);
    house.clock.advance(3s);
    house.workspace.end(10);
    EXPECT_FALSE(store.lastError());
}

TEST_F(Launch, leavesTheProgramOfARemovedGameRunning)
{
    LibraryStore &store = open();
    play(9);
    store.remove(game.id);
    house.clock.advance(30s);
    EXPECT_TRUE(house.processes.isAlive(9));
    EXPECT_EQ(store.running(), QSet{game.id});
    house.workspace.end(9);
    EXPECT_TRUE(store.running().isEmpty());
    EXPECT_EQ(told.last(), u"ended after 30"_s);
    EXPECT_EQ(house.onDisk(), QList<GameEntry>());
}

TEST_F(Launch, countsTheSessionOfAGameThatOutlivesVelko)
{
    open();
    play(9);
    house.clock.advance(25s);
    house.store.reset();
    EXPECT_EQ(house.onDisk()[0].playSeconds, 25);
    EXPECT_EQ(house.onDisk()[0].sessionCount, 1);
    EXPECT_TRUE(house.processes.isAlive(9));
}

TEST_F(Launch, doesNotCountAPausedGame)
{
    LibraryStore &store = open();
    play(9);
    house.clock.advance(10s);
    store.setPaused(game.id, true);
    house.clock.advance(1h);
    store.setPaused(game.id, false);
    house.clock.advance(5s);
    house.workspace.end(9);
    EXPECT_EQ(house.onDisk()[0].playSeconds, 15);
    EXPECT_EQ(house.onDisk()[0].lastSessionSeconds, 15);
}

TEST_F(Launch, findsAMovedFile)
{
    LibraryStore &store = open();
    GameEntry other = existingGame(house, u"Other"_s);
    other.path = house.home.write(u"Sub/One.gb"_s);
    store.add({other});
    const QString place = move();
    house.index.files = {house.home.write(u".cache/x/One.gb"_s), house.home.path() + u"/gone/One.gb"_s, other.path,
                         place};
    store.launch(game.id);
    ASSERT_EQ(house.launcher.requests.size(), 1);
    EXPECT_EQ(house.launcher.requests[0].path, place);
    EXPECT_EQ(house.onDisk()[0].path, place);
}

TEST_F(Launch, asksAboutAFileThatIsNowhere)
{
    LibraryStore &store = open();
    move();
    house.index.files = {house.home.write(u".local/share/Trash/files/One.gb"_s)};
    store.launch(game.id);
    EXPECT_EQ(store.missingFile(), game.id);
    EXPECT_FALSE(store.launching());
    EXPECT_EQ(house.onDisk()[0].path, game.path);
    EXPECT_TRUE(house.launcher.requests.isEmpty());
    store.remove(game.id);
    EXPECT_EQ(store.missingFile(), QString());
}

TEST_F(Launch, dropsASearchThatWasCancelled)
{
    LibraryStore &store = open();
    house.index.files = {move()};
    house.tasks.immediate = false;
    store.launch(game.id);
    EXPECT_TRUE(store.launching());
    store.cancelLaunch();
    house.tasks.finish();
    EXPECT_TRUE(house.launcher.requests.isEmpty());
    EXPECT_EQ(store.games()[0].path, game.path);

    store.launch(game.id);
    store.remove(game.id);
    house.tasks.finish();
    EXPECT_FALSE(store.launching());
    EXPECT_EQ(store.missingFile(), QString());
}

TEST_F(Launch, waitsForAFileInICloud)
{
    house.places = house.home.macPlaces();
    QFile::rename(game.path, iCloudPlaceholder(game.path));
    LibraryStore &store = open();
    store.launch(game.id);
    EXPECT_EQ(english(*store.launching()->note), u"Downloading the game from iCloud…"_s);
    house.clock.advance(29min);
    EXPECT_TRUE(house.launcher.requests.isEmpty());
    QFile::rename(iCloudPlaceholder(game.path), game.path);
    house.clock.advance(500ms);
    EXPECT_EQ(house.launcher.requests.size(), 1);
    EXPECT_EQ(house.clock.pending(), 0);
    store.cancelLaunch();

    QFile::rename(game.path, iCloudPlaceholder(game.path));
    store.launch(game.id);
    house.clock.advance(31min);
    EXPECT_FALSE(store.launching());
    EXPECT_EQ(told.size(), 1);
    EXPECT_EQ(house.clock.pending(), 0);
}

TEST(MovedFile, isSearchedByTheNameThatTellsItApart)
{
    EXPECT_EQ(movedFile(u"/r/Game.iso"_s), (MovedFile{u"Game.iso"_s, {}}));
    EXPECT_EQ(movedFile(u"/r/Blue/PS3_GAME/USRDIR/EBOOT.BIN"_s),
              (MovedFile{u"Blue"_s, u"/PS3_GAME/USRDIR/EBOOT.BIN"_s}));
    EXPECT_EQ(spotlightQuery(u"a\"b\\c"_s), u"kMDItemFSName == \"a\\\"b\\\\c\""_s);
    EXPECT_TRUE(isLeftover(u"/Users/a/Library/Caches/x/g.gb"_s, Host::mac));
    EXPECT_TRUE(isLeftover(u"/Users/a/.Trash/g.gb"_s, Host::mac));
    EXPECT_FALSE(isLeftover(u"/Users/a/.cache/g.gb"_s, Host::mac));
    EXPECT_TRUE(isLeftover(u"/media/a/.Trash-1000/files/g.gb"_s, Host::linux));
    EXPECT_EQ(iCloudPlaceholder(u"/a/Game.iso"_s), u"/a/.Game.iso.icloud"_s);
    EXPECT_EQ(iCloudFile(u"/a/.Game.iso.icloud"_s), u"/a/Game.iso"_s);
    for (const QString &name : {u"/a/Game.iso.icloud"_s, u"/a/.icloud"_s, u"/a/..icloud"_s, u"/a/.Game.iso"_s})
        EXPECT_EQ(iCloudFile(name), std::nullopt);
}

TEST(EarlyEnd, quotesOnlyTheLastLines)
{
    const TemporaryHome home;
    EXPECT_EQ(lastWords(home.path() + u"/none"_s), QString());
    EXPECT_EQ(lastWords(home.write(u"blank"_s, "\n \r\n\x1B[2J")), QString());
    EXPECT_EQ(lastWords(home.write(u"few"_s, "1\n2\r\n\n3\n4\x07\n5 \n6")), u"2\n3\n4\n5\n6"_s);
    EXPECT_EQ(lastWords(home.write(u"long"_s, QByteArray(100000, 'x') + "\nend")).size(), 600);
    EXPECT_EQ(lastWords(home.write(u"noText"_s, QByteArray("a\0\xFF\x1B", 4))), u"a\uFFFD"_s);
}

TEST_F(Launch, waitsUntilTheUserHasReadTheControllerNotice)
{
    LibraryStore &store = open();
    house.launcher.toSetUp = u"dolphin"_s;
    store.resume(game.id);
    EXPECT_EQ(store.controllerNotice(), (ControllerNotice{game.id, u"dolphin"_s}));
    EXPECT_EQ(store.pendingLaunch(), game.id);
    EXPECT_FALSE(store.launching());
    store.dismissControllerNotice();
    store.goOn();
    EXPECT_TRUE(house.launcher.requests.isEmpty());
    store.resume(game.id);
    store.goOn();
    EXPECT_FALSE(store.controllerNotice());
    EXPECT_EQ(store.pendingLaunch(), QString());
    ASSERT_EQ(house.launcher.requests.size(), 1);
    EXPECT_EQ(house.launcher.requests[0].statePath, game.statePath) << "still from its save state";
    store.cancelLaunch();
    store.launchWithoutAsking(game.id);
    EXPECT_EQ(house.launcher.requests.size(), 2);
    store.cancelLaunch();
    store.launch(game.id);
    store.remove(game.id);
    EXPECT_FALSE(store.controllerNotice());
}

TEST_F(Launch, tellsWhichEmulatorMustBeSetUp)
{
    LibraryStore &store = open();
    store.launch(game.id);
    house.launcher.answer(LaunchRefusal({u"xemu isn't set up yet."_s, {}}, u"xemu"_s));
    EXPECT_EQ(store.setupIssue(), (SetupIssue{u"xemu"_s, {u"xemu isn't set up yet."_s, {}}}));
    EXPECT_FALSE(store.lastError());
    EXPECT_EQ(told, QStringList{u"failed: xemu isn't set up yet."_s});
    store.dismissSetupIssue();
    EXPECT_FALSE(store.setupIssue());
}
