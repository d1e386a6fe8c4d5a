#pragma once

#include "base/Host.h"
#include "emulators/launch/GameIdentity.h"

#include <QByteArray>
#include <QList>
#include <QStringList>
#include <optional>

/// One patch in a file of the PS4 repository.
struct PS4Patch {
    QString name;
    QString appVer; ///< the game version that it is for; "mask": every version
    bool operator==(const PS4Patch &) const = default;
};

/// One XML file of the repository: the patches of one game, which may have several serials.
struct PS4PatchFile {
    QString file; ///< relative to the folder of the index
    QStringList serials;
    QList<PS4Patch> patches;
    bool operator==(const PS4PatchFile &) const = default;
};

/// Nothing when the XML is damaged, too large, or declares anything (a document type, entities): nothing is expanded.
std::optional<PS4PatchFile> readPs4Patches(const QByteArray &xml, const QString &file);

/// Whether the file has a 60 FPS patch for this version; an unknown one fits every patch.
bool has60FpsPatch(const PS4PatchFile &file, const QString &version);

/// The XML with `isEnabled` of every 60 FPS patch for this version as wanted, and of all others as in `present`, an
/// earlier copy that shadPS4 may have changed. Nothing when it cannot be read.
std::optional<QByteArray> withPs4Patches(const QByteArray &xml, const QByteArray &present, const QString &version,
                                         bool on);

/// shadPS4's files.json of a folder of patches with this file in it: on Linux XML file name → serials, beside what is
/// there; on the Mac with the state of the 60 FPS patches, too. A damaged one is made anew.
QByteArray withPs4File(const QByteArray &filesJson, const QString &name, const QStringList &serials, bool on,
                       Host host);

// The index as our own file, index.json, holds it.
QByteArray encodePs4Index(const QList<PS4PatchFile> &files);
std::optional<QList<PS4PatchFile>> decodePs4Index(const QByteArray &json);
