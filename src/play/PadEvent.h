#pragma once

#include <cstdint>

/// What a controller asks for, whatever screen receives it. The order is the stored value, from 0 on; where an event
/// may be absent, absence is stored as 14.
enum class PadEvent : std::uint8_t {
    left,
    right,
    up,
    down,
    confirm, ///< do what the focused thing does
    back, ///< go back, close, cancel
    favorite, ///< of the focused game
    details, ///< of the focused game
    prevShelf, ///< or the previous tab
    nextShelf,
    menu, ///< Menu alone
    guide, ///< View and Menu together
    prevGame,
    nextGame,
};
