#include "play/overlay/GuideOverlay.h"

#include "library/LibraryStore.h"
#include "platform/Preferences.h"
#include "platform/ProcessControl.h"
#include "platform/ScreenCapture.h"
#include "platform/Windows.h"
#include "play/ControllerInput.h"
#include "play/GameFreezer.h"
#include "play/shots/Screenshots.h"
#include "play/states/SaveStates.h"
#include "play/supervision/GameSupervisor.h"
#include "play/supervision/GameWindow.h"
#include "play/supervision/PlacementLog.h"
#include "play/supervision/PlayTarget.h"

#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

GuideOverlay::GuideOverlay(const GuideParts &parts, VelkoFront front, QObject *parent)
    : QObject(parent), m_parts(parts), m_reach(parts.reach), m_front(std::move(front)),
      m_gamePicture(parts.capture, parts.reach.windows, parts.reach.clock), m_notices(parts.reach.clock),
      m_supervisorNotices(parts.supervisor, parts.controller, m_notices), m_hint(parts.reach, parts.preferences),
      m_emulatorSettings(parts.reach)
{
    ControllerInput &controller = m_parts.controller;
    controller.onGuide = [this] { toggle(); };
    controller.onChordBegun = [this] { clearView(); };
    controller.onShare = [this] { takeScreenshot(); };
    controller.onCancelLaunch = [this] { return cancelLaunch(); };
    controller.onAnyInput = [this] { anyInput(); };

    connect(&m_parts.freezer, &GameFreezer::frozenChanged, this, &GuideOverlay::frozenChanged);
    connect(&m_reach.windows, &Windows::activeChanged, this, &GuideOverlay::activeChanged);
    connect(&m_parts.supervisor, &GameSupervisor::changed, this, &GuideOverlay::supervised);
    connect(&m_parts.supervisor, &GameSupervisor::quitFinished, this, [this] {
        end();
        if (m_front.returnTo) m_front.returnTo();
    });
    connect(&m_parts.supervisor, &GameSupervisor::launchCancelled, this, [this] {
        answer({u"Launch cancelled"_s, {}}, u"xmark.circle.fill"_s);
    });
    connect(&m_parts.supervisor, &GameSupervisor::curtainWanted, this,
            [this](const QString &display) { wantCurtain(display); });
    connect(&m_parts.supervisor, &GameSupervisor::curtainDone, this, [this] { wantCurtain({}); });
    connect(&m_parts.library, &LibraryStore::gameEnded, this, [this](const QString &gameID) {
        if (m_session && m_session->gameID == gameID) end();
    });
    connect(&m_parts.library, &LibraryStore::gamesChanged, this, [this] {
        if (m_open) emit changed();
    });
    connect(&m_parts.states, &SaveStates::policyChanged, this, &GuideOverlay::changed);
    connect(&m_parts.states, &SaveStates::finished, this, &GuideOverlay::answer);
    connect(&m_parts.screenshots, &Screenshots::taken, this,
            [this](const Message &notice) { m_notices.show({.text = notice, .busy = true}); });
    connect(&m_parts.screenshots, &Screenshots::finished, this, &GuideOverlay::answer);
}

GuideOverlay::~GuideOverlay()
{
    ControllerInput &controller = m_parts.controller;
    controller.onGuide = nullptr;
    controller.onChordBegun = nullptr;
    controller.onShare = nullptr;
    controller.onCancelLaunch = nullptr;
    controller.onAnyInput = nullptr;
    if (m_open) controller.overlayHandler = nullptr;
}

// The session

void GuideOverlay::begin(const RunningGame &game)
{
    if (m_open) close();
    m_session = game;
    m_quitStarted = false;
    m_hint.begin();
    m_supervisorNotices.begin(game);
    emit sessionChanged();
}

void GuideOverlay::end()
{
    if (!m_session) return;
    m_session.reset();
    m_quitStarted = false;
    leave();
    m_hint.hide();
    m_supervisorNotices.end();
    wantCurtain({});
    emit sessionChanged();
}

void GuideOverlay::wantCurtain(std::optional<QString> display)
{
    m_wantedCurtain = std::move(display);
    updateCurtain();
}

void GuideOverlay::updateCurtain()
{
    const bool inTheWay = m_open || m_parts.supervisor.question() != GameSupervisor::Question::none;
    if (std::exchange(m_curtain, inTheWay ? std::nullopt : m_wantedCurtain) != m_curtain) emit curtainChanged();
}

void GuideOverlay::supervised()
{
    GameSupervisor &supervisor = m_parts.supervisor;
    // What the emulator asks has to be seen.
    if (m_open && supervisor.handedOver()) leave();
    updateCurtain();
    if (!m_quitStarted || supervisor.leaving() || !supervisor.game()) return;
    m_quitStarted = false;
    emit changed();
}

// Opening and closing

void GuideOverlay::toggle()
{
    const bool hinted = m_hint.visible();
    m_hint.hide();
    if (m_parts.supervisor.leaving()) {
        if (!m_parts.supervisor.handedOver()) return;
        m_parts.supervisor.endHandOver();
    }
    // A game whose launch was cancelled is about to end: stopped now, it could not save.
    const bool playing = m_session && m_parts.supervisor.game();
    if (m_open)
        close();
    else if (playing)
        open(hinted ? GuidePage::controller : GuidePage::menu);
    else if (!hinted && m_front.show)
        m_front.show();
}

