#include "ui/models/TileLayout.h"

#include <algorithm>
#include <numeric>

static int linesOf(int tiles, int columns)
{
    return (tiles + columns - 1) / columns;
}

int tileCount(const TileLayout &layout)
{
    return std::accumulate(layout.groups.begin(), layout.groups.end(), 0);
}

int lineCount(const TileLayout &layout)
{
    return std::accumulate(layout.groups.begin(), layout.groups.end(), 0,
                           [&](int lines, int tiles) { return lines + linesOf(tiles, layout.columns); });
}

TilePlace placeOf(const TileLayout &layout, int tile)
{
    TilePlace place;
    for (const int tiles : layout.groups) {
        if (tile < tiles) break;
        tile -= tiles;
        place.line += linesOf(tiles, layout.columns);
        ++place.group;
    }
    place.line += tile / layout.columns;
    place.column = tile % layout.columns;
    return place;
}

/// The tile of that line that is nearest to the column; lines outside the grid count as its first or last.
static int nearestTile(const TileLayout &layout, int line, int column)
{
    line = std::clamp(line, 0, lineCount(layout) - 1);
    int before = 0;
    for (const int tiles : layout.groups) {
        const int lines = linesOf(tiles, layout.columns);
        if (line < lines) return before + std::min(line * layout.columns + column, tiles - 1);
        line -= lines;
        before += tiles;
    }
    return before - 1;
}

int tileAfter(const TileLayout &layout, int tile, Move move, int page)
{
    const int last = tileCount(layout) - 1;
    if (last < 0) return -1;
    tile = std::clamp(tile, 0, last);
    const TilePlace here = placeOf(layout, tile);
    switch (move) {
    case Move::left:
        return here.column == 0 ? tile : tile - 1;
    case Move::right:
        return tile < last && placeOf(layout, tile + 1).line == here.line ? tile + 1 : tile;
    case Move::up:
        return here.line == 0 ? tile : nearestTile(layout, here.line - 1, here.column);
    case Move::down:
        return here.line + 1 == lineCount(layout) ? tile : nearestTile(layout, here.line + 1, here.column);
    case Move::pageUp:
        return nearestTile(layout, here.line - page, here.column);
    case Move::pageDown:
        return nearestTile(layout, here.line + page, here.column);
    case Move::first:
        return 0;
    case Move::last:
        return last;
    }
    return tile;
}
