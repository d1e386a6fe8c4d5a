#pragma once

#include "emulators/finding/InstalledEmulator.h"
#include "platform/LocalSockets.h"
#include "play/states/SaveStatePolicy.h"
#include "play/states/StateFiles.h"

/// The game whose states are asked about, and the copies of its emulator, the preferred one first.
struct StateQuestion {
    QString engine;
    QString gamePath;
    QList<InstalledEmulator> copies;
};

/// What a command needs to know about the emulator.
struct StateFacts {
    std::optional<KeyStroke> save; ///< absent: no key does it
    std::optional<KeyStroke> load;
    bool keysBound = false; ///< by the user, in an emulator without keys of its own
    LocalAddress address; ///< of its own interface
    QList<StatePlace> places;
    QList<StateFile> files; ///< there now
};

/// Reads the emulator's settings and looks for states: call it in the background.
StateFacts stateFacts(const StateQuestion &question, const Places &places);
