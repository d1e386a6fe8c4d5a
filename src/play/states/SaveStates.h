#pragma once

#include "platform/Clock.h"
#include "platform/LocalSockets.h"
#include "platform/Places.h"
#include "play/RunningGame.h"
#include "play/states/SaveStatePolicy.h"
#include "play/states/StateFacts.h"

#include <QHash>
#include <QObject>
#include <memory>

class Accessibility;
class InstalledEmulators;
class Keys;
class LibraryStore;
class ProcessControl;
class Tasks;
class Windows;
struct MenuEntry;

/// Through what an emulator is reached. All of it outlives whoever is given it.
struct StateReach {
    const Places &places;
    Clock &clock;
    Tasks &tasks;
    Windows &windows;
    Keys &keys;
    Accessibility &accessibility;
    ProcessControl &processes;
    LocalSockets &sockets;
};

/// Saves and loads the running game's state by the emulator's own command, in the best way that works. A save counts
/// only once its file has changed and is complete. One command at a time; another one meanwhile is ignored. The game
/// must not be frozen. Main thread only; what it is given outlives it.
class SaveStates : public QObject {
    Q_OBJECT
public:
    SaveStates(const StateReach &reach, LibraryStore &library, const InstalledEmulators &emulators,
               QObject *parent = nullptr);
    ~SaveStates() override;

    /// What can be done for this game. Whether the user has given the emulator keys of its own is looked up meanwhile;
    /// `policyChanged` tells when that changes the answer.
    SaveStatePolicy policy(const RunningGame &game);

    void save(const RunningGame &game);
    void load(const RunningGame &game);
    /// After the game's window is in its place: loads the state when the game was started to go on from it and its
    /// emulator could not do so at its start. Says so when the state was not there.
    void continueFromState(const RunningGame &game);
    bool busy() const { return m_command != nullptr; }

signals:
    void policyChanged();
    void finished(const Message &toast, const QString &symbol);

private:
    /// The command under way.
    struct Command {
        RunningGame game;
        StateCommand what = StateCommand::save;
        bool atLaunch = false;
        QList<qint64> pids;
        StateFacts facts;
        QList<StateWay> ways; ///< not yet tried
        int rounds = 1; ///< through all ways, with this one
        bool reached = false; ///< some way has reached the emulator
        bool menusOutOfReach = false; ///< on this desktop
        bool showsNoMenus = false; ///< the emulator, as one in a sandbox may not
        quint64 window = 0; ///< that must be in front for the key
        std::chrono::milliseconds end{0}; ///< of what is waited for, in the clock's awake time
        bool looking = false;
        std::optional<StateFile> growing; ///< the changed state as the last look saw it
        Timer timer;
    };

    void begin(const RunningGame &game, StateCommand what, bool atLaunch);
    void start(const StateFacts &facts);
    void tryAllWays();
    void tryNextWay();
    void askInterface();
    void pressKey();
    void waitForWindow();
    void searchMenu();
    void pressEntry(const QList<MenuEntry> &entries);
    void asked(bool reached); ///< what came of the way that was tried
    void look();
    void looked(const QList<StateFile> &now);
    void succeed();
    void fail();
    void finish(const Message &toast, const QString &symbol);
    bool wants(int token) const { return m_command && token == m_token; }

    StateReach m_reach;
    LibraryStore &m_library;
    const InstalledEmulators &m_emulators;
    std::unique_ptr<Command> m_command;
    int m_token = 0; ///< what comes back with an older one belongs to a command that is over
    QHash<QString, bool> m_keysBound; ///< by emulator; absent: not looked up yet
};
