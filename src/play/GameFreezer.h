#pragma once

#include "play/GameReach.h"
#include "play/RunningGame.h"

#include <QList>
#include <QObject>
#include <optional>

class LibraryStore;

/// Lets the running game stand still, with everything it has started. It goes on when it is asked to, when another
/// program than Velko comes to the front, and when Velko ends. Its play time stands still as well.
class GameFreezer : public QObject {
    Q_OBJECT
public:
    GameFreezer(const GameReach &reach, LibraryStore &library, QObject *parent = nullptr);
    ~GameFreezer() override; ///< thaws

    const std::optional<qint64> &frozenPID() const { return m_frozenPID; }
    const QList<qint64> &frozenHelpers() const { return m_frozenHelpers; } ///< its descendants that were stopped, too

    void freeze(const RunningGame &game); ///< another frozen game goes on
    void thaw();

signals:
    void frozenChanged();

private:
    void activeChanged();

    GameReach m_reach;
    LibraryStore &m_library;
    QString m_gameID;
    std::optional<qint64> m_frozenPID;
    QList<qint64> m_frozenHelpers;
};
