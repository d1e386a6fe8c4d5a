#pragma once

#include "base/Host.h"
#include "emulators/launch/GameIdentity.h"
#include "emulators/settings/ConfigEdit.h"

#include <QByteArray>
#include <QList>
#include <QStringList>
#include <optional>

/// One patch of RPCS3's list, for one game's title.
struct PS3Patch {
    QString hash; ///< of the executable that the patch is for
    QString name;
    QString title; ///< of the game, as the list has it; may be "All"
    QStringList serials; ///< may hold "All"
    QString notes;
    bool operator==(const PS3Patch &) const = default;
};

/// A patch with the game versions of each serial, in the order of `PS3Patch::serials`; "All" stands for every version.
struct PS3PatchEntry {
    PS3Patch patch;
    QList<QStringList> versions;
    bool operator==(const PS3PatchEntry &) const = default;
};

/// The 60 FPS patches of a list.
struct PS3PatchList {
    QList<PS3PatchEntry> entries; ///< in file order
    int blocks = 0; ///< that were read
    int broken = 0; ///< blocks and patches that could not be read
};

/// Reads a patch.yml. A broken block does not harm the others; nesting, aliases and sizes are limited. Slow for the
/// real list: call it in the background, and keep what it gives.
PS3PatchList readPs3Patches(const QByteArray &yaml);

/// A patch as a game's switch names it.
struct PS3PatchUse {
    PS3Patch patch;
    QString serial; ///< as the list has it
    QString version;
    bool operator==(const PS3PatchUse &) const = default;
};

/// Every patch for this game, in file order. Without a known version every listed one fits; where the list names none,
/// it is for all.
QList<PS3PatchUse> ps3PatchesFor(const GameIdentity &game, const QList<PS3PatchEntry> &entries);

/// Whether RPCS3's patch_config.yml switches the patch on; nothing where it says nothing about it.
std::optional<bool> ps3PatchSwitch(const QByteArray &config, const PS3PatchUse &use);

/// The edit of patch_config.yml that switches the patch, in the form that the text has already, if any.
ConfigEdit ps3PatchEdit(const QByteArray &config, const PS3PatchUse &use, bool on, Host host);

// The entries as our own file holds them.
QByteArray encodePs3Patches(const QList<PS3PatchEntry> &entries);
std::optional<QList<PS3PatchEntry>> decodePs3Patches(const QByteArray &json);
