#pragma once

#include "base/Host.h"
#include "emulators/finding/EmulatorFolders.h"
#include "emulators/settings/ConfigEdit.h"
#include "library/GameSettings.h"

/// What a launch asks of an emulator's own settings file.
struct SettingsWish {
    QString emulatorID;
    Host host = Host::linux;
    EmulatorFolders folders;
    QString gamePath;
    GameSettings settings;
    QualityPreset quality = QualityPreset::medium; ///< the game's own, else the user's default
    QString gameFile; ///< RPCS3, Linux: holds the game's settings instead of the usual file where it exists
};

/// The edits that bring a game's settings into effect, as far as they do not go on the command line. A frame counter or
/// widescreen that the game does not ask for is put back to what the user had, and not turned off.
FileEdits settingsEdits(const SettingsWish &wish);

/// The same for the game's own file. The user has made it in the emulator, so only what was chosen for this very game
/// goes there.
FileEdits gameFileEdits(const SettingsWish &wish);

/// The keys that keep an emulator from asking questions when it starts or ends. Linux only.
QList<FileEdits> quietEdits(const QString &emulatorID, Host host, const EmulatorFolders &folders);

/// The rate at which RPCS3 draws, which a 60 FPS patch may want higher than the usual 60.
inline constexpr int usualVblankRate = 60;
FileEdits vblankRateEdits(const QString &file, int rate);

QString rpcs3GameFile(const EmulatorFolders &rpcs3, const QString &serial);
