#pragma once

#include "Assembler.h"

#include <array>

/// The still part of the picture, ready for the Game Boy's video memory.
/// 32 x 18 tiles: the screen shows 20 columns; the rest is there for the ripples, which shift lines sideways.
struct Scene {
    static constexpr int columns = 32, rows = 18;
    static constexpr int skyRows = 11; ///< sky and hills; the water begins below
    static constexpr int barRow = 16; ///< the last two rows are the bar with the counters
    static constexpr int waterLine = skyRows * 8;
    static constexpr int barLine = barRow * 8;

    Bytes tiles; ///< 16 bytes each; tiles for moving things first, then digits, then the background
    std::array<std::array<std::uint8_t, columns>, rows> map{}; ///< number of the tile at each place
    std::array<std::uint8_t, rows> palettes{}; ///< palette of each row of tiles
    Bytes backgroundPalettes; ///< 8 palettes of 4 colours of 15 bits
    Bytes objectPalettes; ///< the same for moving things

    // Numbers of the first tile of each thing. All are 16 lines high: two tiles, one below the
    // other; the own lantern and its reflection are two such columns.
    static constexpr int skyLantern = 0, reflection = 2, ownLantern = 4, ownReflection = 8, star = 12, digits = 14;

    bool fits() const { return tiles.size() <= 256 * 16; }
};

Scene drawScene();
