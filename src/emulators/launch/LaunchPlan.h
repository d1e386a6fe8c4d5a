#pragma once

#include "catalog/Console.h"
#include "emulators/finding/InstalledEmulator.h"
#include "library/GameLauncher.h"

#include <QMap>
#include <QStringList>
#include <optional>

/// What the plan of a launch depends on beside the game and its emulator; looked up before.
struct LaunchFacts {
    Host host = Host::linux;
    QString home;
    int displays = 1;
    bool waylandSession = false; ///< with XWayland, on which emulators are put
    bool mangoHud = false; ///< MangoHud is installed
    QualityPreset quality = QualityPreset::medium; ///< of games that have none of their own
    bool gameIsFolder = false;
    bool stateExists = false; ///< the state to resume from is there
    bool slotBesideGame = false; ///< `mgbaSlotOf` the game is there
    QString core; ///< RetroArch: the core's file
    QString retroArchConfig; ///< RetroArch: where the file of our own settings lies
    QString xemuSocket; ///< xemu: where it takes commands; empty: it takes none
    QString openEmuCopy; ///< OpenEmu: the game in its own library; empty: not there
};

/// How to start one game. Everything is decided, nothing is done.
struct LaunchPlan {
    QString engine; ///< as in `StartedGame`
    QString applicationID; ///< as in `StartedGame`
    QStringList command; ///< argument vector
    bool opensFile = false; ///< mac: the last argument is a file that the system opens with the application
    QMap<QString, QString> environment; ///< added to our own; that of a Flatpak stands in the command
    QString workingFolder;

    // To be done before the start.
    QStringList programsToEnd; ///< running programs of these names are asked to quit, and have ended
    QString configFile; ///< written anew with `configText`; empty: none
    QByteArray configText;
    QString stateToCopy; ///< copied to `stateCopy`, from which the emulator resumes; empty: none
    QString stateCopy;
    QString preferenceDomain; ///< mac: of another application, in which these keys become 1
    QStringList preferenceKeys;

    bool operator==(const LaunchPlan &) const = default;
};

/// Whether the game is itself a program: built by the pipeline, of the console of native games, or an application by
/// its name (".app" on the Mac, ".AppImage" on Linux) whatever its console.
bool opensItself(const QString &path, const Console &console, Host host);

QString engineOfNativeGame(const Console &console); ///< "nxnative" or "native"
LaunchPlan planNativeGame(const LaunchRequest &request, const Console &console, const LaunchFacts &facts);
LaunchPlan planEmulator(const LaunchRequest &request, const InstalledEmulator &emulator, const LaunchFacts &facts);

/// The emulator without a game, for its settings.
LaunchPlan planEmulatorAlone(const InstalledEmulator &emulator, const LaunchFacts &facts);

/// Where mGBA keeps slot 1 of a game: beside it, with the extension "ss1". An mGBA game resumes there by itself.
QString mgbaSlotOf(const QString &gamePath);
