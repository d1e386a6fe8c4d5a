#include "ui/facts/PlayDays.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

static const QDate today(2026, 3, 1);

TEST(LastDays, endTodayAndHaveShares)
{
    const auto days = lastDays({{u"2026-02-27"_s, 100}, {u"2026-03-01"_s, 400}, {u"2026-02-20"_s, 9000}}, today, 4);
    ASSERT_EQ(days.size(), 4);
    EXPECT_EQ(days[0], (PlayDay{QDate(2026, 2, 26), 0, 0}));
    EXPECT_EQ(days[1], (PlayDay{QDate(2026, 2, 27), 100, 0.25}));
    EXPECT_EQ(days[3], (PlayDay{today, 400, 1}));
}

TEST(LastDays, haveNoShareWhenNothingWasPlayedOrTheFileIsOdd)
{
    for (const PlayDay &day : lastDays({{u"2026-03-01"_s, -50}}, today, 7))
        EXPECT_EQ(day.share, 0);
}

TEST(DailyTotals, addTheGamesAndLeaveOutOlderDays)
{
    GameEntry a;
    a.daily = {{u"2026-02-10"_s, 5}, {u"2026-02-28"_s, 10}};
    GameEntry b;
    b.daily = {{u"2026-02-28"_s, 20}, {u"2026-03-01"_s, 1}};
    const QMap<QString, double> totals{{u"2026-02-28"_s, 30}, {u"2026-03-01"_s, 1}};
    EXPECT_EQ(dailyTotals({a, GameEntry(), b}, QDate(2026, 2, 28)), totals);
}
