#pragma once

#include "emulators/bios/Bios.h"

#include <QHash>
#include <QObject>
#include <deque>
#include <functional>

class EmulatorChanges;
class InstalledEmulators;
class Preferences;
class Tasks;

/// The system files of all consoles: looks for them, and installs what the user drops. Main thread only; looks and
/// copies in the background. What it is given outlives it.
class BiosFiles : public QObject {
    Q_OBJECT
public:
    BiosFiles(const Places &places, const InstalledEmulators &emulators, const Preferences &preferences,
              Workspace &workspace, Tasks &tasks, EmulatorChanges &changes, QObject *parent = nullptr);

    /// As the last look found it; nothing before the first one.
    std::optional<BiosState> state(const QString &consoleID) const;
    QList<BiosReport> reports(const QString &consoleID) const; ///< of the files that were dropped last, in their order
    bool installing(const QString &consoleID) const;

    Q_INVOKABLE void look(const QString &consoleID);

    /// Installs the files one after another; what is dropped while others are under way comes after them.
    Q_INVOKABLE void install(const QString &consoleID, const QStringList &files);

    /// For a command: each file's console is found by what the file is. `done` gets a report for each, in their order.
    void installAnywhere(const QStringList &files, std::function<void(QList<BiosReport>)> done);

signals:
    void changed(const QString &consoleID); ///< state, reports or installing

private:
    struct Card {
        std::optional<BiosState> state;
        QList<BiosReport> reports;
        int drops = 0; ///< under way or waiting
        int look = 0; ///< token of the last look
    };
    struct Drop {
        QString consoleID; ///< empty: found for each file
        QStringList files;
        std::function<void(QList<BiosReport>)> done;
    };

    void begin(Drop drop);
    void next();
    BiosReport withFirmwareStarted(BiosReport report, const QString &file,
                                   const std::optional<InstalledEmulator> &copy);

    Places m_places;
    const InstalledEmulators &m_emulators;
    const Preferences &m_preferences;
    Workspace &m_workspace;
    Tasks &m_tasks;
    EmulatorChanges &m_changes;
    QHash<QString, Card> m_cards;
    std::deque<Drop> m_waiting;
    bool m_busy = false;
};
