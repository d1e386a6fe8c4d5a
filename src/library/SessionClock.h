#pragma once

#include "platform/Clock.h"

#include <QList>
#include <QMap>
#include <QSet>
#include <QString>
#include <functional>
#include <optional>

/// A stretch of play time that has just been counted.
struct PlayedStretch {
    QString gameID;
    double seconds = 0; ///< above 0
};

/// Counts the play time of running games in stretches of 20 seconds. Time that the machine slept or a game was paused
/// does not count. A game with several programs is one session, from the first start to the last end.
class SessionClock {
public:
    /// What was counted goes to `counted`, with the moment whose day it belongs to. No timer runs without a session.
    SessionClock(Clock &clock, std::function<void(const QList<PlayedStretch> &, const QDateTime &)> counted);

    struct Ended {
        QString gameID;
        double seconds = 0; ///< the whole session
    };

    void start(const QString &gameID, qint64 pid);
    /// Ignored for a game that does not run. What was played until then is counted with the next stretch: counting is
    /// followed by writing, for which nobody who pauses waits.
    void setPaused(const QString &gameID, bool paused);
    double seconds(const QString &gameID) const; ///< of the session up to now; 0 for a game that does not run
    void tick(); ///< counts up to now, without waiting for the timer
    std::optional<Ended> end(qint64 pid); ///< counts up to now; nothing while another program of the game runs
    QList<Ended> endAll();

private:
    struct Session {
        QSet<qint64> pids;
        bool paused = false;
        std::chrono::milliseconds countedUpTo{0};
        std::chrono::milliseconds uncounted{0}; ///< played before `countedUpTo`
        std::chrono::milliseconds counted{0};
        std::chrono::milliseconds sinceThen(std::chrono::milliseconds now);
    };
    Ended remove(const QString &gameID);

    Clock &m_clock;
    std::function<void(const QList<PlayedStretch> &, const QDateTime &)> m_counted;
    QMap<QString, Session> m_sessions;
    Timer m_timer;
};
