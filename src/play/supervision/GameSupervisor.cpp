#include "play/supervision/GameSupervisor.h"

#include "library/LibraryStore.h"
#include "platform/Preferences.h"
#include "platform/ProcessControl.h"
#include "platform/Workspace.h"
#include "play/supervision/GameQuit.h"
#include "play/supervision/GameWatcher.h"
#include "play/supervision/PlacementLog.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

GameSupervisor::GameSupervisor(const GameReach &reach, LibraryStore &library, const Workspace &workspace,
                               const Preferences &preferences, QObject *parent)
    : QObject(parent), m_reach(reach), m_library(library), m_preferences(preferences)
{
    connect(&workspace, &Workspace::ended, this, &GameSupervisor::programEnded);
    connect(&library, &LibraryStore::launchingChanged, this, &GameSupervisor::changed);
    connect(&reach.windows, &Windows::displaysChanged, this, &GameSupervisor::displaysChanged);
}

GameSupervisor::~GameSupervisor() = default;

void GameSupervisor::startWatching(const RunningGame &game, const WatchOptions &options)
{
    stopPlacing();
    if (m_quit) {
        m_quit->beQuiet();
        m_endings.push_back(std::move(m_quit));
    }
    m_game = game;
    m_paused = m_wentOn = false;
    const QList<Monitor> displays = m_reach.windows.displays();
    const auto active = m_reach.windows.activeWindow();
    m_placement.displayName =
        chooseDisplay(displays, m_preferences.get(preference::playDisplay), active ? active->geometry : QRect());
    m_placement.fullScreen = options.fullScreenWanted && !options.fullScreenSuppressed;
    const PlayTarget target = playTarget(displays, m_placement.displayName);
    m_separate = !target.mainDisplay;
    if (m_separate || m_placement.fullScreen) {
        m_reach.log.write(u"start %1 pid %2 target %3 wantFull %4"_s.arg(
            game.name, QString::number(game.pid), m_separate ? logText(target.display.geometry) : u"-"_s,
            logText(m_placement.fullScreen)));
        watch(GameWatcher::Occasion::start, options.showCurtain && m_separate);
    }
    emit changed();
}

void GameSupervisor::watch(GameWatcher::Occasion occasion, bool showCurtain)
{
    const WatcherEvents events{
        .changed = [this] { emit changed(); },
        .curtainWanted = [this](const QString &display) { emit curtainWanted(display); },
        .curtainDone = [this] { emit curtainDone(); },
        .placed = [this, pid = m_game->pid] { emit placed(pid); },
        .finished =
            [this] {
                m_watcher.reset();
                emit changed();
            },
    };
    m_watcher = std::make_unique<GameWatcher>(m_reach, *m_game, m_placement, occasion, events);
    m_watcher->setPaused(m_paused);
    m_watcher->start(showCurtain);
}

void GameSupervisor::stopPlacing()
{
    m_rewatch.reset();
    const bool curtain = m_watcher && m_watcher->curtainUp();
    m_watcher.reset();
    if (curtain) emit curtainDone();
}

void GameSupervisor::setPaused(bool paused)
{
    m_paused = paused;
    if (m_watcher) m_watcher->setPaused(paused);
}

/// A game whose display was unplugged would be left wherever the desktop has pushed it.
void GameSupervisor::displaysChanged()
{
    if (m_watcher) m_watcher->displaysChanged();
    const bool separate = !playTarget(m_reach.windows.displays(), m_placement.displayName).mainDisplay;
    const bool moved = std::exchange(m_separate, separate) != separate;
    if (!moved || !m_game || m_watcher || m_quit || !m_placement.fullScreen) return;
    m_rewatch = m_reach.clock.after(1s, [this] {
        watch(GameWatcher::Occasion::displaysChanged, false);
        emit changed();
    });
}

bool GameSupervisor::starting() const
{
    return m_library.launching() || (m_watcher && m_watcher->starting());
}

GameSupervisor::Question GameSupervisor::question() const
{
    if (m_quit && m_quit->questionShown()) return Question::quit;
    return m_watcher && m_watcher->questionOpen() ? Question::launch : Question::none;
}

bool GameSupervisor::handedOver() const
{
    return m_quit && m_quit->handedOver();
}

int GameSupervisor::quitSecondsLeft() const
{
    return m_quit ? m_quit->secondsLeft() : 0;
}

bool GameSupervisor::cancelLaunch()
{
    if (!starting()) return false;
    if (m_library.launching()) {
        m_library.cancelLaunch();
    } else {
        stopPlacing();
        auto ending = makeQuit();
        ending->beQuiet();
        m_endings.push_back(std::move(ending));
        m_game.reset();
        m_endings.back()->start();
    }
    emit launchCancelled();
    emit changed();
    return true;
}

void GameSupervisor::quit()
{
    if (!m_game || m_quit) return;
    stopPlacing();
    m_quit = makeQuit();
    m_quit->start();
    emit changed();
}

std::unique_ptr<GameQuit> GameSupervisor::makeQuit()
{
    const qint64 pid = m_game->pid;
    m_library.expectEnd(pid);
    const auto request = m_wentOn ? GameQuit::Request::again : GameQuit::Request::first;
    return std::make_unique<GameQuit>(
        m_reach, *m_game, request, [this] { emit changed(); }, [this, pid] { finishQuit(pid); });
}

void GameSupervisor::finishQuit(qint64 pid)
{
    m_library.endSession(pid);
    std::erase_if(m_endings, [pid](const auto &ending) { return ending->pid() == pid; });
    const bool newest = m_quit && m_quit->pid() == pid;
    if (newest) {
        m_quit.reset();
        m_game.reset();
    }
    emit changed();
    if (newest) emit quitFinished();
}

void GameSupervisor::endHandOver()
{
    if (!handedOver()) return;
    m_quit.reset();
    m_wentOn = true;
    emit changed();
}

void GameSupervisor::programEnded(qint64 pid)
{
    if (m_quit && m_quit->pid() == pid) return m_quit->look();
    if (!m_game || m_game->pid != pid) return;
    stopPlacing();
    m_game.reset();
    emit changed();
}
