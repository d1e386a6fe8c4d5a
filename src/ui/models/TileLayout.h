#pragma once

#include <QList>

/// A grid of tiles that may be cut into groups, each of which begins a new line under a heading.
struct TileLayout {
    QList<int> groups; ///< tiles in each, all at least 1; one group: a plain grid
    int columns = 1;
    bool operator==(const TileLayout &) const = default;
};

struct TilePlace {
    int column = 0;
    int line = 0; ///< lines of tiles above it
    int group = 0;
    bool operator==(const TilePlace &) const = default;
};

enum class Move { left, right, up, down, first, last, pageUp, pageDown };

int tileCount(const TileLayout &layout);
int lineCount(const TileLayout &layout);
TilePlace placeOf(const TileLayout &layout, int tile); ///< `tile` is one of the layout's

/// The tile that a move from `tile` leads to: left and right within its line, up and down to the nearest column. `page`
/// is the number of lines that are seen at once. The same tile when there is none in that direction.
int tileAfter(const TileLayout &layout, int tile, Move move, int page);
