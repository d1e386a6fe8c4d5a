#include "library/RomNames.h"

#include <gtest/gtest.h>

struct NameRow {
    const char *name;
    const char *text;
    const char *expected;
};

class HintForFolder : public testing::TestWithParam<NameRow> { };

TEST_P(HintForFolder, isTheConsoleThatTheNameSpeaksOf)
{
    EXPECT_EQ(hintForFolder(QString::fromUtf8(GetParam().text)).value_or("none").toStdString(), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Edges, HintForFolder,
    testing::Values(NameRow{"abbreviation", "PS2 Games", "ps2"}, NameRow{"withMaker", "Sony - PlayStation 2", "ps2"},
                    NameRow{"partOfAWord", "gamesps2", "none"}, NameRow{"longerName", "Game Boy Advance", "gba"},
                    NameRow{"shorterName", "Game Boy", "gb"}, NameRow{"longerWins", "Game Boy (not Advance)", "gb"},
                    NameRow{"firstInTheTableWins", "snes playstation", "ps1"},
                    NameRow{"wiiUBeforeWii", "Nintendo Wii U", "wiiu"}, NameRow{"wii", "nintendo_wii", "wii"},
                    NameRow{"portable", "PLAYSTATION PORTABLE", "psp"}, NameRow{"joined", "megadrive", "genesis"},
                    NameRow{"signsBetween", "turbografx+cd", "tgcd"}, NameRow{"number", "Atari.2600", "a2600"},
                    NameRow{"numberInAWord", "26000", "none"}, NameRow{"superFamicom", "Super Famicom", "nes"},
                    NameRow{"lastOfTheTable", "7800", "a7800"}, NameRow{"empty", "", "none"},
                    NameRow{"otherScript", "ゲームボーイ gb ゲーム", "gb"}, NameRow{"letterBeside", "égb", "none"},
                    NameRow{"pictureBeside", "PS2\U0001F3AE", "ps2"},
                    NameRow{"letterOfTwoUnitsBeside", "PS2\U00010400", "none"}),
    [](const auto &row) { return row.param.name; });

class CleanTitle : public testing::TestWithParam<NameRow> { };

TEST_P(CleanTitle, hasNoBrackets)
{
    EXPECT_EQ(cleanTitle(QString::fromUtf8(GetParam().text)).toStdString(), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Edges, CleanTitle,
    testing::Values(NameRow{"both", "Super Game (USA) [!]", "Super Game"}, NameRow{"onlyBrackets", "(Demo)", ""},
                    NameRow{"inTheMiddle", "Super(USA)Game", "Super Game"},
                    NameRow{"neverClosed", "Game (USA", "Game (USA"}, NameRow{"neverOpened", "Game) [a", "Game) [a"},
                    NameRow{"otherKindInside", "A [b (c] d) e", "A d) e"},
                    NameRow{"noNesting", "A (b (c) d) e", "A d) e"}, NameRow{"nothingInside", "A () b", "A b"},
                    NameRow{"blanks", " A\t\n B\xC2\xA0 C ", "A B C"}, NameRow{"empty", "", ""},
                    NameRow{"lineBreakInside", "A (b\nc) d", "A d"}),
    [](const auto &row) { return row.param.name; });
