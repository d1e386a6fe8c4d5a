#include "app/GameChoice.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

static const QList<GameEntry> library{
    {.id = u"6F9619FF-8B86-D011-B42D-00CF4FC964FF"_s, .title = u"Pokémon Rouge"_s, .consoleID = u"gb"_s},
    {.id = u"00000000-0000-0000-0000-000000000002"_s, .title = u"Lanterns"_s, .consoleID = u"gb"_s},
    {.id = u"00000000-0000-0000-0000-000000000003"_s, .title = u"Lanterns"_s, .consoleID = u"gba"_s},
    {.id = u"00000000-0000-0000-0000-000000000004"_s, .title = u"Lanterns of Oro"_s, .consoleID = u"ps2"_s},
    {.id = u"00000000-0000-0000-0000-000000000005"_s, .title = u"!?"_s, .consoleID = u"nes"_s},
};

struct ChoiceRow {
    const char *name;
    QString word;
    int expected; ///< index in the library; -1: none or several
};
class GameChoice : public testing::TestWithParam<ChoiceRow> { };

TEST_P(GameChoice, findsTheGame)
{
    const auto choice = chooseGame(library, GetParam().word);
    ASSERT_EQ(bool(choice), GetParam().expected >= 0);
    if (!choice) return;
    EXPECT_EQ(choice.value(), library[GetParam().expected].id);
}

INSTANTIATE_TEST_SUITE_P(Words, GameChoice,
                         testing::Values(ChoiceRow{"identifier", u"6f9619ff-8b86-d011-b42d-00cf4fc964ff"_s, 0},
                                         ChoiceRow{"withoutAccents", u"POKEMON  rouge"_s, 0},
                                         ChoiceRow{"partOfOne", u"oro"_s, 3},
                                         ChoiceRow{"twoOfTheSameName", u"Lanterns"_s, -1},
                                         ChoiceRow{"onlySigns", u"!?"_s, 4}, ChoiceRow{"otherSigns", u"??"_s, -1},
                                         ChoiceRow{"empty", QString(), -1}, ChoiceRow{"unknown", u"Zelda"_s, -1}),
                         [](const auto &row) { return row.param.name; });

TEST(GameChoice, namesTheCandidates)
{
    const auto choice = chooseGame(library, u"lanterns"_s);
    ASSERT_FALSE(choice);
    EXPECT_TRUE(english(choice.failure()).contains(library[1].id));
    EXPECT_TRUE(english(choice.failure()).contains(library[2].id));
    EXPECT_FALSE(english(choice.failure()).contains(library[3].id));
}
