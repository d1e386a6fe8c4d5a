#pragma once

#include "base/ReferenceDate.h"
#include "emulators/settings/ConfigEdit.h"

#include <QHash>

/// One key that Velko has changed in an emulator's file and not put back.
struct EmulatorChange {
    QString emulatorID;
    QString file;
    ConfigFormat format = ConfigFormat::ini;
    QStringList section;
    QString key;
    QStringList old; ///< what stood there before Velko's first change: one for each place; empty: nothing
    QString written; ///< what Velko wrote last
    ReferenceDate when;
    bool listed = false; ///< an element that was added beside others of its name
    bool operator==(const EmulatorChange &) const = default;

    /// Whether the other one is about the same place of the same file.
    bool isAt(const EmulatorChange &other) const;
};

/// Everything that Velko has changed in emulators' files.
struct ChangeJournal {
    QList<EmulatorChange> changes; ///< one for each place, in the order of the first change
    QHash<QString, ReferenceDate>
        quieted; ///< by file: when the keys that avoid questions were written, once and for all
    bool operator==(const ChangeJournal &) const = default;

    const EmulatorChange *at(const EmulatorChange &place) const; ///< nothing: Velko has not changed it
};

/// What an edit adds to a journal. Edits happen in the background, the journal lives on the main thread.
struct JournalUpdate {
    QList<EmulatorChange> changed; ///< take the place of what the journal holds for the same place
    QList<EmulatorChange> gone; ///< are as the user had them
    QHash<QString, ReferenceDate> quieted;
    bool isEmpty() const { return changed.isEmpty() && gone.isEmpty() && quieted.isEmpty(); }
};
void apply(const JournalUpdate &update, ChangeJournal &journal);

/// Makes one file's edits in its text and notes them. A value that the user changed since Velko's last change counts as
/// the user's, one that Velko only changes further keeps what the user had. Nothing when the text cannot be edited.
std::optional<QByteArray> edited(const QByteArray &text, const FileEdits &edits, const QString &emulatorID,
                                 ReferenceDate now, const ChangeJournal &journal, JournalUpdate &update);

/// Puts changes of one file back in its text. A value that is not the one Velko wrote is the user's and stays:
/// `changedSince` gets it.
std::optional<QByteArray> putBack(const QByteArray &text, const QList<EmulatorChange> &changes,
                                  QList<EmulatorChange> &changedSince);

/// The journal's file, a JSON object. A file that does not decode counts as empty, and so does an entry of it.
ChangeJournal decodeJournal(const QByteArray &json);
QByteArray encodeJournal(const ChangeJournal &journal);
