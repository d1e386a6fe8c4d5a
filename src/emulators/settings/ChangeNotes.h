#pragma once

#include "emulators/settings/ChangeJournal.h"
#include "emulators/settings/ConfigFile.h"

/// The journal as edits in the background see it, one after another, and what they add to it.
struct ChangeNotes {
    ChangeJournal journal; ///< with what was added
    ReferenceDate now;
    QList<JournalUpdate> added; ///< in their order
    void add(const JournalUpdate &update);
};

/// Makes the edits in their file, as `editConfigFile` does, and notes them. Blocks.
ConfigFileEdit editNoted(const FileEdits &edits, const QString &emulatorID, ChangeNotes &notes,
                         BackUp backUp = BackUp::no);
