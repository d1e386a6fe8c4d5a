#pragma once

#include "emulators/finding/InstalledEmulator.h"
#include "platform/Places.h"

#include <QMap>
#include <QString>
#include <QStringList>

/// Where this copy keeps xemu.toml: beside an AppImage that has one there, else in its data folder.
QString xemuSettingsFile(const InstalledEmulator &xemu, const Places &places);

/// The texts of the section [sys.files] of xemu.toml, by key. What cannot be read counts as not set.
QMap<QString, QString> xemuSystemFiles(const QString &toml);

/// The labels of the system files that xemu cannot run without and that are not set, or not at their place (a look at
/// the disk). In the order in which xemu shows them.
QStringList missingXemuFiles(const QMap<QString, QString> &systemFiles);

/// The text of xemu.toml with these paths in [sys.files]; nothing else in it changes. Keys that are missing, and the
/// section, are added. Unchanged when it cannot be edited safely.
QString withXemuFiles(const QString &toml, const QMap<QString, QString> &systemFiles);
