#pragma once

#include "emulators/finding/InstalledEmulator.h"
#include "platform/Places.h"

/// Where one copy of an emulator keeps what is its own. The folders need not exist.
struct EmulatorFolders {
    QString config; ///< the folder of its settings file
    QString data; ///< states, system files and the like; often the same
    bool operator==(const EmulatorFolders &) const = default;
};

/// A Flatpak has folders of its own; so has a native copy or an AppImage that carries its portable marker. Looks at the
/// disk: call it in the background. Empty for an unknown emulator.
EmulatorFolders emulatorFolders(const InstalledEmulator &copy, const Places &places);

/// The file that holds the emulator's settings; empty for one whose settings Velko gives on the command line only.
QString settingsFile(const QString &emulatorID, const EmulatorFolders &folders);
