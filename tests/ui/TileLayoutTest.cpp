#include "ui/models/TileLayout.h"

#include "ui/models/GridKeys.h"

#include <QVariant>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

// Three groups in three columns: 0 1 2 / 3 | 4 5 | 6 7 8 / 9 10
static const TileLayout grouped{{4, 2, 5}, 3};

TEST(TileLayout, beginsEachGroupInALineOfItsOwn)
{
    EXPECT_EQ(placeOf(grouped, 3), (TilePlace{0, 1, 0}));
    EXPECT_EQ(placeOf(grouped, 4), (TilePlace{0, 2, 1}));
    EXPECT_EQ(placeOf(grouped, 10), (TilePlace{1, 4, 2}));
    EXPECT_EQ(lineCount(grouped), 5);
    EXPECT_EQ(lineCount({{}, 3}), 0);
}

struct MoveRow {
    const char *name;
    int from;
    Move move;
    int to;
};
class TileMoves : public testing::TestWithParam<MoveRow> { };
TEST_P(TileMoves, lead)
{
    EXPECT_EQ(tileAfter(grouped, GetParam().from, GetParam().move, 2), GetParam().to);
}
INSTANTIATE_TEST_SUITE_P(
    Edges, TileMoves,
    testing::Values(MoveRow{"downToAShorterLine", 2, Move::down, 3}, MoveRow{"downIntoTheNextGroup", 3, Move::down, 4},
                    MoveRow{"downKeepsTheColumn", 5, Move::down, 7}, MoveRow{"upToAShorterLine", 8, Move::up, 5},
                    MoveRow{"upFromTheFirstLine", 1, Move::up, 1}, MoveRow{"downFromTheLastLine", 9, Move::down, 9},
                    MoveRow{"leftDoesNotWrap", 6, Move::left, 6}, MoveRow{"rightDoesNotWrap", 2, Move::right, 2},
                    MoveRow{"rightStopsAtAGroupsEnd", 5, Move::right, 5}, MoveRow{"right", 6, Move::right, 7},
                    MoveRow{"pageDown", 1, Move::pageDown, 5}, MoveRow{"pageDownStopsAtTheEnd", 7, Move::pageDown, 10},
                    MoveRow{"pageUpStopsAtTheStart", 4, Move::pageUp, 0}, MoveRow{"first", 9, Move::first, 0},
                    MoveRow{"last", 0, Move::last, 10}, MoveRow{"fromBeyondTheEnd", 99, Move::first, 0}),
    [](const auto &row) { return row.param.name; });

TEST(TileLayout, anEmptyGridHasNowhereToGo)
{
    EXPECT_EQ(tileAfter({{}, 3}, 0, Move::down, 1), -1);
}

/// Keys as a window sends them, and what came of each.
struct PressedKeys {
    GridKeys keys;
    QStringList heard;

    PressedKeys()
    {
        keys.setProperty("groups", QVariant::fromValue(QList<int>{5}));
        keys.setProperty("columns", 3);
        keys.setProperty("current", 0);
        QObject::connect(&keys, &GridKeys::moved, &keys, [this](int tile) {
            heard += u"to %1"_s.arg(tile);
            keys.setProperty("current", tile);
        });
        QObject::connect(&keys, &GridKeys::opened, &keys, [this] { heard += u"open"_s; });
        QObject::connect(&keys, &GridKeys::favoriteToggled, &keys, [this] { heard += u"heart"_s; });
        QObject::connect(&keys, &GridKeys::typed, &keys, [this](const QString &text) { heard += u"type "_s + text; });
    }
};

TEST(GridKeys, passOnWhatLeadsOutOfTheGrid)
{
    PressedKeys grid;
    EXPECT_FALSE(grid.keys.press(Qt::Key_Left, 0, {}));
    EXPECT_FALSE(grid.keys.press(Qt::Key_Up, 0, {}));
    EXPECT_TRUE(grid.keys.press(Qt::Key_End, 0, {}));
    EXPECT_FALSE(grid.keys.press(Qt::Key_Down, 0, {}));
    EXPECT_FALSE(grid.keys.press(Qt::Key_Right, 0, {}));
    EXPECT_TRUE(grid.keys.press(Qt::Key_PageDown, 0, {})) << "a page key never moves the focus elsewhere";
    EXPECT_EQ(grid.heard, (QStringList{u"to 4"_s}));
}

TEST(GridKeys, upFromTheFirstLineGoesToWhoeverListens)
{
    PressedKeys grid;
    QObject::connect(&grid.keys, &GridKeys::upOut, &grid.keys, [&grid] { grid.heard += u"out"_s; });
    EXPECT_TRUE(grid.keys.press(Qt::Key_Up, 0, {}));
    EXPECT_TRUE(grid.keys.press(Qt::Key_End, 0, {}));
    EXPECT_TRUE(grid.keys.press(Qt::Key_Up, 0, {}));
    EXPECT_EQ(grid.heard, (QStringList{u"out"_s, u"to 4"_s, u"to 1"_s}));
}

TEST(GridKeys, openMarkAndSearch)
{
    PressedKeys grid;
    EXPECT_TRUE(grid.keys.press(Qt::Key_Return, 0, u"\r"_s));
    EXPECT_TRUE(grid.keys.press(Qt::Key_Enter, Qt::KeypadModifier, u"\r"_s));
    EXPECT_TRUE(grid.keys.press(Qt::Key_F, 0, u"f"_s));
    EXPECT_TRUE(grid.keys.press(Qt::Key_Z, Qt::ShiftModifier, u"Z"_s));
    EXPECT_FALSE(grid.keys.press(Qt::Key_Escape, 0, u"\x1b"_s));
    EXPECT_FALSE(grid.keys.press(Qt::Key_Tab, 0, u"\t"_s));
    EXPECT_FALSE(grid.keys.press(Qt::Key_Z, Qt::ControlModifier, u"\x1a"_s));
    EXPECT_FALSE(grid.keys.press(Qt::Key_Space, 0, u" "_s)) << "a search does not begin with a blank";
    EXPECT_EQ(grid.heard, (QStringList{u"open"_s, u"open"_s, u"heart"_s, u"type Z"_s}));
}

TEST(GridKeys, doNothingInAnEmptyGrid)
{
    PressedKeys grid;
    grid.keys.setProperty("groups", QVariant::fromValue(QList<int>{0}));
    grid.keys.setProperty("current", -1);
    EXPECT_FALSE(grid.keys.press(Qt::Key_Down, 0, {}));
    EXPECT_TRUE(grid.keys.press(Qt::Key_Return, 0, {}));
    EXPECT_EQ(grid.heard, QStringList());
}
