#pragma once

#include "base/Host.h"
#include "emulators/settings/ConfigEdit.h"

/// Whether one of the connected controllers is one that the automatic mapping is for.
bool hasXboxController(const QStringList &controllerNames);

/// The mapping of the first controller onto the first pad; empty for an emulator that is not of the automatic class.
QList<ConfigEdit> controllerEdits(const QString &emulatorID, Host host);
