#pragma once

/// What the panel over the game shows.
enum class GuidePage {
    menu,
    info,
    settings,
    controller, ///< how to make the controller work in this emulator
};
