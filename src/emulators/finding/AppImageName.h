#pragma once

#include "catalog/EmulatorDef.h"

#include <QString>
#include <QStringList>

/// Whether a file is an AppImage of this emulator, going by its name: "pcsx2-v2.8.2-linux-appimage-x64-Qt.AppImage".
/// Debug builds, servers, separate launchers and builds for another processor are not. `architecture` is that of
/// QSysInfo.
bool isAppImageOf(const EmulatorDef &def, const QString &fileName, const QString &architecture);

/// Whether a name begins like the emulator's AppImages and goes on with no letter; so do folders it is unpacked into.
bool beginsLikeAppImageOf(const EmulatorDef &def, const QString &name);

/// The version that an AppImage's file name carries, highest first; names without one come last. Of two with the same
/// version the shorter name is first: what it leaves out is a special build.
QStringList newestFirst(QStringList fileNames);
