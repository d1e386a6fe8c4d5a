#include "play/supervision/WindowPlacer.h"

#include "platform/Accessibility.h"
#include "platform/Keys.h"
#include "platform/ProcessControl.h"
#include "play/supervision/EmulatorHabits.h"
#include "play/supervision/LaunchQuestion.h"
#include "play/supervision/PlacementLog.h"

#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

static constexpr auto patience = 30s;
static constexpr auto betweenTries = 2500ms;
static constexpr int timesSeen = 3;

WindowPlacer::WindowPlacer(const GameReach &reach, const RunningGame &game, const Placement &wanted,
                           LaunchQuestion &question, std::function<void(bool)> done)
    : m_reach(reach), m_game(game), m_wanted(wanted), m_question(question), m_done(std::move(done))
{ }

void WindowPlacer::start()
{
    m_deadline = m_reach.clock.awake() + patience;
    step();
}

void WindowPlacer::setPaused(bool paused)
{
    if (m_paused && !paused) m_deadline = m_reach.clock.awake() + patience;
    m_paused = paused;
}

void WindowPlacer::again(std::chrono::milliseconds delay)
{
    m_next = m_reach.clock.after(delay, [this] { step(); });
}

PlayTarget WindowPlacer::target() const
{
    return playTarget(m_reach.windows.displays(), m_wanted.displayName);
}

std::optional<WindowState> WindowPlacer::probe() const
{
    return probeGameWindow(m_reach.windowsOf(m_game.pid), target(), m_reach.host);
}

void WindowPlacer::step()
{
    if (!m_reach.processes.isAlive(m_game.pid) || !m_reach.windows.isAvailable()) return finish(false);
    if (m_paused) return again(500ms);
    if (m_reach.clock.awake() >= m_deadline) return finish(false);
    const auto goOn = [this] {
        m_deadline = m_reach.clock.awake() + patience;
        m_stable = 0;
        step();
    };
    if (m_question.handle(goOn)) return;

    const auto state = probe();
    const bool loader = state && state->window.id != m_known && isLoader(state->window.geometry.size(), m_game.engine);
    if (!state || loader) {
        m_stable = 0;
        return again(400ms);
    }
    m_known = state->window.id;
    const PlayTarget target = this->target();
    if (!state->onTarget && !target.mainDisplay) return move(*state, target);
    if (m_wanted.fullScreen && !state->fullScreen) return tryFullScreen(*state);
    if (++m_stable == timesSeen) return finish(true);
    again(500ms);
}

void WindowPlacer::move(const WindowState &state, const PlayTarget &target)
{
    const QSize size = state.window.geometry.size();
    m_reach.log.write(u"move window "_s + logText(size) + u" to "_s + logText(target.display.geometry));
    m_reach.windows.move(state.window.id, placeOn(target.display.geometry, size));
    m_moved = true;
    m_stable = 0;
    again(800ms);
}

void WindowPlacer::tryFullScreen(const WindowState &state)
{
    m_stable = 0;
    if (m_lastTry && m_reach.clock.awake() - *m_lastTry <= betweenTries) return again(500ms);
    if (m_moved || m_tries > 0)
        bringForward(state.window.id);
    else
        judgeFocus();
}

// A window that was moved, or has refused once, may be behind others, and some emulators go full screen only in front.
void WindowPlacer::bringForward(quint64 window)
{
    m_reach.windows.activate(window);
    m_next = m_reach.clock.after(350ms, [this, window] {
        if (m_paused) return again(500ms);
        m_reach.windows.activate(window);
        m_next = m_reach.clock.after(300ms, [this] { judgeFocus(); });
    });
}

void WindowPlacer::judgeFocus()
{
    m_next = m_reach.clock.after(m_reach.isInFront(m_game.pid) ? 300ms : 600ms, [this] { act(); });
}

// Looks again first: two of the ways would undo what a late window manager has done meanwhile.
void WindowPlacer::act()
{
    const auto state = probe();
    if (!state || state->fullScreen || m_paused) return again(500ms);
    const AppWindow &window = state->window;
    const int way = m_tries % 3;
    m_reach.log.write(u"full screen %1 try %2 way %3 (game active: %4, moved: %5)"_s.arg(
        logText(window.geometry.size()), QString::number(m_tries + 1), QString::number(way),
        logText(m_reach.isInFront(m_game.pid)), logText(m_moved)));
    ++m_tries;
    m_lastTry = m_reach.clock.awake();
    again(500ms);
    const int display = target().index;
    const bool asksEmulator = way == 1 || (way == 0 && keepsItsMenuBar(m_game.engine));
    if (asksEmulator && !window.fullScreen)
        pressMenuEntry(window, display);
    else if (way == 0 || window.fullScreen)
        setFullScreen(window, display);
    else
        pressKey(window, display);
}

// A window that is in the state but not in the place, as after a change of displays, has to leave the state first.
void WindowPlacer::setFullScreen(const AppWindow &window, int display)
{
    m_reach.windows.activate(window.id);
    if (window.fullScreen) m_reach.windows.setFullScreen(window.id, false, display);
    m_reach.windows.setFullScreen(window.id, true, display);
}

void WindowPlacer::pressMenuEntry(const AppWindow &window, int display)
{
    const std::weak_ptr<bool> alive = m_alive;
    const auto instead = [this, alive, window, display] {
        if (!alive.expired()) setFullScreen(window, display);
    };
    m_reach.accessibility.menu(m_reach.processes.tree(m_game.pid), {}, [this, alive, instead](const auto &menu) {
        if (alive.expired()) return;
        const auto entry = fullScreenEntry(menu);
        if (!entry) return instead();
        m_reach.accessibility.press(*entry, [instead](bool pressed) {
            if (!pressed) instead();
        });
    });
}

// A key goes to whatever window has the keyboard.
void WindowPlacer::pressKey(const AppWindow &window, int display)
{
    const auto key = fullScreenKey(m_game.engine, m_reach.host);
    if (!key || !m_reach.isInFront(m_game.pid) || !m_reach.keys.press(*key)) setFullScreen(window, display);
}

void WindowPlacer::finish(bool placed)
{
    m_next.reset();
    std::exchange(m_done, nullptr)(placed);
}
