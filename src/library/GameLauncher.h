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

/// Starts games for the library, which does not know how. Main thread; `done` comes once, on the main thread, and never
/// from inside `launch`.
class GameLauncher {
public:
    virtual ~GameLauncher() = default;
    virtual void launch(const LaunchRequest &request, std::function<void(Result<StartedGame>)> done) = 0;
};
