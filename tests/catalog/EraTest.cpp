#include "catalog/Era.h"
#include "catalog/Maker.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

struct EraRow {
    int year;
    Era era; ///< the only one beside `all`
};
class EraYears : public testing::TestWithParam<EraRow> { };

TEST_P(EraYears, belongToOneEraAndToAll)
{
    for (const Era era : eras())
        EXPECT_EQ(admits(era, GetParam().year), era == Era::all || era == GetParam().era);
}

INSTANTIATE_TEST_SUITE_P(Edges, EraYears,
                         testing::Values(EraRow{1977, Era::early}, EraRow{1989, Era::early},
                                         EraRow{1990, Era::nineties}, EraRow{1999, Era::nineties},
                                         EraRow{2000, Era::twoKs}, EraRow{2009, Era::twoKs}, EraRow{2010, Era::tens},
                                         EraRow{2026, Era::tens}),
                         [](const auto &row) { return std::to_string(row.param.year); });

TEST(Era, chipsReadInTheirOrder)
{
    QStringList texts;
    for (const Era era : eras())
        texts += displayText(era);
    EXPECT_EQ(texts, (QStringList{u"All"_s, u"1970s–80s"_s, u"1990s"_s, u"2000s"_s, u"2010s"_s}));
}

TEST(Maker, groupsReadInTheirOrder)
{
    QStringList names;
    for (const Maker maker : makers())
        names += displayName(maker);
    EXPECT_EQ(names.join(u", "_s), u"Nintendo, Sony, Sega, Microsoft, Atari, NEC, Philips, Mac"_s);
}
