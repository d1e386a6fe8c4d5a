#pragma once

#include "emulators/finding/EmulatorFolders.h"
#include "emulators/launch/GameIdentity.h"
#include "emulators/patches/Ps3Patches.h"
#include "emulators/patches/Ps4Patches.h"
#include "platform/Places.h"

#include <QDateTime>
#include <optional>

/// The patch lists on this machine. All of it reads or writes files: call it in the background.

/// How a list stands.
struct PatchListState {
    bool present = false;
    bool fresh = false; ///< looked for at the server in the last seven days
    bool operator==(const PatchListState &) const = default;
};
PatchListState ps3ListState(const EmulatorFolders &rpcs3, const Places &places, const QDateTime &now);
PatchListState ps4ListState(const Places &places, const QDateTime &now);

QString ps3ListFile(const EmulatorFolders &rpcs3); ///< RPCS3's own patch.yml

/// The hash of the present patch.yml, by which the server knows whether it has a newer one; empty without a file.
QByteArray ps3ListHash(const EmulatorFolders &rpcs3);

/// Takes the server's answer: a newer list replaces patch.yml whole, an unchanged one counts as looked for. False when
/// the answer is of no use; the present list stays then.
bool takePs3Answer(const QByteArray &json, const EmulatorFolders &rpcs3, const Places &places, const QDateTime &now);

/// The 60 FPS patches of patch.yml, from our own index where it is as new as the list.
QList<PS3PatchEntry> ps3Entries(const EmulatorFolders &rpcs3, const Places &places);

/// Replaces the cache by the XML files of a downloaded archive and builds index.json. False when the archive is of no
/// use; the present cache stays then.
bool takePs4Archive(const QString &archive, const Places &places, const QDateTime &now);
QList<PS4PatchFile> ps4Files(const QString &serial, const Places &places); ///< those of the index for a game
QString ps4CacheFolder(const Places &places);
