#include "emulators/launch/LaunchPreparation.h"

#include "emulators/bios/XemuSetup.h"
#include "emulators/controllers/ControllerMapping.h"
#include "emulators/launch/CommandChannel.h"
#include "emulators/launch/GameIdentity.h"
#include "emulators/launch/LaunchArguments.h"
#include "emulators/launch/OpenEmuLibrary.h"
#include "emulators/launch/SessionLog.h"
#include "emulators/patches/FramePatchAct.h"
#include "platform/ProcessControl.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <algorithm>

using namespace Qt::StringLiterals;

bool isOnPath(const QString &program, const Places &places)
{
    return std::any_of(places.programDirs.begin(), places.programDirs.end(), [&program](const QString &folder) {
        const QFileInfo file(folder + u'/' + program);
        return file.isFile() && file.isExecutable();
    });
}

static LaunchFacts factsOf(const LaunchInput &input, const Places &places)
{
    const LaunchRequest &request = input.request;
    LaunchFacts facts;
    facts.host = places.host;
    facts.home = places.home;
    facts.displays = input.session.displays;
    facts.waylandSession = input.session.wayland;
    facts.mangoHud = request.settings.showFPS && isOnPath(u"mangohud"_s, places);
    facts.quality = input.quality;
    facts.gameIsFolder = QFileInfo(request.path).isDir();
    facts.stateExists = request.statePath && QFileInfo(*request.statePath).isFile();
    facts.slotBesideGame = QFileInfo(mgbaSlotOf(request.path)).isFile();
    facts.retroArchConfig = places.dataFolder() + u"/retroarch.cfg"_s;
    return facts;
}

static Result<ReadyEmulator, LaunchRefusal> chooseFor(const Console &console, const LaunchInput &input,
                                                      const Places &places, const EmulatorFinder &finder)
{
    if (input.known) return *input.known;
    if (const auto ready = finder.readyFor(console, input.choices)) return *ready;
    const EmulatorDef *retroArch = emulatorWithID(u"retroarch"_s, places.host);
    const bool asks = retroArch && console.emulators.contains(retroArch->id);
    const auto found = asks ? finder.find(*retroArch, input.choices) : std::nullopt;
    return LaunchRefusal(noEmulatorFor(console, found, places), found ? QString() : console.emulators.value(0));
}

/// xemu makes the socket, but not its folder.
static QString socketFor(const InstalledEmulator &xemu, const QString &gamePath, const Places &places)
{
    const QString flatpakID = xemu.kind == ApplicationKind::flatpak ? xemu.applicationID : QString();
    const QString socket = xemuSocket(gamePath, places.runtime, flatpakID);
    QDir().mkpath(QFileInfo(socket).path());
    return socket;
}

/// Empty: the game cannot have one.
static QString gameFileOf(const SettingsWish &wish)
{
    if (wish.emulatorID != "rpcs3"_L1 || wish.host == Host::mac) return {};
    const auto identity = ps3Identity(wish.gamePath, wish.folders.config + u"/dev_hdd0/game"_s);
    return identity ? rpcs3GameFile(wish.folders, identity->serial) : QString();
}

static SetUpOrder orderOf(const InstalledEmulator &emulator, const LaunchInput &input, const Places &places)
{
    const LaunchRequest &request = input.request;
    SetUpOrder order;
    order.wish = {emulator.emulatorID,
                  places.host,
                  emulatorFolders(emulator, places),
                  request.path,
                  request.settings,
                  request.settings.quality.value_or(input.quality),
                  {}};
    order.wish.gameFile = gameFileOf(order.wish);
    LaunchFacts facts;
    facts.host = places.host;
    facts.displays = input.session.displays;
    facts.waylandSession = input.session.wayland;
    order.wish.settings.fullScreen = startsFullScreen(request, facts);
    order.mapsController = input.mapsControllers && hasXboxController(input.session.controllers);
    if (input.vblankRaised) order.vblankRate = usualVblankRate;
    if (emulator.emulatorID == "xemu"_L1)
        order.found = xemuFileEdits(emulator, xemuFiles(emulator, places).toEnter, places);
    order.notes = input.notes;
    return order;
}

