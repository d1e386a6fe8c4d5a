#pragma once

#include "base/Host.h"
#include "platform/ProcessControl.h"

/// Those of the running processes that are this emulator's, however it is installed: by the name of the program, which
/// is the same in a Flatpak, or that of the AppImage it lies in.
QList<qint64> processesOf(const QString &emulatorID, Host host, const QList<RunningProcess> &running);
