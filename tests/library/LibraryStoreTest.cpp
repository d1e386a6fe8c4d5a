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

TEST(LibraryStore, countsASession)
{
    LibraryHouse house;
    LibraryStore &store = house.open();
    const GameEntry game = existingGame(house, u"One"_s);
    store.add({game});
    store.launch(game.id);
    ASSERT_EQ(house.launcher.requests.size(), 1);
    EXPECT_EQ(house.launcher.requests[0].path, game.path);
    ASSERT_TRUE(store.launching());
    house.launcher.answer(StartedGame{77});
    EXPECT_FALSE(store.launching());
    EXPECT_EQ(store.running(), QSet{game.id});
    EXPECT_EQ(house.onDisk()[0].lastPlayed, ReferenceDate::from(house.clock.present));

    house.clock.advance(59s);
    EXPECT_EQ(house.onDisk()[0].playSeconds, 40);
    house.workspace.running.insert(77);
    house.workspace.end(77);
    EXPECT_EQ(house.onDisk()[0].playSeconds, 59);
    EXPECT_EQ(house.onDisk()[0].sessionCount, 1);
    EXPECT_EQ(house.onDisk()[0].lastSessionSeconds, 59);
    EXPECT_TRUE(store.running().isEmpty());
    EXPECT_EQ(house.clock.pending(), 0);
    EXPECT_FALSE(store.lastError());
}
