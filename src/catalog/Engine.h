#pragma once

/// How a console's games are played.
enum class Engine {
    nxnative, ///< rebuilt into a native application by the build pipeline
    emulator, ///< in an external emulator
    unavailable, ///< no way to play it yet
    nativeApp, ///< the game is itself a program
};
