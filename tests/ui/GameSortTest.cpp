#include "ui/models/GameSort.h"

#include "base/SearchForm.h"
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

struct TitleRow {
    const char *name;
    const char16_t *first;
    const char16_t *second;
};
class TitleOrder : public testing::TestWithParam<TitleRow> { };
TEST_P(TitleOrder, isAsPeopleCount)
{
    const QString first = searchForm(QString::fromUtf16(GetParam().first));
    const QString second = searchForm(QString::fromUtf16(GetParam().second));
    EXPECT_LT(compareTitles(first, second), 0);
    EXPECT_GT(compareTitles(second, first), 0);
    EXPECT_EQ(compareTitles(first, first), 0);
}
INSTANTIATE_TEST_SUITE_P(
    Edges, TitleOrder,
    testing::Values(TitleRow{"numbersByValue", u"Part 2", u"Part 10"}, TitleRow{"caseIsNothing", u"alpha", u"Beta"},
                    TitleRow{"marksAreNothing", u"Éclair", u"Edge"}, TitleRow{"prefixFirst", u"Dune", u"Dune 2"},
                    TitleRow{"leadingZeros", u"Race 007", u"Race 08"},
                    TitleRow{"longNumbers", u"9", u"12345678901234567890123"},
                    TitleRow{"digitsBeforeLetters", u"3 Moons", u"Moons"}, TitleRow{"emptyFirst", u"", u"a"},
                    TitleRow{"numberThenText", u"Rally 2 Gold", u"Rally 2 Silver"}),
    [](const auto &row) { return row.param.name; });

TEST(GameSort, putsGamesThatWereNeverPlayedLastAndNewestFirst)
{
    const GameEntry old{.id = u"old"_s, .addedAt = {100}};
    const GameEntry fresh{.id = u"fresh"_s, .addedAt = {200}};
    const GameEntry played{.id = u"played"_s, .addedAt = {50}, .lastPlayed = ReferenceDate{60}};
    const GameEntry lately{.id = u"lately"_s, .addedAt = {50}, .lastPlayed = ReferenceDate{900}};
    const auto number = [](const GameEntry &game) { return sortNumber(game, GameSort::lastPlayed, 0); };
    EXPECT_LT(number(lately), number(played));
    EXPECT_LT(number(played), number(fresh));
    EXPECT_LT(number(fresh), number(old));
}

TEST(GameSort, namesLeadBackToTheSortAndUnknownOnesToTheDefault)
{
    for (const GameSort sort : gameSorts())
        EXPECT_EQ(gameSortNamed(name(sort)), sort);
    EXPECT_EQ(gameSortNamed(u"shoeSize"_s), GameSort::lastPlayed);
}
