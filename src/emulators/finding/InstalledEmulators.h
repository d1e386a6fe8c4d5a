#pragma once

#include "emulators/finding/EmulatorFinder.h"

#include <QObject>

class Tasks;

/// What is installed, as far as the last look knows. Main thread only; looks in the background, also by itself when the
/// user decides something about emulators.
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

    /// The same with the core, for a launch that need not search: nothing when a decision of the user has made the last
    /// look out of date, or when what it found has gone from its place since.
    std::optional<ReadyEmulator> stillReadyFor(const QString &consoleID) const;

    bool mangoHud() const { return m_look.mangoHud; } ///< the frame counter for programs that have none

    const EmulatorFinder &finder() const { return m_finder; } ///< for a search of one's own, in the background
    Q_INVOKABLE void refresh();

signals:
    void changed();

private:
    struct Look {
        QHash<QString, QList<InstalledEmulator>> copies;
        QHash<QString, ReadyEmulator> byConsole;
        bool mangoHud = false;
    };
    void preferenceChanged(const QString &key);

    Places m_places;
    EmulatorFinder m_finder;
    const Preferences &m_preferences;
    Tasks &m_tasks;
    bool m_known = false;
    bool m_outOfDate = false;
    int m_token = 0; ///< a result that comes back with an older one is dropped
    Look m_look;
};