/// `chosen`: the copy that was chosen; absent for a game that is itself a program.
static Result<LaunchPlan, LaunchRefusal> planOf(const Console &console, const LaunchInput &input, const Places &places,
                                                const EmulatorFinder &finder, std::optional<InstalledEmulator> &chosen)
{
    LaunchFacts facts = factsOf(input, places);
    if (opensItself(input.request.path, console, places.host)) {
        if (const auto refusal = nativeGameRefusal(input.request.path, places.host)) return *refusal;
        return planNativeGame(input.request, console, facts);
    }
    const auto ready = chooseFor(console, input, places, finder);
    if (!ready) return ready.failure();
    const InstalledEmulator &emulator = ready.value().emulator;
    if (places.host == Host::mac && emulator.emulatorID == "shadps4"_L1) {
        if (const auto refusal = shadPS4MacRefusal(input.session.mac)) return *refusal;
    }
    if (const auto refusal = emulatorRefusal(emulator, input.request.path, places))
        return LaunchRefusal(*refusal, emulator.emulatorID == "xemu"_L1 ? emulator.emulatorID : QString());
    chosen = emulator;
    facts.core = ready.value().core;
    if (emulator.emulatorID == "xemu"_L1) facts.xemuSocket = socketFor(emulator, input.request.path, places);
    if (emulator.emulatorID == "openemu"_L1) facts.openEmuCopy = openEmuCopyOf(input.request.path, places.home);
    return planEmulator(input.request, emulator, facts);
}

static void writeFile(const QString &path, const QByteArray &content)
{
    QDir().mkpath(QFileInfo(path).path());
    QSaveFile file(path);
    if (file.open(QSaveFile::WriteOnly) && file.write(content) == content.size()) file.commit();
}

static void writeFiles(const LaunchPlan &plan)
{
    if (!plan.configFile.isEmpty()) writeFile(plan.configFile, plan.configText);
    QFile state(plan.stateToCopy);
    if (!plan.stateToCopy.isEmpty() && state.open(QFile::ReadOnly)) writeFile(plan.stateCopy, state.readAll());
}

/// The game's 60 FPS patch; the order then carries the rate that it asks for.
static void applyPatch(SetUpOrder &order, bool listCancelled, QList<Message> &shortcomings, const Places &places)
{
    const SettingsWish &wish = order.wish;
    const FramePatchGame game{wish.emulatorID, wish.gamePath, wish.folders, listCancelled};
    const FramePatchOutcome outcome = applyFramePatch(game, wish.settings.fps60, places, order.notes);
    if (outcome.vblankRate) order.vblankRate = outcome.vblankRate;
    if (outcome.shortcoming) shortcomings += *outcome.shortcoming;
}

static QList<qint64> runningNow(const QStringList &programs, const ProcessControl &processes)
{
    QList<qint64> pids;
    if (programs.isEmpty()) return pids;
    for (const RunningProcess &process : processes.running()) {
        if (programs.contains(process.program)) pids += process.pid;
    }
    return pids;
}

Result<PreparedLaunch, LaunchRefusal> prepareLaunch(const LaunchInput &input, const Places &places,
                                                    const EmulatorFinder &finder, const ProcessControl &processes)
{
    const LaunchRequest &request = input.request;
    if (!QFileInfo::exists(request.path)) return Message{u"File not found: %@"_s, {request.path}};
    const Console *console = consoleWithID(request.consoleID, places.host);
    if (!console) {
        return Message{u"Velko doesn't know the console “%@” of this game. Remove the game and add it again."_s,
                       {request.consoleID}};
    }
    std::optional<InstalledEmulator> emulator;
    const auto plan = planOf(*console, input, places, finder, emulator);
    if (!plan) return plan.failure();
    PreparedLaunch launch{plan.value(),
                          newSessionLog(places.logFolder(), plan.value().engine, input.now),
                          runningNow(plan.value().programsToEnd, processes),
                          {},
                          {}};
    writeFiles(plan.value());
    if (emulator) {
        launch.setUp = orderOf(*emulator, input, places);
        applyPatch(*launch.setUp, input.patchListCancelled, launch.shortcomings, places);
    }
    return launch;
}
