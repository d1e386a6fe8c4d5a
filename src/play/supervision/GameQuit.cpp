#include "play/supervision/GameQuit.h"

#include "platform/ProcessControl.h"
#include "play/supervision/EmulatorHabits.h"
#include "play/supervision/GameWindow.h"
#include "play/supervision/PlacementLog.h"

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

static constexpr auto lookEvery = 250ms;
static constexpr auto questionAfter = 2500ms;
static constexpr auto noticeAfter = 150ms;
static constexpr auto answeredPatience = 15s;
static constexpr auto handOverLimit = 90s;
static constexpr std::array checks{12s, 16s, 22s};
static constexpr auto lastCheck = 16s; ///< after it the game counts as ended, whatever it does
static constexpr auto stragglerPatience = 1s;

GameQuit::GameQuit(const GameReach &reach, const RunningGame &game, Request request, std::function<void()> changed,
                   std::function<void()> finished)
    : m_reach(reach), m_game(game), m_request(request), m_changed(std::move(changed)), m_finished(std::move(finished))
{ }

void GameQuit::start()
{
    m_begin = m_reach.clock.awake();
    for (const AppWindow &window : m_reach.windowsOf(m_game.pid)) {
        if (isQuestion(window)) m_quitWindowsBefore.insert(window.id);
    }
    m_written = m_reach.processes.bytesWritten(m_game.pid);
    for (const qint64 pid : m_reach.processes.tree(m_game.pid))
        m_processes.insert(pid);
    askPolitely();
    m_secondsTold = secondsLeft();
    m_looks = m_reach.clock.every(lookEvery, [this] { look(); });
}

// A stopped program takes no request, and about one that doesn't answer kwin and xfwm4 ask the user whether to kill it:
// so it goes on first. There is never a second signal, at which Dolphin would end while it still asks. It goes to
// whoever draws the window, since a wrapper around the emulator, as that of a Flatpak, would pass nothing on.
void GameQuit::askPolitely()
{
    m_reach.processes.thaw(m_game.pid);
    const auto window = findGameWindow(m_reach.windowsOf(m_game.pid));
    const bool again = m_request == Request::again;
    if (window && (again || endsByItsWindow(m_game.engine))) return m_reach.windows.requestClose(window->id);
    if (again) return;
    const bool ownWindow = window && m_processes.contains(window->pid);
    m_reach.processes.askToQuit(ownWindow ? window->pid : m_game.pid);
}

std::optional<AppWindow> GameQuit::newQuestion() const
{
    QList<AppWindow> windows = m_reach.windowsOf(m_game.pid);
    windows.removeIf([this](const AppWindow &window) { return m_quitWindowsBefore.contains(window.id); });
    return findQuestion(windows);
}

void GameQuit::look()
{
    if (!m_reach.processes.isAlive(m_game.pid)) return sweep();
    watchWrites();
    if (std::exchange(m_secondsTold, secondsLeft()) != secondsLeft()) m_changed();
    if (m_handedOver)
        watchQuestion();
    else
        insist(); // last: it may finish, and that be the end of this
}

void GameQuit::watchWrites()
{
    // The number of one that has ended may soon be that of another program.
    m_processes.removeIf([this](qint64 pid) { return !m_reach.processes.isAlive(pid); });
    for (const qint64 pid : m_reach.processes.tree(m_game.pid))
        m_processes.insert(pid);
    const qint64 written = m_reach.processes.bytesWritten(m_game.pid);
    if (written > m_written) m_wroteAt = m_reach.clock.awake();
    m_written = written;
}

bool GameQuit::stillWrites() const
{
    return m_wroteAt && m_reach.clock.awake() - *m_wroteAt <= 1s;
}

void GameQuit::insist()
{
    const auto question = newQuestion();
    if (m_questionSeen && !question) m_confirmPressed = true;
    m_questionSeen = question.has_value();
    if (question && elapsed() > questionAfter && !m_quiet && !m_handOverSpent) return handOver(*question);
    if (m_checks < int(checks.size()) && elapsed() >= checks[m_checks]) return check();
    if (!m_forced && elapsed() > forceAfter() && !stillWrites()) force();
}

void GameQuit::handOver(const AppWindow &question)
{
    m_reach.log.write(u"quit: "_s + m_game.name + u" asks a question: handed over"_s);
    m_handedOver = true;
    m_handedOverAt = m_reach.clock.awake();
    m_questionGoneSince.reset();
    m_reach.windows.activate(question.id);
    m_notice = m_reach.clock.after(noticeAfter, [this] {
        m_noticeShown = true;
        m_changed();
    });
    m_changed();
}

void GameQuit::watchQuestion()
{
    const bool wasGone = m_questionGoneSince.has_value();
    if (newQuestion())
        m_questionGoneSince.reset();
    else if (!wasGone)
        m_questionGoneSince = m_reach.clock.awake();
    if (m_questionGoneSince.has_value() != wasGone) m_changed();
    const auto now = m_reach.clock.awake();
    const bool answered = m_questionGoneSince && now - *m_questionGoneSince > answeredPatience;
    if (answered || m_quiet || now - m_handedOverAt > handOverLimit) endHandOver();
}

/// The user had the time for an answer, and the emulator for acting on it: everything counts anew.
void GameQuit::endHandOver()
{
    m_handedOver = m_noticeShown = m_questionSeen = m_confirmPressed = false;
    m_handOverSpent = true;
    m_notice.reset();
    m_begin = m_reach.clock.awake();
    m_checks = 0;
    m_changed();
}

void GameQuit::check()
{
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(elapsed()).count();
    m_reach.log.write(u"quit: %1 still there after %2 s, killed"_s.arg(m_game.name, QString::number(seconds)));
    m_reach.processes.thaw(m_game.pid);
    force();
    if (checks[m_checks++] >= lastCheck) finish();
}

void GameQuit::force()
{
    m_forced = true;
    for (const qint64 pid : std::as_const(m_processes))
        m_reach.processes.kill(pid);
}

/// The game has ended; what it had started gets a moment to follow.
void GameQuit::sweep()
{
    m_processes.removeIf([this](qint64 pid) { return !m_reach.processes.isAlive(pid); });
    if (!m_endedAt) m_endedAt = m_reach.clock.awake();
    if (!m_processes.isEmpty() && m_reach.clock.awake() - *m_endedAt < stragglerPatience) return;
    force();
    finish();
}

void GameQuit::finish()
{
    m_looks.reset();
    m_notice.reset();
    if (m_finished) std::exchange(m_finished, nullptr)();
}

bool GameQuit::questionShown() const
{
    return m_handedOver && m_noticeShown && !m_questionGoneSince;
}

std::chrono::milliseconds GameQuit::forceAfter() const
{
    return m_confirmPressed ? 15s : 4s;
}

int GameQuit::secondsLeft() const
{
    if (m_forced || m_endedAt) return 0;
    const auto end = stillWrites() ? std::chrono::milliseconds(checks[0])
                                   : std::min<std::chrono::milliseconds>(forceAfter(), checks[0]);
    return int(std::chrono::ceil<std::chrono::seconds>(std::max(end - elapsed(), 0ms)).count());
}
