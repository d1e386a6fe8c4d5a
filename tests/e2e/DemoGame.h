#pragma once

#include "VirtualDisplay.h"

#include <chrono>
#include <optional>

/// What the battery of the demo game's cartridge says.
struct DemoGameSave {
    int evenings = 0;
    int lanterns = 0;
    quint32 frames = 0;
};

bool writeDemoGame(const VirtualDisplay &display); ///< the file, into the folder "Games" of the home

/// Puts the demo game into the home and has Velko find it. False when Velko reported a failure.
bool installDemoGame(const VirtualDisplay &display);
inline const QString demoGameTitle = QStringLiteral("Lanterns");

std::optional<DemoGameSave> demoGameSave(const VirtualDisplay &display);

/// Waits until the game fills the screen and its colours are right; answers the game's window.
std::optional<DesktopWindow> waitForDemoGame(VirtualDisplay &display, std::chrono::milliseconds limit);

/// Whether the picture changes, which a game that stands still does not do.
bool isMoving(VirtualDisplay &display);
