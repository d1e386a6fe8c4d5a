#pragma once

#include "base/Host.h"
#include "emulators/ConfigEdit.h"

/// What it takes to play with an Xbox controller in an emulator.
enum class ControllerClass {
    automatic, ///< Velko writes the mapping before each game
    nothingToDo, ///< the emulator takes the controller by itself
    manual, ///< the user maps it once in the emulator
};
ControllerClass controllerClass(const QString &emulatorID);

/// Whether one of the connected controllers is one that the automatic mapping is for.
bool hasXboxController(const QStringList &controllerNames);

/// The mapping of the first controller onto the first pad; empty for an emulator that is not of the automatic class.
QList<ConfigEdit> controllerEdits(const QString &emulatorID, Host host);
