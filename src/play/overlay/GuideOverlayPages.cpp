// What can be done on the pages of the menu over a game.
#include "emulators/controllers/ControllerClass.h"
#include "emulators/controllers/ControllerGuide.h"
#include "emulators/finding/InstalledEmulators.h"
#include "emulators/settings/QualityValue.h"
#include "library/LibraryStore.h"
#include "platform/Preferences.h"
#include "play/GameFreezer.h"
#include "play/overlay/GuideOverlay.h"
#include "play/shots/Screenshots.h"
#include "play/states/SaveStates.h"
#include "play/supervision/GameSupervisor.h"

#include <utility>

using namespace Qt::StringLiterals;

void GuideOverlay::show(GuidePage page)
{
    m_page = page;
    m_confirmQuit = false;
    emit changed();
}

void GuideOverlay::handle(PadEvent event)
{
    if (!m_open || m_quitStarted) return;
    switch (m_page) {
    case GuidePage::menu:
        return handleMenu(event);
    case GuidePage::info:
        if (event == PadEvent::back) show(GuidePage::menu);
        return;
    case GuidePage::settings:
        return handleSettings(event);
    case GuidePage::controller:
        return handleController(event);
    }
}

void GuideOverlay::handleMenu(PadEvent event)
{
    if (event == PadEvent::up)
        select(m_selection - 1);
    else if (event == PadEvent::down)
        select(m_selection + 1);
    else if (event == PadEvent::confirm)
        activate(m_items[m_selection]);
    else if (event == PadEvent::back)
        close();
}

void GuideOverlay::handleSettings(PadEvent event)
{
    if (event == PadEvent::up)
        select(m_settingsPad - 1);
    else if (event == PadEvent::down)
        select(m_settingsPad + 1);
    else if (event == PadEvent::left)
        changeSetting(-1);
    else if (event == PadEvent::right)
        changeSetting(1);
    else if (event == PadEvent::confirm)
        changeSetting(0);
    else if (event == PadEvent::back)
        show(GuidePage::menu);
}

void GuideOverlay::handleController(PadEvent event)
{
    if (event == PadEvent::up || event == PadEvent::left)
        select(m_controllerPad - 1);
    else if (event == PadEvent::down || event == PadEvent::right)
        select(m_controllerPad + 1);
    else if (event == PadEvent::confirm)
        pressControllerButton();
    else if (event == PadEvent::back)
        show(m_opener);
}

void GuideOverlay::select(int row)
{
    if (!m_open || m_quitStarted) return;
    const auto move = [row](int &present, qsizetype count) {
        return std::exchange(present, qBound(0, row, int(count) - 1)) != present;
    };
    bool moved = false;
    if (m_page == GuidePage::menu) moved = move(m_selection, m_items.size());
    if (m_page == GuidePage::settings) moved = move(m_settingsPad, settings().size());
    if (m_page == GuidePage::controller) moved = move(m_controllerPad, 2);
    if (!moved) return;
    m_confirmQuit = false;
    emit changed();
}

void GuideOverlay::choose(int row)
{
    select(row);
    handle(PadEvent::confirm);
}

void GuideOverlay::step(int row, int by)
{
    select(row);
    if (m_page == GuidePage::settings && !m_quitStarted) changeSetting(by);
}

void GuideOverlay::activate(GuideItem item)
{
    switch (item) {
    case GuideItem::resume:
        return close();
    case GuideItem::saveState:
    case GuideItem::loadState:
        return askForState(item);
    case GuideItem::screenshot:
        return takeScreenshot();
    case GuideItem::info:
        return show(GuidePage::info);
    case GuideItem::settings:
        m_settingsPad = 0;
        return show(GuidePage::settings);
    case GuideItem::library:
        return backToVelko();
    case GuideItem::quit:
        return quit();
    }
}

Message GuideOverlay::aboutStates() const
{
    return m_session ? m_parts.states.policy(*m_session).subtitle : Message();
}

void GuideOverlay::askForState(GuideItem item)
{
    const RunningGame game = *m_session;
    const SaveStatePolicy policy = m_parts.states.policy(game);
    if (!policy.acts()) return answer(policy.explanation, u"info.circle"_s);
    close(); // a game that stands still answers no question about its menus, and its window isn't in front for a key
    if (item == GuideItem::saveState)
        m_parts.states.save(game);
    else
        m_parts.states.load(game);
}

void GuideOverlay::takeScreenshot()
{
    if (m_quitStarted) return; // nothing takes the panel off an emulator that closes
    // A notice over the game would be in the picture.
    const bool covered = m_open || m_notices.hud() || m_hint.visible();
    close();
    m_notices.hide();
    m_hint.hide();
    m_parts.screenshots.take(m_session, covered);
}

/// The game stays frozen.
void GuideOverlay::backToVelko()
{
    leave();
    if (m_front.show) m_front.show();
}

void GuideOverlay::quit()
{
    if (!m_confirmQuit) {
        m_confirmQuit = true;
        emit changed();
        return;
    }
    m_confirmQuit = false;
    m_quitStarted = true; // the panel stays over the emulator while it closes
    emit changed();
    m_parts.freezer.thaw();
    m_parts.supervisor.quit();
    supervised();
}

GameSettings GuideOverlay::gameSettings() const
{
    const GameEntry *game = m_session ? m_parts.library.game(m_session->gameID) : nullptr;
    if (game && game->settings) return *game->settings;
    GameSettings fresh;
    fresh.fps60 = m_parts.preferences.get(preference::default60FPS);
    return fresh;
}

SettingsSupport GuideOverlay::support() const
{
    const QualityPreset standing = defaultQuality(m_parts.preferences.get(preference::defaultQuality));
    return settingsSupport(m_session ? m_session->engine : QString(), gameSettings().quality.value_or(standing),
                           m_reach.host);
}

bool GuideOverlay::counterMissing() const
{
    return m_session && counterNeedsMangoHud(m_session->engine, m_reach.host) && !m_parts.emulators.mangoHud();
}

QList<GuideSetting> GuideOverlay::settings() const
{
    const bool byHand = m_session && controllerClass(m_session->engine) == ControllerClass::manual;
    return guideSettings(support(), byHand, m_reach.host);
}

void GuideOverlay::changeSetting(int by)
{
    const GuideSetting setting = settings().value(m_settingsPad);
    if (setting == GuideSetting::controller) {
        if (by != 0) return;
        m_opener = GuidePage::settings;
        m_controllerPad = 0;
        return show(GuidePage::controller);
    }
    m_parts.library.setSettings(m_session->gameID, stepped(gameSettings(), setting, by, support()));
}

QStringList GuideOverlay::controllerSteps() const
{
    return m_session ? controllerGuide(m_session->engine) : QStringList();
}

void GuideOverlay::pressControllerButton()
{
    const RunningGame game = *m_session;
    if (m_controllerPad == 1) m_parts.preferences.set(preference::controllerConfigured(game.engine), true);
    close();
    if (m_controllerPad == 0) m_emulatorSettings.open(game);
}
