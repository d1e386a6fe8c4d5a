#include "library/SessionClock.h"

#include <utility>

using namespace std::chrono_literals;

static double inSeconds(std::chrono::milliseconds time)
{
    return double(time.count()) / 1000;
}

SessionClock::SessionClock(Clock &clock, std::function<void(const QList<PlayedStretch> &, const QDateTime &)> counted)
    : m_clock(clock), m_counted(std::move(counted))
{ }

void SessionClock::start(const QString &gameID, qint64 pid)
{
    if (!m_sessions.contains(gameID)) m_sessions[gameID].countedUpTo = m_clock.awake();
    m_sessions[gameID].pids.insert(pid);
    if (!m_timer) m_timer = m_clock.every(20s, [this] { tick(); });
}

void SessionClock::setPaused(const QString &gameID, bool paused)
{
    const auto session = m_sessions.find(gameID);
    if (session == m_sessions.end() || session->paused == paused) return;
    session->uncounted += session->sinceThen(m_clock.awake());
    session->paused = paused;
}

/// The time played up to now, from when this was asked last.
std::chrono::milliseconds SessionClock::Session::sinceThen(std::chrono::milliseconds now)
{
    const auto stretch = now - std::exchange(countedUpTo, now);
    return paused ? 0ms : stretch;
}

double SessionClock::seconds(const QString &gameID) const
{
    const auto session = m_sessions.constFind(gameID);
    if (session == m_sessions.cend()) return 0;
    Session now = *session;
    return inSeconds(now.counted + now.uncounted + now.sinceThen(m_clock.awake()));
}

void SessionClock::tick()
{
    QList<PlayedStretch> stretches;
    for (auto session = m_sessions.begin(); session != m_sessions.end(); ++session) {
        const auto stretch = session->sinceThen(m_clock.awake()) + std::exchange(session->uncounted, 0ms);
        if (stretch <= 0ms) continue;
        session->counted += stretch;
        stretches += {session.key(), inSeconds(stretch)};
    }
    if (!stretches.isEmpty()) m_counted(stretches, m_clock.now());
}

std::optional<SessionClock::Ended> SessionClock::end(qint64 pid)
{
    for (auto session = m_sessions.begin(); session != m_sessions.end(); ++session) {
        if (!session->pids.remove(pid)) continue;
        if (!session->pids.isEmpty()) return {};
        const QString gameID = session.key();
        tick();
        return remove(gameID);
    }
    return {};
}

QList<SessionClock::Ended> SessionClock::endAll()
{
    tick();
    QList<Ended> all;
    for (const QString &gameID : m_sessions.keys())
        all += remove(gameID);
    return all;
}

SessionClock::Ended SessionClock::remove(const QString &gameID)
{
    const Session session = m_sessions.take(gameID);
    if (m_sessions.isEmpty()) m_timer.reset();
    return {gameID, inSeconds(session.counted)};
}
