#pragma once

#include "base/Result.h"
#include "emulators/finding/EmulatorFinder.h"
#include "emulators/launch/LaunchChecks.h"
#include "emulators/launch/LaunchPlan.h"
#include "emulators/settings/EmulatorSetUp.h"

#include <QDateTime>

class ProcessControl;

/// Where the user sits: known on the main thread only.
struct Session {
    int displays = 1;
    bool wayland = false; ///< a Wayland session that has XWayland
    MacFacts mac; ///< looked at on the Mac only
    QStringList controllers; ///< names of those that are connected
};

/// A launch as the main thread hands it to the background.
struct LaunchInput {
    LaunchRequest request;
    std::optional<ReadyEmulator> known; ///< of the last look, still there; absent: search
    EmulatorChoices choices;
    Session session;
    QualityPreset quality = QualityPreset::medium; ///< of games that have none of their own
    bool mapsControllers = true; ///< the user lets Velko map controllers in emulators
    bool vblankRaised = false; ///< RPCS3 still draws at the rate of an earlier game's patch
    bool patchListCancelled = false; ///< the user did not want to wait for the list of patches
    QDateTime now;
    ChangeNotes notes; ///< of what Velko has changed in emulators' files
};

/// A launch that only has to be started.
struct PreparedLaunch {
    LaunchPlan plan;
    QString logFile;
    QList<qint64> running; ///< processes that must have ended before
    std::optional<SetUpOrder> setUp; ///< of the emulator's own files, once those have ended; notes what was done
    QList<Message> shortcomings; ///< what the game asks for and cannot get; it starts without
};

/// Everything up to the start: checks, the search for an emulator, the plan, and the files that it needs. A file that
/// cannot be written does not stop the launch. Blocks: call it in the background.
Result<PreparedLaunch, LaunchRefusal> prepareLaunch(const LaunchInput &input, const Places &places,
                                                    const EmulatorFinder &finder, const ProcessControl &processes);

/// Whether a program of this name can be started. A look at the disk.
bool isOnPath(const QString &program, const Places &places);
