#pragma once

#include "base/Host.h"
#include "platform/Windows.h"

class Accessibility;
class Clock;
class Keys;
class PlacementLog;
class ProcessControl;

/// Through what a running game is reached. All of it outlives whoever is given it.
struct GameReach {
    Host host;
    Clock &clock;
    Windows &windows;
    Accessibility &accessibility;
    Keys &keys;
    ProcessControl &processes;
    PlacementLog &log;

    /// The windows of the program and its descendants, and one of another program that belongs to one of them and has
    /// the keyboard: a desktop's question whether to wait, a file chooser.
    QList<AppWindow> windowsOf(qint64 pid) const;
    bool isInFront(qint64 pid) const; ///< whether the window with the keyboard is one of these
};
