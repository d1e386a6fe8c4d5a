#include "ui/facts/HomeFacts.h"

#include "ui/ListHouse.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

struct FactsHouse : ListHouse {
    GameFacts::Sources sources()
    {
        return {*store, emulators, preferences, translator, clock, tasks, workspace, Host::linux};
    }
};

TEST(GameFacts, ofNoGameAreEmpty)
{
    FactsHouse house;
    GameFacts facts(house.sources());
    EXPECT_FALSE(facts.exists());
    EXPECT_EQ(facts.title() + facts.consoleName() + facts.lastPlayed() + facts.emulator() + facts.path(), QString());
    facts.play();
    facts.rename(u"x"_s);
    facts.options()->setShowFPS(true);
    facts.chooseStatus(u"Playing"_s);
    EXPECT_EQ(house.store->count(), 0);
}

TEST(GameFacts, sayWhatWasPlayed)
{
    FactsHouse house;
    GameEntry game = house.game(u"Kestrel Valley"_s, u"ps2"_s);
    game.playSeconds = 9 * 3600 + 5 * 60 + 59;
    game.sessionCount = 1234;
    game.lastSessionSeconds = 88 * 60;
    game.lastPlayed = ReferenceDate::from(house.clock.now().addDays(-1));
    game.daily = {{u"2026-03-14"_s, 60}};
    house.store->add({game});
    GameFacts facts(house.sources());
    facts.setGameID(game.id);
    EXPECT_EQ(facts.playedText(), u"9 h 05 min played"_s);
    EXPECT_EQ(facts.lastPlayed(), u"Last played yesterday, 1 h 28 min"_s);
    EXPECT_EQ(facts.sessions(), u"1,234"_s);
    EXPECT_EQ(facts.days().size(), 14);
    EXPECT_EQ(facts.days().last().toMap()[u"label"_s], u"Today"_s);
    EXPECT_EQ(facts.firstDay(), u"1 Mar"_s);
    EXPECT_EQ(facts.consoleShort(), u"PS2"_s);
}

TEST(GameFacts, showTheFolderOfTheGame)
{
    FactsHouse house;
    GameEntry game = house.game(u"Kestrel Valley"_s, u"ps2"_s);
    game.path = u"/games/It's 100% #1/Kestrel.iso"_s;
    house.store->add({game});
    GameFacts facts(house.sources());
    facts.setGameID(game.id);
    facts.showInFolder();
    EXPECT_EQ(house.workspace.opened, QList<QUrl>{QUrl::fromLocalFile(u"/games/It's 100% #1"_s)});
}

TEST(GameFacts, keepTheUsersWishes)
{
    FactsHouse house;
    const QString id = house.add(u"One"_s, u"gba"_s);
    GameFacts facts(house.sources());
    facts.setGameID(id);
    EXPECT_TRUE(facts.options()->fullScreen());
    EXPECT_EQ(facts.options()->quality(), u"medium"_s);
    facts.options()->setFullScreen(false);
    facts.options()->setQuality(u"maximum"_s);
    facts.setPageTab(u"stats"_s);
    facts.chooseStatus(u"Playing"_s);
    facts.rename(u"  "_s);
    facts.rename(u" Two "_s);
    const GameEntry saved = house.onDisk().first();
    EXPECT_EQ(saved.settings->fullScreen, false);
    EXPECT_EQ(saved.settings->quality, QualityPreset::maximum);
    EXPECT_EQ(saved.status, GameStatus::playing);
    EXPECT_EQ(saved.title, u"Two"_s);
    EXPECT_EQ(GameFacts(house.sources()).pageTab(), u"stats"_s);
    facts.chooseStatus(u"Playing"_s);
    EXPECT_EQ(facts.status(), QString());
}

TEST(GameFacts, takeTheUsersDefaults)
{
    FactsHouse house;
    house.preferences.set(preference::defaultQuality, u"maximum"_s);
    house.preferences.set(preference::default60FPS, true);
    GameFacts facts(house.sources());
    facts.setGameID(house.add(u"One"_s, u"gba"_s));
    EXPECT_EQ(facts.options()->quality(), u"maximum"_s);
    facts.options()->setShowFPS(true);
    EXPECT_TRUE(house.onDisk().first().settings->fps60);
}

TEST(GameFacts, measureOnlyTheGameThatIsShown)
{
    FactsHouse house;
    GameEntry game = house.game(u"Disc"_s, u"ps2"_s);
    game.path = house.home.path() + u"/disc"_s;
    house.home.write(u"disc/a/track1.bin"_s, QByteArray(1500, 'x'));
    house.home.write(u"disc/track2.bin"_s, QByteArray(548, 'x'));
    house.store->add({game});
    GameFacts facts(house.sources());
    facts.setGameID(game.id);
    facts.measure();
    EXPECT_EQ(facts.size(), u"2.0 kB"_s);
    house.tasks.immediate = false;
    facts.measure();
    facts.setGameID({});
    house.tasks.finish();
    EXPECT_EQ(facts.size(), QString());
}

TEST(HomeFacts, followTheLibraryOnlyWhileHomeIsShown)
{
    FactsHouse house;
    const double now = ReferenceDate::from(house.clock.now()).seconds;
    house.add(u"Old"_s, u"gba"_s, now - 90000);
    HomeFacts home(house.sources(), house.places);
    EXPECT_EQ(home.hero()->title(), QString());
    home.setActive(true);
    EXPECT_EQ(home.hero()->title(), u"Old"_s);
    home.setActive(false);
    const QString fresh = house.add(u"New"_s, u"gba"_s, now - 60);
    EXPECT_EQ(home.hero()->title(), u"Old"_s);
    home.setActive(true);
    EXPECT_EQ(home.hero()->title(), u"New"_s);
    EXPECT_EQ(column(*home.recent(), ShelfModel::Title), (QStringList{u"Old"_s}));
    house.store->setFavorite(fresh, true);
    EXPECT_EQ(home.favorites()->count(), 1);
}

TEST(HomeFacts, showOtherGamesBesideTheOnlyOneThatWasPlayed)
{
    FactsHouse house;
    const double now = ReferenceDate::from(house.clock.now()).seconds;
    house.add(u"Played"_s, u"gba"_s, now - 60);
    house.add(u"Waiting"_s, u"gba"_s);
    HomeFacts home(house.sources(), house.places);
    home.setActive(true);
    EXPECT_EQ(home.hero()->title(), u"Played"_s);
    EXPECT_EQ(home.recentTitle(), u"Recently added"_s);
    EXPECT_EQ(column(*home.recent(), ShelfModel::Title), (QStringList{u"Waiting"_s}));
}

TEST(HomeFacts, addTheWeekOfAllGames)
{
    FactsHouse house;
    for (const double seconds : {1800.0, 5400.0}) {
        GameEntry game = house.game(u"Game"_s, u"gba"_s);
        game.daily = {{u"2026-03-07"_s, 99999}, {u"2026-03-08"_s, seconds}};
        house.store->add({game});
    }
    HomeFacts home(house.sources(), house.places);
    home.setActive(true);
    EXPECT_EQ(home.weekTime(), u"2 h 00 min"_s);
    EXPECT_EQ(home.week().first().toMap()[u"label"_s], u"Sun"_s);
}
