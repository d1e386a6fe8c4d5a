#include "library/SessionClock.h"

#include "fakes/ManualClock.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// A session clock and what it counted, by day and game.
struct Counted {
    ManualClock clock;
    QMap<QString, double> seconds; ///< key: "day game"
    int ticks = 0;
    SessionClock sessions{clock, [this](const QList<PlayedStretch> &stretches, const QDateTime &moment) {
                              ++ticks;
                              for (const PlayedStretch &stretch : stretches)
                                  seconds[moment.toString(u"dd "_s) + stretch.gameID] += stretch.seconds;
                          }};
    using Seconds = QMap<QString, double>;
};

TEST(SessionClock, countsTwoGamesFromTheSameTicks)
{
    Counted counted;
    counted.sessions.start(u"A"_s, 1);
    counted.clock.advance(15s);
    counted.sessions.start(u"B"_s, 2);
    counted.clock.advance(30s);
    EXPECT_EQ(counted.seconds, (Counted::Seconds{{u"14 A"_s, 40}, {u"14 B"_s, 25}}));
    EXPECT_EQ(counted.ticks, 2);
    EXPECT_EQ(counted.sessions.end(1)->seconds, 45);
    counted.clock.advance(20s);
    const auto last = counted.sessions.end(2);
    EXPECT_EQ(last->gameID, u"B"_s);
    EXPECT_EQ(last->seconds, 50);
    EXPECT_EQ(counted.seconds, (Counted::Seconds{{u"14 A"_s, 45}, {u"14 B"_s, 50}}));
    EXPECT_EQ(counted.clock.pending(), 0);
}

TEST(SessionClock, givesEachDayItsStretches)
{
    Counted counted;
    counted.clock.present.setTime(QTime(23, 59, 30));
    counted.sessions.start(u"A"_s, 1);
    counted.clock.advance(45s);
    EXPECT_EQ(counted.sessions.end(1)->seconds, 45);
    EXPECT_EQ(counted.seconds, (Counted::Seconds{{u"14 A"_s, 20}, {u"15 A"_s, 25}}));
}

TEST(SessionClock, leavesOutSleepAndPauses)
{
    Counted counted;
    counted.sessions.setPaused(u"A"_s, true);
    counted.sessions.start(u"A"_s, 1);
    counted.clock.advance(10s);
    counted.clock.sleep(8h);
    counted.clock.advance(10s);
    counted.sessions.setPaused(u"A"_s, true);
    counted.sessions.setPaused(u"A"_s, true);
    counted.clock.advance(70s);
    counted.sessions.setPaused(u"A"_s, false);
    counted.clock.advance(5s);
    const int ticks = counted.ticks;
    counted.sessions.setPaused(u"A"_s, true);
    EXPECT_EQ(counted.ticks, ticks) << "a pause waits for no disk";
    counted.clock.advance(5s);
    EXPECT_EQ(counted.sessions.end(1)->seconds, 25);
    EXPECT_EQ(counted.seconds, (Counted::Seconds{{u"15 A"_s, 25}}));
}

TEST(SessionClock, isOneSessionForSeveralProgramsOfAGame)
{
    Counted counted;
    counted.sessions.start(u"A"_s, 1);
    counted.clock.advance(10s);
    counted.sessions.start(u"A"_s, 2);
    counted.clock.advance(10s);
    EXPECT_FALSE(counted.sessions.end(1));
    EXPECT_FALSE(counted.sessions.end(1));
    EXPECT_FALSE(counted.sessions.end(99));
    counted.clock.advance(10s);
    EXPECT_EQ(counted.sessions.end(2)->seconds, 30);
}

TEST(SessionClock, countsASessionWithoutTime)
{
    Counted counted;
    counted.sessions.start(u"A"_s, 1);
    EXPECT_EQ(counted.sessions.end(1)->seconds, 0);
    EXPECT_EQ(counted.ticks, 0);
    counted.sessions.start(u"A"_s, 1);
    EXPECT_EQ(counted.sessions.endAll().size(), 1);
    EXPECT_EQ(counted.clock.pending(), 0);
}
