#pragma once

#include "platform/Clock.h"
#include "play/GameReach.h"
#include "play/RunningGame.h"

#include <QSet>
#include <functional>
#include <optional>

/// Ends one game: asks it once, politely; gives the user the time to answer what the emulator asks; ends it by force,
/// but not while it saves; and leaves no process of it behind.
class GameQuit {
public:
    /// `again`: it has been asked before, and went on. Many emulators end at once, without saving, at a second signal,
    /// so only its window is closed this time.
    enum class Request { first, again };

    /// `changed` tells of the answers below. `finished` comes once, never from inside `start`, when the game has ended
    /// or nothing can end it; it may destroy this.
    GameQuit(const GameReach &reach, const RunningGame &game, Request request, std::function<void()> changed,
             std::function<void()> finished);

    void start();
    void look(); ///< now, without waiting for the next look
    void beQuiet() { m_quiet = true; } ///< the user is elsewhere: nothing is handed over any more

    qint64 pid() const { return m_game.pid; }
    bool handedOver() const { return m_handedOver; }
    bool questionShown() const; ///< the user is to be told of the emulator's question
    int secondsLeft() const; ///< until the end by force; 0 when that has come

private:
    std::optional<AppWindow> newQuestion() const;
    void askPolitely();
    void watchWrites();
    void handOver(const AppWindow &question);
    void watchQuestion();
    void endHandOver();
    void insist();
    void check();
    void force();
    void sweep();
    void finish();
    bool stillWrites() const;
    std::chrono::milliseconds elapsed() const { return m_reach.clock.awake() - m_begin; }
    std::chrono::milliseconds forceAfter() const;

    GameReach m_reach;
    RunningGame m_game;
    Request m_request;
    std::function<void()> m_changed;
    std::function<void()> m_finished;
    Timer m_looks;
    Timer m_notice; ///< until the user is told of a question
    std::chrono::milliseconds m_begin{0}; ///< of the quit, or of its going on after a hand-over
    QSet<quint64> m_quitWindowsBefore; ///< questions that were open when it began
    QSet<qint64> m_processes; ///< of the game, also those that have left its tree since
    qint64 m_written = 0;
    std::optional<std::chrono::milliseconds> m_wroteAt;
    std::chrono::milliseconds m_handedOverAt{0};
    std::optional<std::chrono::milliseconds> m_questionGoneSince;
    std::optional<std::chrono::milliseconds> m_endedAt;
    int m_checks = 0; ///< final checks that were made
    int m_secondsTold = 0;
    bool m_quiet = false;
    bool m_handedOver = false;
    bool m_handOverSpent = false; ///< the user had the time
    bool m_noticeShown = false;
    bool m_questionSeen = false;
    bool m_confirmPressed = false; ///< a question was answered: the emulator may be saving now
    bool m_forced = false;
};
