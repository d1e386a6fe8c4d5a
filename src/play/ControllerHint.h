#pragma once

#include <QSet>
#include <chrono>

/// What is known of the game in front when a controller's button is pressed.
struct PressInGame {
    qint64 pid = 0;
    std::chrono::milliseconds played{0}; ///< since the game started
    bool setUpByHand = false; ///< by an emulator that has to be told about the controller, and was not yet
};

/// Guesses that the controller does not work in a game: its player presses buttons in the first two minutes, and the
/// emulator is one that does not know the controller by itself. Each game is judged once.
class ControllerHint {
public:
    bool isJudged(qint64 pid) const { return m_hintDone.contains(pid); }
    bool pressed(const PressInGame &press); ///< true: now is the time to say so
    void forget() { m_hintPresses = 0; } ///< another game starts

private:
    QSet<qint64> m_hintDone; ///< processes
    int m_hintPresses = 0;
};
