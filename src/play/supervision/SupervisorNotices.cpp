#include "play/supervision/SupervisorNotices.h"

#include "play/ControllerInput.h"
#include "play/supervision/GameSupervisor.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

SupervisorNotices::SupervisorNotices(const GameSupervisor &supervisor, const ControllerInput &controller,
                                     GuideNotices &notices)
    : m_supervisor(supervisor), m_controller(controller), m_notices(notices)
{
    connect(&supervisor, &GameSupervisor::changed, this, &SupervisorNotices::update);
}

void SupervisorNotices::begin(const RunningGame &game)
{
    m_game = game;
    m_shown = Topic::nothing;
    update();
    // A game whose window is left alone is not watched while it starts.
    if (m_shown == Topic::nothing) m_hudToken = m_notices.show(notice(Topic::introduction), 8s);
}

void SupervisorNotices::end()
{
    m_game.reset();
    update();
}

SupervisorNotices::Topic SupervisorNotices::topic() const
{
    if (!m_game) return Topic::nothing;
    if (m_supervisor.question() == GameSupervisor::Question::launch) return Topic::launchQuestion;
    if (m_supervisor.question() == GameSupervisor::Question::quit) return Topic::quitQuestion;
    if (m_supervisor.leaving()) return Topic::closing;
    return m_supervisor.placing() ? Topic::introduction : Topic::nothing;
}

void SupervisorNotices::update()
{
    const Topic before = std::exchange(m_shown, topic());
    // The end by force may have been put off, since the emulator still saves.
    const bool putOff = m_shown == Topic::closing && m_notices.hasCountedDown() && m_supervisor.quitSecondsLeft() > 0;
    if (m_shown == before && !putOff) return;
    if (m_shown != Topic::nothing)
        m_hudToken = m_notices.show(notice(m_shown));
    else if (before == Topic::introduction && m_game && m_supervisor.game() && m_notices.shows(m_hudToken))
        m_hudToken = m_notices.show(notice(Topic::introduction), 5s);
    else
        m_notices.hide(m_hudToken);
}

GuideHUD SupervisorNotices::notice(Topic topic) const
{
    const QStringList emulator{m_game->name};
    switch (topic) {
    case Topic::nothing:
        break;
    case Topic::introduction:
        if (m_controller.controllerName().isEmpty())
            return {.text = {u"Control + Escape: Velko menu"_s, {}}, .icon = u"keyboard"_s};
        return {.text = {u"Hold View, press Menu: Velko menu"_s, {}},
                .combo = u"guide"_s,
                .detail = {u"Share button: take a screenshot"_s, {}}};
    case Topic::launchQuestion:
        return {.text = {u"Answer %@'s question to start the game"_s, emulator},
                .icon = u"questionmark.circle"_s,
                .detail = {u"B: cancel the launch"_s, {}}};
    case Topic::quitQuestion:
        return {.text = {u"Answer %@'s question to finish quitting"_s, emulator}, .icon = u"questionmark.circle"_s};
    case Topic::closing:
        return {.text = {u"Closes by itself in %ld s, no need to press ⌘Q"_s, {}},
                .busy = true,
                .forceAfter = std::chrono::seconds(m_supervisor.quitSecondsLeft())};
    }
    return {};
}
