#pragma once

#include "platform/Clock.h"
#include "play/GameReach.h"
#include "play/RunningGame.h"

#include <functional>

/// Hands control to the user while a starting emulator asks something.
class LaunchQuestion {
public:
    LaunchQuestion(const GameReach &reach, const RunningGame &game, std::function<void()> changed);

    bool isOpen() const { return m_look != nullptr; }
    /// False, and nothing happens, when nothing is asked. Else `answered` is called once the question is gone or the
    /// program has ended; it may ask again.
    bool handle(std::function<void()> answered);

private:
    void look();

    GameReach m_reach;
    RunningGame m_game;
    std::function<void()> m_changed;
    std::function<void()> m_answered;
    Timer m_look;
};
