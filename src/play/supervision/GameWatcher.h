#pragma once

#include "play/supervision/LaunchQuestion.h"
#include "play/supervision/WindowPlacer.h"

/// What a watcher tells. `finished` may destroy it, the others not.
struct WatcherEvents {
    std::function<void()> changed; ///< what it answers
    std::function<void(const QString &displayName)> curtainWanted;
    std::function<void()> curtainDone;
    std::function<void()> placed; ///< once, when the window is where it belongs or has to stay where it is
    std::function<void()> finished; ///< the window is left alone from now on
};

/// Waits for the window of one game and looks at it three times: emulators move and resize their windows once more
/// while they load.
class GameWatcher {
public:
    enum class Occasion { start, displaysChanged };

    GameWatcher(const GameReach &reach, const RunningGame &game, const Placement &wanted, Occasion occasion,
                WatcherEvents events);

    void start(bool showCurtain);
    void setPaused(bool paused);
    void displaysChanged(); ///< no curtain stays for a display that is gone

    bool starting() const; ///< the game is not there yet
    bool questionOpen() const { return m_question.isOpen(); }
    bool curtainUp() const { return m_curtain; }

private:
    void waitForWindow();
    void look();
    void placingDone(bool placed);
    void lookOver();
    void tellPlaced();
    void raiseCurtain();
    void lowerCurtain();
    void focusGame();
    PlayTarget target() const;
    std::optional<WindowState> probe() const;

    GameReach m_reach;
    RunningGame m_game;
    Placement m_wanted;
    Occasion m_occasion;
    WatcherEvents m_events;
    LaunchQuestion m_question;
    std::unique_ptr<WindowPlacer> m_placer;
    Timer m_next;
    std::chrono::milliseconds m_waitBegun{0};
    int m_look = 1;
    bool m_curtain = false;
    bool m_placed = false;
    bool m_paused = false;
};
