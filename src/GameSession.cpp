#include "GameSession.h"

#include "app/Translator.h"
#include "library/LibraryStore.h"
#include "platform/Preferences.h"
#include "platform/linux/LinuxServices.h"
#include "play/ControllerInput.h"
#include "play/GameFreezer.h"
#include "play/overlay/GuideOverlay.h"
#include "play/shots/ScreenshotStore.h"
#include "play/shots/Screenshots.h"
#include "play/states/SaveStates.h"
#include "play/supervision/GameSupervisor.h"
#include "play/supervision/PlacementLog.h"
#include "ui/overlay/OverlayWindows.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QQuickWindow>
#include <cstdio>

using namespace Qt::StringLiterals;

struct GameSession::Content {
    Content(const GameSessionParts &given, VelkoFront front);

    void begin(const QString &gameID, const StartedGame &program);
    void connectGames();
    void grabHotKey();
    void tellTimes();

    GameSessionParts parts;
    std::unique_ptr<Windows> windows = makeWindows();
    std::unique_ptr<Keys> keys = makeKeys();
    std::unique_ptr<HotKey> hotKey = makeHotKey();
    std::unique_ptr<ScreenCapture> capture = makeScreenCapture();
    std::unique_ptr<Accessibility> accessibility;
    PlacementLog log;
    GameReach reach;
    GameFreezer freezer;
    GameSupervisor supervisor;
    SaveStates states;
    Screenshots screenshots;
    GuideOverlay guide;
    std::unique_ptr<OverlayWindows> surfaces; ///< without a display there are none
    QElapsedTimer sinceChord;
};

GameSession::Content::Content(const GameSessionParts &given, VelkoFront front)
    : parts(given), accessibility(makeAccessibility(given.tasks)), log(given.places, given.clock, given.tasks),
      reach{given.places.host, given.clock, *windows, *accessibility, *keys, given.processes, log},
      freezer(reach, given.library), supervisor(reach, given.library, given.workspace, given.preferences),
      states({given.places, given.clock, given.tasks, *windows, *keys, *accessibility, given.processes, given.sockets},
             given.library, given.emulators),
      screenshots(given.places, given.clock, given.tasks, *windows, *capture, given.processes),
      guide({reach, given.library, given.preferences, given.controller, freezer, supervisor, states, screenshots,
             *capture, given.emulators},
            std::move(front))
{
    if (qobject_cast<QGuiApplication *>(QCoreApplication::instance()))
        surfaces = std::make_unique<OverlayWindows>(OverlayWindowParts{guide, given.library, *windows, given.clock,
                                                                       given.tasks, given.translator, given.places});
    connectGames();
    if (surfaces && qEnvironmentVariableIsSet("VELKO_OVERLAY_TIMES")) tellTimes();
}

void GameSession::Content::connectGames()
{
    QObject::connect(&parts.library, &LibraryStore::gameStarted, &guide,
                     [this](const QString &gameID, const StartedGame &program) {
                         begin(gameID, program);
                         grabHotKey();
                     });
    QObject::connect(&parts.library, &LibraryStore::backToGameWanted, &guide, [this](const QString &gameID) {
        if (guide.session() && guide.session()->gameID == gameID) guide.goBackToGame();
    });
    QObject::connect(hotKey.get(), &HotKey::pressed, &guide, &GuideOverlay::hotKey);
    QObject::connect(&supervisor, &GameSupervisor::placed, &guide, [this] {
        if (supervisor.game()) states.continueFromState(*supervisor.game());
    });
    QObject::connect(&screenshots, &Screenshots::saved, &parts.pictures, &ScreenshotStore::add);
}

void GameSession::Content::begin(const QString &gameID, const StartedGame &program)
{
    const GameEntry *game = parts.library.game(gameID);
    if (!game) return;
    const RunningGame running = runningGame(gameID, game->title, program, parts.places.host, parts.clock.now());
    const bool fullScreen = game->settings ? game->settings->fullScreen.value_or(true) : true;
    supervisor.startWatching(running, {.fullScreenWanted = fullScreen, .showCurtain = true});
    guide.begin(running);
    if (!supervisor.placing()) states.continueFromState(running); // its window is left where it appears
}

/// Until there is a game, the key belongs to other programs.
void GameSession::Content::grabHotKey()
{
    const auto grabbed = hotKey->grab({Qt::Key_Escape, Qt::ControlModifier});
    if (!grabbed) qWarning("%s", qPrintable(parts.translator.message(grabbed.failure())));
}

/// For measurements: how long after the chord the game has stopped, and the panel is drawn.
void GameSession::Content::tellTimes()
{
    const auto tell = [this](const char *what) {
        std::printf("overlay %s %.1f ms\n", what, double(sinceChord.nsecsElapsed()) / 1e6);
        std::fflush(stdout);
    };
    parts.controller.onGuide = [this, toggle = parts.controller.onGuide] {
        sinceChord.start();
        toggle();
    };
    QObject::connect(&freezer, &GameFreezer::frozenChanged, &guide, [this, tell] {
        if (freezer.frozenPID() && sinceChord.isValid()) tell("stopped");
    });
    QObject::connect(&guide, &GuideOverlay::panelChanged, &guide, [this, tell] {
        if (!guide.isOpen() || !sinceChord.isValid()) return;
        QObject::connect(
            surfaces->panel(), &QQuickWindow::frameSwapped, &guide,
            [this, tell] {
                tell("drawn");
                sinceChord.invalidate();
            },
            Qt::ConnectionType(Qt::QueuedConnection | Qt::SingleShotConnection));
    });
}

GameSession::GameSession(const GameSessionParts &parts, VelkoFront front)
    : m_content(std::make_unique<Content>(parts, std::move(front)))
{ }

GameSession::~GameSession() = default;

int GameSession::displays() const
{
    return int(m_content->windows->displays().size());
}

bool GameSession::isEnding() const
{
    return m_content->supervisor.isEnding();
}

void GameSession::onChanged(std::function<void()> changed)
{
    QObject::connect(&m_content->supervisor, &GameSupervisor::changed, &m_content->guide, std::move(changed));
}

void GameSession::activate(unsigned long long window)
{
    m_content->windows->activate(window);
}

bool GameSession::panelIsShown() const
{
    return m_content && m_content->surfaces && m_content->surfaces->panelIsShown();
}
