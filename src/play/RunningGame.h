#pragma once

#include "base/Host.h"
#include "library/GameLauncher.h"

#include <QDateTime>
#include <QString>

/// The game that runs in front of the user: what the overlay and the supervision act on.
struct RunningGame {
    QString gameID; ///< of its library entry
    QString title;
    qint64 pid = 0; ///< the process that was started; the game's window may belong to a descendant
    QString engine; ///< identifier of the emulator; "nxnative" or "native" for a game that is itself a program
    QString name; ///< display name of the emulator; for a game that is itself a program its title
    QDateTime start;
    bool isNative() const { return engine == QLatin1String("native") || engine == QLatin1String("nxnative"); }
    bool operator==(const RunningGame &) const = default;
};

RunningGame runningGame(const QString &gameID, const QString &title, const StartedGame &program, Host host,
                        const QDateTime &start);
