#include "play/supervision/LaunchQuestion.h"

#include "platform/ProcessControl.h"
#include "play/supervision/GameWindow.h"
#include "play/supervision/PlacementLog.h"

#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

LaunchQuestion::LaunchQuestion(const GameReach &reach, const RunningGame &game, std::function<void()> changed)
    : m_reach(reach), m_game(game), m_changed(std::move(changed))
{ }

bool LaunchQuestion::handle(std::function<void()> answered)
{
    const auto question = findQuestion(m_reach.windowsOf(m_game.pid));
    if (!question) return false;
    m_reach.log.write(m_game.name + u" asks a question: handed over"_s);
    m_reach.windows.activate(question->id);
    m_answered = std::move(answered);
    m_look = m_reach.clock.every(400ms, [this] { look(); });
    m_changed();
    return true;
}

void LaunchQuestion::look()
{
    if (m_reach.processes.isAlive(m_game.pid) && findQuestion(m_reach.windowsOf(m_game.pid))) return;
    m_look.reset();
    m_changed();
    std::exchange(m_answered, nullptr)();
}
