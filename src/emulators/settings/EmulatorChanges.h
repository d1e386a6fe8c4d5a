#pragma once

#include "base/Message.h"
#include "emulators/settings/ChangeNotes.h"
#include "platform/Clock.h"
#include "platform/Places.h"

#include <QObject>
#include <QStringList>

class ProcessControl;
class Tasks;

/// What came of putting changes back.
struct PutBackReport {
    QList<EmulatorChange> done; ///< are as the user had them
    QList<EmulatorChange> changedSince; ///< the user has changed these since: they stay, and are the user's again
    QList<Message> failures; ///< of files that could not be written; their changes stay in the journal
};

/// The report in one sentence.
Message sentence(const PutBackReport &report, const QString &emulatorName);

/// Puts changes back, file by file. Blocks.
PutBackReport putBackInFiles(const QList<EmulatorChange> &changes);

/// Knows every key that Velko has changed in emulators' files, and puts them back when the user asks. Its file is
/// "emulator-changes.json" in the data folder, read when it is first needed and written whole after each change. Main
/// thread only; what it is given outlives it.
class EmulatorChanges : public QObject {
    Q_OBJECT
public:
    EmulatorChanges(const Places &places, Clock &clock, Tasks &tasks, const ProcessControl &processes,
                    QObject *parent = nullptr);

    QList<EmulatorChange> of(const QString &emulatorID) const; ///< in the order of the first change
    const ChangeJournal &journal() const;

    /// For edits in the background; what they have added is recorded when they are back.
    ChangeNotes notes() const;
    void record(const ChangeNotes &notes);

    /// Puts everything back that Velko has changed in this emulator's files, as soon as none of its programs runs; they
    /// would write their own settings over it. Ignored when it is waiting or there is nothing to put back.
    Q_INVOKABLE void putBack(const QString &emulatorID);
    Q_INVOKABLE void cancelPutBack(const QString &emulatorID); ///< while it waits
    Q_INVOKABLE bool isWaiting(const QString &emulatorID) const { return m_waiting.contains(emulatorID); }

signals:
    void changed(); ///< the changes, or what waits
    void putBackFinished(const QString &emulatorID, const PutBackReport &report);

private:
    QString file() const { return m_places.dataFolder() + QStringLiteral("/emulator-changes.json"); }
    void read() const;
    void save();
    void record(const QList<JournalUpdate> &updates);
    void look();
    void begin(const QString &emulatorID);

    Places m_places;
    Clock &m_clock;
    Tasks &m_tasks;
    const ProcessControl &m_processes;
    mutable bool m_read = false;
    mutable ChangeJournal m_journal;
    QStringList m_waiting; ///< emulators whose changes go back when they have ended
    bool m_looking = false;
    Timer m_timer;
};
