#include "ui/models/PlayTimeText.h"

#include <gtest/gtest.h>
#include <limits>

using namespace Qt::StringLiterals;

TEST(PlayTimeText, countsWholeMinutes)
{
    struct Row {
        double seconds;
        QString text;
    };
    for (const Row &row : {Row{0, u"Never played"_s}, Row{-5, u"Never played"_s}, Row{1, u"1 min"_s},
                           Row{119, u"1 min"_s}, Row{3599, u"59 min"_s}, Row{3600, u"1 h 00 min"_s},
                           Row{32700, u"9 h 05 min"_s}, Row{3600.0 * 1234, u"1234 h 00 min"_s}})
        EXPECT_EQ(english(playTimeText(row.seconds)), row.text);
    EXPECT_EQ(english(playTimeText(std::numeric_limits<double>::quiet_NaN())), u"Never played"_s);
}
