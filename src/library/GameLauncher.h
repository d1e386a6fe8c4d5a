#pragma once

#include "base/Result.h"
#include "library/GameSettings.h"

#include <QString>
#include <functional>
#include <optional>

/// One game to be started.
struct LaunchRequest {
    QString title;
    QString path; ///< exists, unless it vanished since it was looked at
    QString consoleID;
    GameSettings settings;
    std::optional<QString> statePath; ///< a save state to resume from
};

/// A game whose program runs.
struct StartedGame {
    qint64 pid = 0;
    QString applicationID; ///< desktop id, Flatpak id or program name
    QString engine; ///< identifier of the emulator; "nxnative" or "native" for a game that is itself a program
    QString logFile; ///< what the program prints
    QList<Message> shortcomings; ///< what of the game's settings could not be written; the game runs all the same
};

/// Why a game was not started.
struct LaunchRefusal {
    Message message;
    QString emulatorToSetUp; ///< the emulator that must be installed or set up first; empty: another reason

    LaunchRefusal(Message why, QString emulatorID = {})
        : message(std::move(why)), emulatorToSetUp(std::move(emulatorID))
    { }
    bool operator==(const LaunchRefusal &) const = default;
};

using LaunchResult = Result<StartedGame, LaunchRefusal>;

/// Starts games for the library, which does not know how. Main thread; `done` comes at most once, on the main thread,
/// and never from inside `launch`.
class GameLauncher {
public:
    virtual ~GameLauncher() = default;
    virtual void launch(const LaunchRequest &request, std::function<void(LaunchResult)> done) = 0;

    /// Gives up launches that have started no program yet: none starts, and `done` does not come.
    virtual void cancel() = 0;

    /// What will play the game, in the words of `StartedGame::engine`, as far as is known now; empty: not known. Quick.
    virtual QString engineFor(const LaunchRequest &) const { return {}; }

    /// The emulator in which the user has to set the controller up before this game is played, and wants to be told so;
    /// empty: none, as far as is known. Quick.
    virtual QString controllerToSetUp(const LaunchRequest &) const { return {}; }
};
