#pragma once

#include <QString>

/// Who sets the controller up in an emulator.
enum class ControllerClass {
    automatic, ///< Velko writes the mapping before each game
    nothingToDo, ///< the emulator takes an Xbox controller by itself
    manual, ///< the user maps it once
};

/// Also of games that are themselves programs, "nxnative" and "native", which take it by themselves.
ControllerClass controllerClass(const QString &emulatorID);
