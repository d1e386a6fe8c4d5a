#include "LibraryHouse.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

TEST(LibraryStore, keepsWhatWasAddedChangedAndRemoved)
{
    LibraryHouse house;
    LibraryStore &store = house.open();
    const GameEntry one = existingGame(house, u"One"_s), two = existingGame(house, u"Two"_s);
    store.add({one, two});
    EXPECT_EQ(store.justAdded(), two.id);
    EXPECT_EQ(house.onDisk(), (QList{one, two}));

    store.setTitle(one.id, u" Renamed "_s);
    store.setTitle(one.id, u"  "_s);
    store.setFavorite(one.id, true);
    store.setStatus(one.id, GameStatus::completed);
    store.setSettings(one.id, {.widescreen = true});
    store.remove(two.id);
    ASSERT_EQ(house.onDisk().size(), 1);
    const GameEntry read = house.open().games().first();
    EXPECT_EQ(read.title, u"Renamed"_s);
    EXPECT_EQ(read.favorite, true);
    EXPECT_EQ(read.status, GameStatus::completed);
    EXPECT_TRUE(read.settings->widescreen);
    EXPECT_TRUE(QFile::exists(two.path));
}

TEST(LibraryStore, savesBeforeItTells)
{
    LibraryHouse house;
    LibraryStore &store = house.open();
    int told = 0;
    QObject::connect(&store, &LibraryStore::gamesChanged, &store, [&] {
        ++told;
        EXPECT_EQ(house.onDisk(), store.games());
    });
    const GameEntry game = existingGame(house, u"One"_s);
    store.add({game});
    store.setFavorite(game.id, true);
    store.remove(game.id);
    EXPECT_EQ(told, 3);
}

TEST(LibraryStore, writesNothingWhenNothingChanged)
{
    LibraryHouse house;
    LibraryStore &store = house.open();
    const GameEntry game = existingGame(house, u"One"_s);
    store.add({game});
    QFile::remove(house.file(u"library.json"_s));
    store.setTitle(game.id, u"One"_s);
    store.setFavorite(game.id, false);
    store.setStatus(game.id, {});
    store.add({game});
    store.remove(newGameID());
    store.setTitle(newGameID(), u"Two"_s);
    EXPECT_FALSE(QFile::exists(house.file(u"library.json"_s)));
}

TEST(LibraryStore, addsAPathOnceAndGivesProperIdentifiers)
{
    LibraryHouse house;
    LibraryStore &store = house.open();
    const GameEntry one = existingGame(house, u"One"_s);
    GameEntry again = one, sameID = one, lowerID = one, noID = one;
    again.path = house.home.path() + u"/Roms/../Roms//One.gb"_s;
    sameID.path = u"/two"_s;
    lowerID.path = u"/three"_s;
    lowerID.id = newGameID().toLower();
    noID.path = u"/four"_s;
    noID.id = u"four"_s;
    store.add({one, again, sameID, lowerID, noID, one});
    ASSERT_EQ(store.count(), 4);
    EXPECT_NE(store.games()[1].id, one.id);
    EXPECT_EQ(store.games()[2].id, lowerID.id.toUpper());
    EXPECT_TRUE(gameID(store.games()[3].id));
    EXPECT_EQ(house.onDisk(), store.games());
    for (int i = 0; i < store.count(); ++i)
        EXPECT_EQ(store.indexOf(store.games()[i].id), i);
}

TEST(LibraryStore, findsGamesByIdentifierAfterAnyChange)
{
    LibraryHouse house;
    LibraryStore &store = house.open();
    const GameEntry one = existingGame(house, u"One"_s), two = existingGame(house, u"Two"_s);
    EXPECT_EQ(store.indexOf(one.id), std::nullopt);
    store.add({one});
    store.add({two});
    store.remove(one.id);
    EXPECT_EQ(store.indexOf(one.id), std::nullopt);
    EXPECT_EQ(store.indexOf(two.id), 0);
    EXPECT_EQ(store.game(one.id), nullptr);
    store.add({one});
    EXPECT_EQ(store.indexOf(one.id), 1);
}

TEST(LibraryStore, staysFastWithManyGames)
{
    LibraryHouse house;
    LibraryStore &store = house.open();
    QList<GameEntry> games(100000);
    for (qsizetype i = 0; i < games.size(); ++i) {
        games[i].id = newGameID();
        games[i].path = u"/roms/%1.gb"_s.arg(i);
    }
    store.add(games);
    store.add(games);
    EXPECT_EQ(store.count(), 100000);
    EXPECT_EQ(house.open().games(), games);
}

TEST(LibraryStore, scansAddedFoldersAndRemembersThem)
{
    LibraryHouse house;
    const QString root = house.home.path() + u"/Roms"_s;
    existingGame(house, u"One"_s);
    house.home.write(u"Roms/a.n64"_s);
    LibraryStore &store = house.open();
    store.addFolder(root + u"/./"_s);
    store.addFolder(root);
    EXPECT_EQ(store.romFolders(), QStringList{root});
    ASSERT_EQ(store.count(), 1);
    EXPECT_EQ(store.games()[0].consoleID, u"n64"_s);
    EXPECT_EQ(store.games()[0].sourceFolder, root);
    EXPECT_EQ(store.games()[0].addedAt, ReferenceDate::from(house.clock.present));
    EXPECT_EQ(house.open().romFolders(), QStringList{root});

    house.home.write(u"Roms/(Demo).n64"_s);
    house.store->scan({});
    EXPECT_EQ(english(*house.store->scanReport()).left(15), u"Games added: 1."_s);
    ASSERT_EQ(house.store->count(), 2);
    EXPECT_EQ(house.store->games()[1].title, u"(Demo)"_s) << "all brackets";
    EXPECT_FALSE(house.store->scanning());
    house.store->removeFolder(root);
    EXPECT_EQ(house.open().romFolders(), QStringList());
    EXPECT_EQ(house.store->count(), 2);
}

TEST(LibraryStore, scansOneAfterTheOtherAndCanBeStopped)
{
    LibraryHouse house;
    house.tasks.immediate = false;
    for (int i = 0; i < 300; ++i)
        house.home.write(u"A/%1.n64"_s.arg(i));
    house.home.write(u"B/b.n64"_s);
    LibraryStore &store = house.open();
    store.addFolder(house.home.path() + u"/A"_s);
    store.addFolder(house.home.path() + u"/B"_s);
    store.scan({});
    EXPECT_EQ(house.tasks.waiting.size(), 1u);
    const auto stop = QObject::connect(&store, &LibraryStore::scanningChanged, &store, [&] {
        if (store.scannedFiles() == 256) store.cancelScan();
    });
    house.tasks.finish();
    EXPECT_EQ(store.count(), 255);
    EXPECT_EQ(english(*store.scanReport()), u"Scan stopped. Games added: 255."_s);

    QObject::disconnect(stop);
    store.addFolder(house.home.path() + u"/B"_s);
    store.addFolder(house.home.path() + u"/A"_s);
    house.tasks.finish();
    EXPECT_EQ(store.count(), 301);
}

TEST(LibraryStore, diesInPeaceDuringAScan)
{
    LibraryHouse house;
    house.tasks.immediate = false;
    for (int i = 0; i < 300; ++i)
        house.home.write(u"A/%1.n64"_s.arg(i));
    house.open().addFolder(house.home.path() + u"/A"_s);
    house.store.reset();
    house.tasks.finish();
    EXPECT_EQ(house.onDisk(), QList<GameEntry>());
}
