#include "emulators/settings/ChangeNotes.h"

void ChangeNotes::add(const JournalUpdate &update)
{
    if (update.isEmpty()) return;
    apply(update, journal);
    added += update;
}

ConfigFileEdit editNoted(const FileEdits &edits, const QString &emulatorID, ChangeNotes &notes, BackUp backUp)
{
    JournalUpdate update;
    const ConfigFileEdit edit = editConfigFile(
        edits.file,
        [&](const QByteArray &text) { return edited(text, edits, emulatorID, notes.now, notes.journal, update); },
        backUp);
    using Outcome = ConfigFileEdit::Outcome;
    if (edit.outcome == Outcome::written || edit.outcome == Outcome::unchanged) notes.add(update);
    return edit;
}
