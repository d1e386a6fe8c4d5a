#pragma once

#include "platform/Workspace.h"

#include <QString>
#include <QStringList>

/// One copy of an emulator on this machine.
struct InstalledEmulator {
    QString emulatorID;
    ApplicationKind kind = ApplicationKind::native;
    QString path; ///< the program, AppImage or bundle; for Flatpak the exported desktop entry
    QString applicationID; ///< desktop id, Flatpak id or bundle identifier; empty for a bare program or AppImage
    QStringList command; ///< argument vector to which the game's arguments are added
    bool operator==(const InstalledEmulator &) const = default;
};

/// A copy with all that it takes to play one console.
struct ReadyEmulator {
    InstalledEmulator emulator;
    QString core; ///< RetroArch: the core's file; else empty
    bool operator==(const ReadyEmulator &) const = default;
};
