#pragma once

#include "play/GameReach.h"
#include "play/RunningGame.h"

#include <QCoreApplication>
#include <optional>

class LibraryStore;

/// Lets the running game stand still while Velko's menu is in front of it, with all that it has started; its play time
/// stands still, too. It goes on when another program comes to the front, and at Velko's end, whatever that is (see
/// `ProcessControl::freeze`). Main thread only.
class GameFreezer : public QObject {
    Q_OBJECT
public:
    GameFreezer(const GameReach &reach, LibraryStore &library, qint64 velko = QCoreApplication::applicationPid(),
                QObject *parent = nullptr);
    ~GameFreezer() override; ///< thaws

    std::optional<qint64> frozenPID() const; ///< the game that stands still
    const QList<qint64> &frozenHelpers() const { return m_helpers; } ///< what it had started

    bool freeze(const RunningGame &game); ///< false when it has ended; another one that is frozen goes on
    void thaw();

signals:
    void frozenChanged();

private:
    void lookWhoIsInFront();
    void setFrozen(const std::optional<RunningGame> &game, const QList<qint64> &helpers);

    GameReach m_reach;
    LibraryStore &m_library;
    const qint64 m_velko; ///< our own process
    std::optional<RunningGame> m_game; ///< the frozen one
    QList<qint64> m_helpers;
};
