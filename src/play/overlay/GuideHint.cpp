#include "play/overlay/GuideHint.h"

#include "emulators/controllers/ControllerClass.h"
#include "platform/Preferences.h"

using namespace std::chrono_literals;

GuideHint::GuideHint(const GameReach &reach, const Preferences &preferences, QObject *parent)
    : QObject(parent), m_reach(reach), m_preferences(preferences)
{ }

void GuideHint::begin()
{
    m_judge.forget();
    hide();
}

void GuideHint::pressed(const RunningGame &game)
{
    if (m_judge.isJudged(game.pid) || !m_reach.isInFront(game.pid)) return;
    const PressInGame press{
        .pid = game.pid,
        .played = std::chrono::milliseconds(game.start.msecsTo(m_reach.clock.now())),
        .setUpByHand = controllerClass(game.engine) == ControllerClass::manual
            && !m_preferences.get(preference::controllerConfigured(game.engine)),
    };
    if (!m_judge.pressed(press)) return;
    m_visible = true;
    m_end = m_reach.clock.after(12s, [this] { hide(); });
    emit changed();
}

void GuideHint::hide()
{
    if (!m_visible) return;
    m_visible = false;
    m_end.reset();
    emit changed();
}
