#pragma once

#include "emulators/EmulatorFinder.h"

#include <QObject>

class Tasks;

/// What is installed, as far as the last look knows. Main thread only; looks in the background.
class InstalledEmulators : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool known READ known NOTIFY changed)
public:
    InstalledEmulators(const Places &places, const Workspace &workspace, const FileIndex &index,
                       const Preferences &preferences, Tasks &tasks, QObject *parent = nullptr);

    bool known() const { return m_known; } ///< false until the first look is over
    QList<InstalledEmulator> copies(const QString &emulatorID) const;
    std::optional<InstalledEmulator>
    forConsole(const QString &consoleID) const; ///< ready to play: emulator and, for RetroArch, core
    Q_INVOKABLE void refresh();

signals:
    void changed();

private:
    Places m_places;
    const Workspace &m_workspace;
    const FileIndex &m_index;
    const Preferences &m_preferences;
    Tasks &m_tasks;
    bool m_known = false;
    int m_token = 0; ///< a result that comes back with an older one is dropped
    QHash<QString, QList<InstalledEmulator>> m_copies;
    QHash<QString, InstalledEmulator> m_byConsole;
};
