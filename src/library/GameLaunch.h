#pragma once

#include "library/GameLauncher.h"
#include "platform/Clock.h"
#include "platform/Places.h"

#include <QDateTime>
#include <QObject>
#include <QStringList>

class FileIndex;
class ProcessControl;
class Tasks;

/// The launch in progress, from the user's choice until its program runs or the launch failed.
struct Launching {
    QString gameID;
    QDateTime start;
    QString engine; ///< as in `StartedGame`; empty: it is looked for
    bool loading = false; ///< a save state is being loaded
    std::optional<Message> note;
    bool operator==(const Launching &) const = default;
};

/// Takes one game at a time from the user's choice to its running program: finds its file when it has moved, waits for
/// it while it lies in iCloud, hands it to the launcher. Main thread only.
class GameLaunch : public QObject {
    Q_OBJECT
public:
    GameLaunch(const Places &places, Clock &clock, Tasks &tasks, const FileIndex &index, ProcessControl &processes,
               GameLauncher &launcher);

    const std::optional<Launching> &state() const { return m_state; }

    struct Order {
        QString gameID;
        LaunchRequest request;
        QStringList romFolders; ///< searched, besides the home, for a file that has moved
        std::function<bool(const QString &path)> isAnotherGames; ///< such a file is never taken for the moved one
    };
    void begin(const Order &order); ///< ignored while another launch is under way
    void cancel(); ///< a program that has started meanwhile is asked to quit

signals:
    void changed(); ///< `state`
    void moved(const QString &gameID, const QString &path); ///< the file was found there; the launch goes on
    void missing(const QString &gameID);
    void failed(const QString &gameID, const LaunchRefusal &why);
    void started(const GameLaunch::Order &order, const StartedGame &program);

private:
    void waitForCloud();
    void checkCloud(std::chrono::milliseconds begun);
    void search();
    void searched(const QStringList &places);
    void handOver();
    void finish();
    void launched(int token, const LaunchResult &result);

    Places m_places;
    Clock &m_clock;
    Tasks &m_tasks;
    const FileIndex &m_index;
    ProcessControl &m_processes;
    GameLauncher &m_launcher;
    std::optional<Launching> m_state;
    Order m_order;
    int m_token = 0; ///< what comes back with an older one belongs to a launch that is over
    Timer m_cloudCheck;
};
