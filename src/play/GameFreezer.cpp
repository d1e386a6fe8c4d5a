#include "play/GameFreezer.h"

#include "library/LibraryStore.h"
#include "platform/ProcessControl.h"

#include <algorithm>

GameFreezer::GameFreezer(const GameReach &reach, LibraryStore &library, qint64 velko, QObject *parent)
    : QObject(parent), m_reach(reach), m_library(library), m_velko(velko)
{
    connect(&reach.windows, &Windows::activeChanged, this, &GameFreezer::lookWhoIsInFront);
    connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, this, &GameFreezer::thaw);
    connect(&library, &LibraryStore::gameStarted, this, [this] { m_reach.processes.prepareToFreeze(); });
    connect(&library, &LibraryStore::gameEnded, this, [this](const QString &id) {
        if (m_game && m_game->gameID == id) thaw(); // what it had started may be there still
    });
}

GameFreezer::~GameFreezer()
{
    if (m_game) m_reach.processes.thaw(m_game->pid);
}

std::optional<qint64> GameFreezer::frozenPID() const
{
    return m_game ? std::optional(m_game->pid) : std::nullopt;
}

bool GameFreezer::freeze(const RunningGame &game)
{
    if (m_game && m_game->pid != game.pid) thaw();
    if (!m_reach.processes.freeze(game.pid)) return false;
    setFrozen(game, m_reach.processes.tree(game.pid).mid(1));
    return true;
}

void GameFreezer::thaw()
{
    if (!m_game) return;
    m_reach.processes.thaw(m_game->pid);
    setFrozen({}, {});
}

void GameFreezer::setFrozen(const std::optional<RunningGame> &game, const QList<qint64> &helpers)
{
    if (m_game == game && m_helpers == helpers) return;
    if (m_game && m_game != game) m_library.setPaused(m_game->gameID, false);
    m_game = game;
    m_helpers = helpers;
    if (game) m_library.setPaused(game->gameID, true);
    emit frozenChanged();
}

// The keyboard is with nobody for a moment whenever it moves on; only another program counts. What the desktop says
// about the game belongs to the game.
void GameFreezer::lookWhoIsInFront()
{
    if (!m_game) return;
    const auto active = m_reach.windows.activeWindow();
    if (!active || active->pid == m_velko) return;
    const QList<AppWindow> ours = m_reach.windowsOf(m_game->pid);
    if (std::ranges::find(ours, active->id, &AppWindow::id) == ours.end()) thaw();
}
