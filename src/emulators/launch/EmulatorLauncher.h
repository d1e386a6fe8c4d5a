#pragma once

#include "emulators/launch/LaunchPreparation.h"
#include "library/GameLauncher.h"
#include "platform/Clock.h"

#include <QObject>
#include <QPointer>
#include <list>

class EmulatorChanges;
class FramePatches;
class InstalledEmulators;
class Tasks;

/// Starts games in their emulators. Checks and searches run in the background; when the last look at what is installed
/// still holds, nothing is searched. What it is given outlives it; when it goes, launches under way end without a
/// start.
class EmulatorLauncher : public QObject, public GameLauncher {
    Q_OBJECT
public:
    EmulatorLauncher(const Places &places, Preferences &preferences, Workspace &workspace, ProcessControl &processes,
                     Clock &clock, Tasks &tasks, const InstalledEmulators &emulators, EmulatorChanges &changes,
                     std::function<Session()> session, QObject *parent = nullptr);

    using Done = std::function<void(LaunchResult)>;
    void launch(const LaunchRequest &request, Done done) override;
    void cancel() override;
    QString engineFor(const LaunchRequest &request) const override;
    QString controllerToSetUp(const LaunchRequest &request) const override;

    /// With them a game that wants 60 FPS waits a few seconds for its list of patches, when there is none at all yet.
    void setPatches(FramePatches *patches) { m_patches = patches; }

private:
    struct Order {
        LaunchRequest request;
        Done done;
        int round = 0;
    };
    /// A launch that waits for running programs to end.
    struct Waiting {
        PreparedLaunch launch;
        Order order;
        std::chrono::milliseconds giveUp; ///< in the clock's awake time
        Timer timer;
    };

    bool isCancelled(const Order &order) const { return order.round != m_round; }
    void prepare(const Order &order, bool listCancelled);
    void endRunning(PreparedLaunch launch, const Order &order);
    void lookAgain(std::list<Waiting>::iterator waiting);
    void setUp(const PreparedLaunch &launch, const Order &order);
    void start(const PreparedLaunch &launch, const QList<Message> &shortcomings, const Done &done);

    Places m_places;
    Preferences &m_preferences;
    Workspace &m_workspace;
    ProcessControl &m_processes;
    Clock &m_clock;
    Tasks &m_tasks;
    const InstalledEmulators &m_emulators;
    EmulatorChanges &m_changes;
    std::function<Session()> m_session;
    FramePatches *m_patches = nullptr;
    std::list<Waiting> m_waiting;
    int m_round = 0; ///< launches of an earlier one have been cancelled
};
