#include "play/supervision/GameWatcher.h"

#include "platform/ProcessControl.h"
#include "play/supervision/PlacementLog.h"

#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

static constexpr auto windowPatience = 90s;
static constexpr int looks = 3;

/// What a look waits for after the one before.
static std::chrono::milliseconds delayBefore(int look)
{
    return look == 2 ? 5s : 8s;
}

GameWatcher::GameWatcher(const GameReach &reach, const RunningGame &game, const Placement &wanted, Occasion occasion,
                         WatcherEvents events)
    : m_reach(reach), m_game(game), m_wanted(wanted), m_occasion(occasion), m_events(std::move(events)),
      m_question(reach, game, m_events.changed)
{ }

/// Without a curtain the player sees the game from its first window on, and its buttons are the game's.
bool GameWatcher::starting() const
{
    const bool unseen = m_curtain || !m_placer || !m_placer->hasSeenGame();
    return questionOpen() || (m_occasion == Occasion::start && m_look == 1 && !m_placed && unseen);
}

PlayTarget GameWatcher::target() const
{
    return playTarget(m_reach.windows.displays(), m_wanted.displayName);
}

std::optional<WindowState> GameWatcher::probe() const
{
    return probeGameWindow(m_reach.windowsOf(m_game.pid), target(), m_reach.host);
}

void GameWatcher::start(bool showCurtain)
{
    if (showCurtain) raiseCurtain();
    m_waitBegun = m_reach.clock.awake();
    // Not at once: whoever starts it is told nothing from inside the call.
    m_next = m_reach.clock.after(0ms, [this] { waitForWindow(); });
}

void GameWatcher::setPaused(bool paused)
{
    m_paused = paused;
    if (m_placer) m_placer->setPaused(paused);
}

void GameWatcher::displaysChanged()
{
    if (target().mainDisplay) lowerCurtain();
}

void GameWatcher::waitForWindow()
{
    const auto probeLater = [this] { m_next = m_reach.clock.after(300ms, [this] { waitForWindow(); }); };
    const bool wait = m_reach.processes.isAlive(m_game.pid) && m_reach.windows.isAvailable()
        && m_reach.clock.awake() - m_waitBegun < windowPatience;
    if (!wait || probe()) return look();
    const auto waitAnew = [this, probeLater] {
        m_waitBegun = m_reach.clock.awake();
        probeLater();
    };
    if (!m_question.handle(waitAnew)) probeLater();
}

void GameWatcher::look()
{
    if (!m_reach.processes.isAlive(m_game.pid) || !m_reach.windows.isAvailable()) {
        m_look = looks;
        return lookOver();
    }
    if (m_paused) {
        m_next = m_reach.clock.after(500ms, [this] { look(); });
        return;
    }
    const bool atOnce = m_look == 1 && m_curtain;
    if (!atOnce) {
        const auto state = probe();
        const bool mainDisplay = target().mainDisplay;
        const bool inPlace = state && (state->onTarget || mainDisplay) && (state->fullScreen || !m_wanted.fullScreen);
        if (inPlace) tellPlaced();
        if (!state || inPlace) return lookOver();
        if (!mainDisplay) raiseCurtain();
    }
    m_placer = std::make_unique<WindowPlacer>(m_reach, m_game, m_wanted, m_question,
                                              [this](bool placed) { placingDone(placed); });
    m_placer->start();
}

void GameWatcher::placingDone(bool placed)
{
    m_placer.reset();
    m_reach.log.write(
        u"%1 look %2: %3"_s.arg(m_game.name, QString::number(m_look), placed ? u"placed"_s : u"gave up"_s));
    if (placed || probe()) tellPlaced();
    m_next = m_reach.clock.after(900ms, [this] {
        lowerCurtain();
        focusGame();
        lookOver();
    });
}

void GameWatcher::lookOver()
{
    if (m_look >= looks) {
        lowerCurtain();
        m_next.reset();
        return std::exchange(m_events.finished, nullptr)();
    }
    m_next = m_reach.clock.after(delayBefore(++m_look), [this] { look(); });
    m_events.changed();
}

void GameWatcher::tellPlaced()
{
    if (!std::exchange(m_placed, true)) m_events.placed();
}

void GameWatcher::raiseCurtain()
{
    if (!std::exchange(m_curtain, true)) m_events.curtainWanted(m_wanted.displayName);
}

void GameWatcher::lowerCurtain()
{
    if (std::exchange(m_curtain, false)) m_events.curtainDone();
}

void GameWatcher::focusGame()
{
    const auto state = probe();
    if (state && !m_paused) m_reach.windows.activate(state->window.id);
}
