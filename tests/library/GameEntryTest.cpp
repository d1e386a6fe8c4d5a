#include "library/GameEntry.h"

#include <QTimeZone>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(GameEntry, countsPlayTimeOnTheLocalDay)
{
    GameEntry game;
    QDateTime moment(QDate(2026, 3, 14), QTime(23, 59, 50), QTimeZone("Europe/Paris"));
    for (const double nothing : {0.0, -5.0, qQNaN()})
        addPlayTime(game, nothing, moment);
    EXPECT_EQ(game, GameEntry());
    addPlayTime(game, 20, moment);
    addPlayTime(game, 20, moment.addSecs(20));
    addPlayTime(game, 1.5, moment.addSecs(40));
    EXPECT_EQ(game.playSeconds, 41.5);
    EXPECT_EQ(game.daily, (QMap<QString, double>{{u"2026-03-14"_s, 20}, {u"2026-03-15"_s, 21.5}}));
}

TEST(GameEntry, hasANewIdentifierEachTime)
{
    EXPECT_EQ(gameID(newGameID()).value_or(QString()).size(), 36);
    EXPECT_NE(newGameID(), newGameID());
    EXPECT_EQ(gameID(u"6f9619ff-8b86-d011-b42d-00cf4fc964ff"_s), u"6F9619FF-8B86-D011-B42D-00CF4FC964FF"_s);
    for (const QString &text : {u""_s, u"6F9619FF8B86D011B42D00CF4FC964FF"_s, u"6F9619FF-8B86-D011-B42D-00CF4FC964Fé"_s,
                                u"6F9619FF-8B86-D011-B42D000CF4FC964FF"_s, u"6F9619F--8B86-D011-B42D-00CF4FC964FF"_s})
        EXPECT_EQ(gameID(text), std::nullopt) << text.toStdString();
}
