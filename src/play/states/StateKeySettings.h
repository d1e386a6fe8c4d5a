#pragma once

#include "emulators/finding/EmulatorFolders.h"
#include "play/states/SaveStatePolicy.h"

/// What an emulator's settings say about its keys for states.
struct StateKeySettings {
    bool readable = false; ///< else its usual keys hold
    std::optional<KeyStroke> save; ///< absent: no key of the keyboard does it
    std::optional<KeyStroke> load;
    bool operator==(const StateKeySettings &) const = default;
};

/// "Keyboard/Shift & Keyboard/F1" as DuckStation and PCSX2 write it; nothing for a binding of another device.
std::optional<KeyStroke> keyOfBinding(const QString &binding);

/// Reads the settings: call it in the background.
StateKeySettings stateKeySettings(const QString &engine, const EmulatorFolders &folders);
