#pragma once

#include "emulators/finding/InstalledEmulator.h"
#include "platform/Places.h"

#include <optional>

/// Which libretro cores play a console in RetroArch, and where they are. The functions that take `Places` read files:
/// call them in the background.

/// File names without ".so", the preferred one first; empty for a console that RetroArch is not used for.
QStringList coreNames(const QString &consoleID);

/// The Debian package that installs one of these cores; empty when there is none.
QString corePackage(const QString &consoleID);

/// A folder that RetroArch's configuration sets under a key such as "system_directory"; absent when the text does not
/// set it. "~" stands for `home`.
std::optional<QString> retroArchDirectory(const QString &key, const QString &configText, const QString &home);

/// `libretro_directory` of RetroArch's configuration; absent when the text does not set it. "~" stands for `home`.
std::optional<QString> libretroDirectory(const QString &configText, const QString &home);

/// The folder of a copy's own configuration. An AppImage may carry a home of its own beside it.
QString retroArchFolder(const InstalledEmulator &retroArch, const Places &places);

/// Where this copy's cores may lie, the configured folder first. A Flatpak does not see the system's libraries.
QStringList coreFolders(const InstalledEmulator &retroArch, const Places &places);

/// The core's file: for the first name that is in any of the folders.
std::optional<QString> findCore(const QString &consoleID, const QStringList &folders);
