#pragma once

#include "platform/Windows.h"

/// Where a game is shown.
struct PlayTarget {
    Monitor display;
    int index = 0; ///< of the display among all
    bool mainDisplay = true; ///< no display of its own: the game stays where the desktop puts it
    bool operator==(const PlayTarget &) const = default;
};

/// The name of the display for a game that starts: the user's choice where it is connected, else the one with the
/// window that has the keyboard, since the user looks there, else the primary one.
QString chooseDisplay(const QList<Monitor> &displays, const QString &preferred, const QRect &activeWindow);

/// The target while it lasts: with fewer than two displays, or when it was unplugged, the main display is meant.
PlayTarget playTarget(const QList<Monitor> &displays, const QString &name);
