#include "ui/models/GameFilter.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(GameFilter, textLeadsBackToTheFilter)
{
    for (const QString &text : {u"all"_s, u"favorites"_s, u"playing"_s, u"backlog"_s, u"completed"_s, u"console:32x"_s})
        EXPECT_EQ(toText(gameFilterFromText(text)), text);
    for (const QString &text : {u""_s, u"Favorites"_s, u"console:"_s, u"nonsense"_s})
        EXPECT_EQ(toText(gameFilterFromText(text)), u"all"_s) << qPrintable(text);
}

TEST(GameFilter, admitsWhatItNames)
{
    const GameEntry plain{.id = u"A"_s, .consoleID = u"ps2"_s};
    GameEntry loved = plain;
    loved.favorite = true;
    loved.status = GameStatus::backlog;
    struct Row {
        QString filter;
        bool plain;
        bool loved;
    };
    for (const Row &row :
         {Row{u"all"_s, true, true}, Row{u"favorites"_s, false, true}, Row{u"backlog"_s, false, true},
          Row{u"playing"_s, false, false}, Row{u"console:ps2"_s, true, true}, Row{u"console:ps"_s, false, false}}) {
        EXPECT_EQ(admits(gameFilterFromText(row.filter), plain), row.plain) << qPrintable(row.filter);
        EXPECT_EQ(admits(gameFilterFromText(row.filter), loved), row.loved) << qPrintable(row.filter);
    }
}