void GuideOverlay::hotKey()
{
    if (m_open || m_session) toggle();
}

void GuideOverlay::open(GuidePage page)
{
    if (!m_parts.freezer.freeze(*m_session)) return; // it has ended this moment
    m_picture = takenPicture();
    m_page = page;
    m_opener = GuidePage::menu;
    m_selection = m_settingsPad = m_controllerPad = 0;
    m_confirmQuit = false;
    m_toast.reset();
    m_notices.hide();
    m_open = true;
    m_parts.controller.overlayHandler = [this](PadEvent event) { handle(event); };
    logOpening();
    updateCurtain();
    emit panelChanged();
}

void GuideOverlay::close()
{
    if (!m_open) return;
    m_closing = true;
    // First: what covers a game that stands still stays on the screen of a desktop that doesn't compose windows.
    m_parts.freezer.thaw();
    m_closing = false;
    leave();
    activateGame();
}

void GuideOverlay::leave()
{
    if (!m_open) return;
    m_open = false;
    m_picture = {};
    m_toast.reset();
    m_parts.controller.overlayHandler = nullptr;
    updateCurtain();
    emit panelChanged();
}

void GuideOverlay::frozenChanged()
{
    m_parts.supervisor.setPaused(m_parts.freezer.frozenPID().has_value());
    // Another program has come to the front, or the game has gone: the panel would stand there for nothing.
    if (m_open && !m_closing && !m_quitStarted && !m_parts.freezer.frozenPID()) leave();
}

/// A game that waits goes on when the user brings its window to the front.
void GuideOverlay::activeChanged()
{
    const auto frozen = m_parts.freezer.frozenPID(); // perhaps an earlier game than that of the session
    if (!m_open && frozen && m_reach.isInFront(*frozen)) m_parts.freezer.thaw();
}

void GuideOverlay::goBackToGame()
{
    if (!m_session) return;
    m_parts.freezer.thaw();
    activateGame();
}

/// xfwm4 leaves the keyboard with nobody when a window goes that it does not manage.
void GuideOverlay::activateGame()
{
    if (const auto window = gameWindow()) m_reach.windows.activate(window->id);
}

std::optional<AppWindow> GuideOverlay::gameWindow() const
{
    if (!m_session) return {};
    return findGameWindow(m_reach.windows.windowsOf(m_reach.processes.tree(m_session->pid)));
}

QString GuideOverlay::display() const
{
    const auto displays = m_reach.windows.displays();
    if (m_wantedCurtain) return *m_wantedCurtain;
    if (const auto window = gameWindow()) {
        for (const Monitor &display : displays) {
            if (display.geometry.contains(window->geometry.center())) return display.name;
        }
    }
    return chooseDisplay(displays, m_parts.preferences.get(preference::playDisplay), {});
}

/// Null while the curtain hides the game.
QImage GuideOverlay::takenPicture()
{
    if (m_curtain) return {};
    const QString shown = display();
    for (const Monitor &display : m_reach.windows.displays()) {
        if (display.name == shown) return m_gamePicture.take(display.geometry, gameWindow());
    }
    return {};
}

/// The menu is about to open: the game draws what lay below a notice again before it is stopped. Questions stay.
void GuideOverlay::clearView()
{
    const GameSupervisor &supervisor = m_parts.supervisor;
    if (m_open || supervisor.leaving() || supervisor.question() != GameSupervisor::Question::none) return;
    m_notices.hide();
}

void GuideOverlay::logOpening()
{
    const auto active = m_reach.windows.activeWindow();
    const auto truth = [](const std::function<bool()> &question) {
        return question && question() ? u"true"_s : u"false"_s;
    };
    // Linux has no policy that decides which programs may have windows in front: it is always kept.
    m_reach.log.write(u"menu: open over %1, Velko full screen: %2, policy kept: true"_s.arg(
        active ? active->title : u"-"_s, truth(m_front.isFullScreen)));
    m_log = m_reach.clock.after(400ms, [this, truth] {
        const auto active = m_reach.windows.activeWindow();
        m_reach.log.write(u"menu: 0.4 s later, front app: %1, panel on active space: %2, Velko active: %3"_s.arg(
            active ? active->title : u"-"_s, truth(m_front.panelIsShown), truth(m_front.isActive)));
    });
}

// What is said

void GuideOverlay::answer(const Message &text, const QString &symbol)
{
    const GuideToast toast{text, symbol};
    if (!m_open) {
        m_notices.show(toast);
        return;
    }
    m_toast = toast;
    m_toastEnd = m_reach.clock.after(6s, [this] {
        m_toast.reset();
        emit changed();
    });
    emit changed();
}

// The controller

bool GuideOverlay::cancelLaunch()
{
    return m_parts.supervisor.cancelLaunch();
}

void GuideOverlay::anyInput()
{
    if (m_session && !m_open && !m_parts.supervisor.leaving()) m_hint.pressed(*m_session);
}
