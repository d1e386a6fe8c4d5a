#include "play/GameFreezer.h"

#include "library/LibraryStore.h"
#include "platform/ProcessControl.h"

#include <QCoreApplication>
#include <utility>

GameFreezer::GameFreezer(const GameReach &reach, LibraryStore &library, QObject *parent)
    : QObject(parent), m_reach(reach), m_library(library)
{
    connect(&m_reach.windows, &Windows::activeChanged, this, &GameFreezer::activeChanged);
    connect(&m_library, &LibraryStore::gameEnded, this, [this](const QString &gameID) {
        if (gameID == m_gameID) thaw();
    });
}

GameFreezer::~GameFreezer()
{
    blockSignals(true);
    thaw();
}

void GameFreezer::freeze(const RunningGame &game)
{
    if (m_frozenPID == game.pid) return;
    thaw();
    m_reach.processes.freeze(game.pid);
    m_frozenHelpers = m_reach.processes.tree(game.pid);
    m_frozenHelpers.removeOne(game.pid);
    m_frozenPID = game.pid;
    m_gameID = game.gameID;
    m_library.setPaused(m_gameID, true);
    emit frozenChanged();
}

void GameFreezer::thaw()
{
    if (!m_frozenPID) return;
    m_reach.processes.thaw(*std::exchange(m_frozenPID, {}));
    for (const qint64 helper : std::exchange(m_frozenHelpers, {}))
        m_reach.processes.thaw(helper); // those that have left the game's tree since
    m_library.setPaused(std::exchange(m_gameID, {}), false);
    emit frozenChanged();
}

void GameFreezer::activeChanged()
{
    if (!m_frozenPID) return;
    const auto active = m_reach.windows.activeWindow();
    if (active && active->pid != QCoreApplication::applicationPid() && !m_reach.isInFront(*m_frozenPID)) thaw();
}
