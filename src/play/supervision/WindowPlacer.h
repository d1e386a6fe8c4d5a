#pragma once

#include "platform/Clock.h"
#include "play/GameReach.h"
#include "play/RunningGame.h"
#include "play/supervision/GameWindow.h"
#include "play/supervision/PlayTarget.h"

#include <functional>

class LaunchQuestion;

/// What is wanted of a game's window.
struct Placement {
    QString displayName; ///< empty: the main display
    bool fullScreen = true;
};

/// Brings a game's window onto its display and makes it full screen, in the three ways that emulators leave open, one
/// after the other. Window managers act late and refuse, so nothing counts until it was seen three times in a row.
class WindowPlacer {
public:
    /// `done` is called once, with whether the window is in place, at the latest 30 s after the start or the end of a
    /// question; it may destroy the placer.
    WindowPlacer(const GameReach &reach, const RunningGame &game, const Placement &wanted, LaunchQuestion &question,
                 std::function<void(bool placed)> done);

    void start();
    void setPaused(bool paused); ///< nothing is done to a paused game, and its time does not run out
    bool hasSeenGame() const { return m_known != 0; } ///< a window that is no loader

private:
    void step();
    void again(std::chrono::milliseconds delay);
    void move(const WindowState &state, const PlayTarget &target);
    void tryFullScreen(const WindowState &state);
    void bringForward(quint64 window);
    void judgeFocus();
    void act();
    void setFullScreen(const AppWindow &window, int display);
    void pressMenuEntry(const AppWindow &window, int display);
    void pressKey(const AppWindow &window, int display);
    void finish(bool placed);
    PlayTarget target() const;
    std::optional<WindowState> probe() const;

    GameReach m_reach;
    RunningGame m_game;
    Placement m_wanted;
    LaunchQuestion &m_question;
    std::function<void(bool)> m_done;
    Timer m_next;
    std::chrono::milliseconds m_deadline{0};
    std::optional<std::chrono::milliseconds> m_lastTry;
    quint64 m_known = 0; ///< a window that was large once is no loader, also when it leaves full screen
    int m_stable = 0; ///< times in a row that it was seen in place
    int m_tries = 0;
    bool m_moved = false;
    bool m_paused = false;
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true); ///< for answers that come later
};
