#include "ui/facts/LastPlayedText.h"

#include <QTimeZone>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

static const QTimeZone paris("Europe/Paris");
static const QDateTime now(QDate(2026, 3, 14), QTime(0, 30), paris); // a Saturday, half an hour old

struct PlayedRow {
    const char *name;
    QDateTime played;
    QString session;
    const char *text;
};
class LastPlayedText : public testing::TestWithParam<PlayedRow> { };

TEST_P(LastPlayedText, readsAsPeopleSayIt)
{
    const Message message = lastPlayedText(GetParam().played, now, QLocale(u"en_GB"_s), GetParam().session);
    EXPECT_EQ(english(message).toStdString(), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Days, LastPlayedText,
    testing::Values(PlayedRow{"today", now.addSecs(-60), u"1 h 28 min"_s, "Last played today, 1 h 28 min"},
                    PlayedRow{"beforeMidnight", now.addSecs(-3600), u"52 min"_s, "Last played yesterday, 52 min"},
                    PlayedRow{"beforeMidnightInAnotherZone", now.addSecs(-3600).toUTC(), {}, "Last played yesterday"},
                    PlayedRow{"aWeekday", now.addDays(-6), u"2 min"_s, "Last played Sunday, 2 min"},
                    PlayedRow{"aWeekAgo", now.addDays(-7), {}, "Last played 7 Mar"},
                    PlayedRow{"anotherYear", now.addDays(-100), u"5 min"_s, "Last played 4 Dec 2025, 5 min"},
                    PlayedRow{"aClockThatWasWrong", now.addDays(40), {}, "Last played 23 Apr"}),
    [](const auto &row) { return row.param.name; });
