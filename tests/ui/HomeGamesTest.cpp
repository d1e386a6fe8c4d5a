#include "ui/models/HomeGames.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

static GameEntry game(const QString &id, std::optional<double> played, double added, bool favorite)
{
    GameEntry game;
    game.id = id;
    game.title = id;
    if (played) game.lastPlayed = ReferenceDate{*played};
    game.addedAt = {added};
    game.favorite = favorite;
    return game;
}

static const QList<GameEntry> games{game(u"b"_s, 5, 1, true), game(u"A"_s, {}, 4, true), game(u"c"_s, 9, 2, false),
                                    game(u"d"_s, 7, 3, true)};

TEST(HomeGames, areTheNewestFirstAndNoMoreThanAskedFor)
{
    EXPECT_EQ(recentlyPlayed(games, 2), (QStringList{u"c"_s, u"d"_s}));
    EXPECT_EQ(recentlyPlayed(games, 10), (QStringList{u"c"_s, u"d"_s, u"b"_s}));
    EXPECT_EQ(recentlyAdded(games, 2), (QStringList{u"A"_s, u"d"_s}));
    EXPECT_EQ(favoriteGames(games, 10), (QStringList{u"A"_s, u"b"_s, u"d"_s}));
    EXPECT_EQ(recentlyPlayed({}, 10), QStringList());
}
