#include "ui/facts/ProfileFacts.h"

#include "ui/ListHouse.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

static GameEntry played(const QString &id, std::optional<double> seconds)
{
    GameEntry game;
    game.id = id;
    game.playSeconds = seconds;
    return game;
}

TEST(ProfileFacts, mostPlayedAreThoseThatWerePlayed)
{
    const QList<GameEntry> games{played(u"c"_s, 10), played(u"a"_s, 40), played(u"n"_s, {}), played(u"z"_s, 0),
                                 played(u"b"_s, 10)};
    EXPECT_EQ(mostPlayed(games, 5), (QList<MostPlayed>{{u"a"_s, 40, 1}, {u"b"_s, 10, 0.25}, {u"c"_s, 10, 0.25}}));
    EXPECT_EQ(mostPlayed(games, 1).size(), 1);
    EXPECT_TRUE(mostPlayed({}, 5).isEmpty());
}

TEST(ProfileFacts, figuresAreSumsOfTheLibrary)
{
    ListHouse house;
    ProfileFacts facts(*house.store, house.translator, house.clock);
    QList<GameEntry> games{house.game(u"One"_s, u"gb"_s), house.game(u"Two"_s, u"gb"_s),
                           house.game(u"Three"_s, u"gb"_s)};
    games[0].playSeconds = 11 * 3600 + 1800;
    games[0].sessionCount = 4;
    games[0].status = GameStatus::playing;
    games[0].daily = QMap<QString, double>{{u"2026-03-14"_s, 600}, {u"2026-03-01"_s, 9000}};
    games[1].playSeconds = 1800;
    games[1].sessionCount = 1;
    games[1].status = GameStatus::playing;
    house.store->add(games);
    EXPECT_TRUE(facts.figures().isEmpty()) << "not while it is not shown";
    facts.setActive(true);
    QStringList values;
    for (const QVariant &figure : facts.figures())
        values += figure.toMap()[u"value"_s].toString();
    EXPECT_EQ(values, (QStringList{u"12 h"_s, u"5"_s, u"2"_s, u"3"_s}));
    ASSERT_EQ(facts.statuses().size(), 1);
    EXPECT_EQ(facts.statuses().first().toMap()[u"text"_s].toString(), u"Playing 2"_s);
    EXPECT_EQ(facts.weekTime(), u"10 min"_s);
    EXPECT_EQ(facts.mostPlayed().size(), 2);
}
