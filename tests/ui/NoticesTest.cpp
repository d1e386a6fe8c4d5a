#include "ui/Notices.h"

#include "fakes/ManualClock.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

TEST(Notices, goByThemselvesAndANewOneStaysItsFullTime)
{
    ManualClock clock;
    Notices notices(clock);
    notices.show(u"First"_s, u"ok"_s);
    clock.advance(2s);
    notices.show(u"Second"_s, u"warn"_s);
    clock.advance(2s);
    EXPECT_EQ(notices.text(), u"Second"_s);
    clock.advance(1s);
    EXPECT_EQ(notices.text(), QString());
    EXPECT_EQ(clock.pending(), 0);
    notices.show(QString(60, u'x'), u"info"_s);
    clock.advance(5s);
    EXPECT_FALSE(notices.text().isEmpty());
}
