#include "platform/Clock.h"
#include "fakes/ManualClock.h"
#include "platform/WaitUntil.h"
#include "platform/linux/LinuxServices.h"

#include <gtest/gtest.h>

using namespace std::chrono;

struct ClockRow {
    const char *name;
    std::unique_ptr<Clock> (*make)();
};

static std::unique_ptr<Clock> makeManualClock()
{
    return std::make_unique<ManualClock>();
}

class AnyClock : public testing::TestWithParam<ClockRow> {
protected:
    std::unique_ptr<Clock> made = GetParam().make();
    Clock &clock = *made;

    void pass(milliseconds time)
    {
        if (auto *manual = dynamic_cast<ManualClock *>(&clock)) return manual->advance(time);
        const auto end = clock.awake() + time;
        waitUntil([&] { return clock.awake() >= end; });
    }
};
INSTANTIATE_TEST_SUITE_P(Both, AnyClock,
                         testing::Values(ClockRow{"manual", makeManualClock}, ClockRow{"real", makeClock}),
                         [](const auto &row) { return row.param.name; });

TEST_P(AnyClock, callsOnceAfterTheDelay)
{
    int calls = 0;
    milliseconds when{};
    const auto start = clock.awake();
    const Timer timer = clock.after(20ms, [&] {
        ++calls;
        when = clock.awake();
    });
    EXPECT_EQ(calls, 0);
    pass(60ms);
    EXPECT_EQ(calls, 1);
    EXPECT_GE(when - start, 19ms);
}

TEST_P(AnyClock, callsAgainAndAgainUntilTheTimerGoes)
{
    int calls = 0;
    const auto start = clock.awake();
    Timer timer = clock.every(10ms, [&] { ++calls; });
    pass(100ms);
    EXPECT_GE(calls, 3);
    EXPECT_LE(calls, (clock.awake() - start) / 9ms); // a timer may come a moment early
    timer.reset();
    const int before = calls;
    pass(30ms);
    EXPECT_EQ(calls, before);
}

TEST_P(AnyClock, neverCallsInsideAfter)
{
    bool called = false;
    const Timer now = clock.after(0ms, [&] { called = true; });
    EXPECT_FALSE(called);
    pass(10ms);
    EXPECT_TRUE(called);
}

TEST_P(AnyClock, keepsTheOrderOfTime)
{
    QString order;
    const Timer late = clock.after(30ms, [&] { order += u'c'; });
    const Timer early = clock.after(5ms, [&] { order += u'a'; });
    const Timer middle = clock.after(15ms, [&] { order += u'b'; });
    pass(60ms);
    EXPECT_EQ(order, QStringLiteral("abc"));
}

TEST_P(AnyClock, letsACallReplaceItsOwnTimer)
{
    // What the function owns must live until it has returned, although its timer is gone by then.
    auto shared = std::make_shared<int>(0);
    Timer timer;
    timer = clock.every(5ms, [&, shared] {
        timer = clock.after(5ms, [shared] { *shared += 10; });
        *shared += 1;
    });
    pass(60ms);
    EXPECT_EQ(*shared, 11);
}

TEST(LinuxClock, givesTheWallClockInTheUsersZone)
{
    const auto clock = makeClock();
    EXPECT_LT(std::abs(clock->now().msecsTo(QDateTime::currentDateTimeUtc())), 1000);
    EXPECT_EQ(clock->now().timeSpec(), Qt::LocalTime);
}

TEST(LinuxClock, takesDelaysLongerThanATimerHolds)
{
    const auto clock = makeClock();
    bool called = false;
    const Timer timer = clock->after(hours(24 * 365), [&] { called = true; });
    waitUntil([&] { return called; }, 10ms);
    EXPECT_FALSE(called);
}
