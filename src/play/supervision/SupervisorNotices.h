#pragma once

#include "play/RunningGame.h"
#include "play/overlay/GuideNotices.h"

#include <optional>

class ControllerInput;
class GameSupervisor;

/// What the supervision has to say over the game: how to reach the menu while it starts, whose question is to be
/// answered, when it closes. Each is shown when its time begins and goes with it.
class SupervisorNotices : public QObject {
    Q_OBJECT
public:
    SupervisorNotices(const GameSupervisor &supervisor, const ControllerInput &controller, GuideNotices &notices);

    void begin(const RunningGame &game); ///< it has just started
    void end();

private:
    enum class Topic { nothing, introduction, launchQuestion, quitQuestion, closing };
    Topic topic() const;
    void update();
    GuideHUD notice(Topic topic) const;

    const GameSupervisor &m_supervisor;
    const ControllerInput &m_controller;
    GuideNotices &m_notices;
    std::optional<RunningGame> m_game;
    Topic m_shown = Topic::nothing;
    int m_hudToken = 0; ///< of what was shown last
};
