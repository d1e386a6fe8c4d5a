#pragma once

#include "emulators/finding/InstalledEmulator.h"
#include "emulators/settings/ConfigEdit.h"
#include "platform/Places.h"

#include <QMap>
#include <QString>
#include <QStringList>

/// Where this copy keeps xemu.toml: beside an AppImage that has one there, else in its data folder.
QString xemuSettingsFile(const InstalledEmulator &xemu, const Places &places);

/// The texts of the section [sys.files] of xemu.toml, by key. What cannot be read counts as not set.
QMap<QString, QString> xemuSystemFiles(const QString &toml);

/// The system files that xemu cannot run without. Keys are those of [sys.files].
struct XemuFiles {
    bool hasSettings = false; ///< there is a xemu.toml
    QMap<QString, QString> named; ///< in xemu.toml
    QMap<QString, QString> toEnter; ///< lie in xemu's folder, and xemu.toml names no file in their place; it can
    QStringList missing; ///< labels of those that xemu will not find even then, in the order in which it shows them
    QStringList waiting; ///< names of files that lie in xemu's folder and can't be entered yet, for want of a xemu.toml
};
/// Looks at the disk.
XemuFiles xemuFiles(const InstalledEmulator &xemu, const Places &places);

/// The edits that enter files in xemu.toml.
FileEdits xemuFileEdits(const InstalledEmulator &xemu, const QMap<QString, QString> &files, const Places &places);
