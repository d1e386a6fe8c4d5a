#pragma once

#include "base/Host.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

/// One emulator that Velko can drive.
struct EmulatorDef {
    QString id;
    QString name;
    QStringList appNames; ///< names under which a copy may be installed, the preferred one first
    QStringList bundleIDs; ///< mac: bundle identifiers; linux: desktop ids without ".desktop", native ones first
    QString website;
    std::optional<QString> cask; ///< the Homebrew cask that installs it
    std::optional<QStringList>
        args; ///< what stands before the game's path; absent: the file is opened with the application

    // Linux only; empty on the Mac.
    QString flatpakID;
    QStringList programs; ///< program names on PATH, the preferred one first
    QStringList
        appImagePrefixes; ///< lower case; an AppImage's file name begins with one of them and goes on with no letter
};

/// All of them, in their order: 13 on the Mac; on Linux retroarch stands in openemu's place.
const QList<EmulatorDef> &emulatorDefs(Host host);

/// Nothing for an unknown identifier; lives as long as the program.
const EmulatorDef *emulatorWithID(const QString &id, Host host);
