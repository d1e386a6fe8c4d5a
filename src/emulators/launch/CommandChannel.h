#pragma once

#include <QByteArray>
#include <QString>

/// Where the emulator of a game takes commands. It follows from the game's path, so that whoever knows the game finds
/// the place again, and two games do not get in each other's way.

/// The UDP port of RetroArch.
quint16 retroArchPort(const QString &gamePath);

/// The socket of xemu's monitor, in a folder that a Flatpak shares with us. `flatpakID` is empty for another copy.
QString xemuSocket(const QString &gamePath, const QString &runtimeFolder, const QString &flatpakID);

/// The socket of PCSX2, which names it after a number in its settings.
QString pcsx2Socket(const QByteArray &settings, const QString &runtimeFolder);
