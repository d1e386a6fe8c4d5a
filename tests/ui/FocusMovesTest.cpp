#include "ui/focus/FocusMoves.h"

#include <gtest/gtest.h>

/// A page in small: two buttons, a shelf over the whole width below them, a card at the right.
static const QRectF play(100, 100, 100, 50);
static const QRectF resume(220, 100, 200, 50);
static const QRectF card(900, 40, 200, 50);
static const QRectF shelf(0, 300, 1200, 250);
static const QRectF below(0, 600, 1200, 250);

struct FocusMoveRow {
    const char *name;
    QRectF from;
    QList<QRectF> others;
    Direction direction;
    std::optional<int> reached;
};
class NextInDirection : public testing::TestWithParam<FocusMoveRow> { };

TEST_P(NextInDirection, isTheNearestThatLiesThere)
{
    EXPECT_EQ(nextInDirection(GetParam().from, GetParam().others, GetParam().direction), GetParam().reached);
}

INSTANTIATE_TEST_SUITE_P(
    Page, NextInDirection,
    testing::Values(FocusMoveRow{"rightInARow", play, {card, resume, shelf}, Direction::right, 1},
                    FocusMoveRow{"leftInARow", resume, {shelf, play, card}, Direction::left, 1},
                    FocusMoveRow{"downToTheNearerShelf", play, {below, shelf}, Direction::down, 1},
                    FocusMoveRow{"upSkipsWhatLiesBeside", shelf, {play, below, resume}, Direction::up, 0},
                    FocusMoveRow{"rightToAnotherHeightWhenNothingIsLevel", resume, {card, shelf}, Direction::right, 0},
                    FocusMoveRow{"nothingAtTheEdge", shelf, {play, resume}, Direction::down, std::nullopt},
                    FocusMoveRow{"noneThereAtAll", play, {}, Direction::up, std::nullopt},
                    FocusMoveRow{"alignedEdgesBeforeACloserMiddle",
                                 QRectF(0, 0, 300, 40),
                                 {{0, 50, 60, 40}, {70, 50, 60, 40}},
                                 Direction::down,
                                 0},
                    FocusMoveRow{"touchingOnesCount", QRectF(0, 0, 100, 40), {{100, 0, 100, 40}}, Direction::right, 0},
                    FocusMoveRow{
                        "aSurroundingOneIsNotAhead", play, {QRectF(0, 0, 2000, 2000)}, Direction::left, std::nullopt}),
    [](const auto &row) { return row.param.name; });

TEST(Nearest, isWhereTheFocusFallsWhenItsItemIsGone)
{
    EXPECT_EQ(nearest(play, {card, resume, shelf}), 1);
    EXPECT_EQ(nearest(play, {}), std::nullopt);
}
