#pragma once

#include <QString>

/// The option that lets a Flatpak emulator reach a game, "--filesystem=FOLDER:ro"; empty when its own permissions reach
/// it already. Where states are kept beside the game the folder stays writable. `isFolder`: the game is one.
QString flatpakAccess(const QString &emulatorID, const QString &gamePath, bool isFolder, const QString &home);
