#pragma once

#include "emulators/launch/LaunchPlan.h"

/// The emulator's arguments with the game's path among them. Each of them is one element whatever is in the path.
QStringList macArguments(const LaunchRequest &request, const QString &emulatorID, const LaunchFacts &facts);
QStringList linuxArguments(const LaunchRequest &request, const QString &emulatorID, const LaunchFacts &facts);

/// With several displays the window is first placed, from outside, and full screen would only be in the way.
bool startsFullScreen(const LaunchRequest &request, const LaunchFacts &facts);

/// Whether a Linux emulator shows its own frame counter through its arguments or our settings for it.
bool showsOwnCounter(const QString &emulatorID);
