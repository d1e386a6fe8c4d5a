#pragma once

#include "base/Message.h"
#include "emulators/settings/ChangeNotes.h"
#include "emulators/settings/EmulatorSettings.h"

class ProcessControl;

/// How an emulator is to be set up for one launch.
struct SetUpOrder {
    SettingsWish wish;
    bool mapsController = false; ///< allowed, and a controller that the mapping is for is connected
    std::optional<int> vblankRate; ///< RPCS3: to be written; absent: left alone
    FileEdits found; ///< what the emulator is told of files that lie ready for it
    ChangeNotes notes;
};

struct SetUpOutcome {
    ChangeNotes notes;
    QList<Message> failures; ///< of files that stay as they were; the launch goes on
    bool controllerMapped = false; ///< the file now holds the mapping
    std::optional<int> vblankRate; ///< the one that was written
};

/// Writes a game's settings, the controller mapping and the keys that avoid questions into the emulator's files, each
/// file in one piece. Blocks.
SetUpOutcome setUpEmulator(const SetUpOrder &order, const ProcessControl &processes);
