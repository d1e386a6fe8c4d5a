#include "emulators/launch/LaunchPlan.h"

#include "catalog/EmulatorDef.h"
#include "emulators/launch/CommandChannel.h"
#include "emulators/launch/FlatpakAccess.h"
#include "emulators/launch/LaunchArguments.h"
#include "emulators/settings/RetroArchConfig.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

QMap<QString, QString> macEnvironment(const GameSettings &settings)
{
    if (!settings.showFPS) return {};
    return {{u"MTL_HUD_ENABLED"_s, u"1"_s}, {u"DM_METAL_HUD"_s, u"1"_s}};
}

bool countsByMangoHud(const GameSettings &settings, const QString &emulatorID, const LaunchFacts &facts)
{
    return settings.showFPS && facts.mangoHud && !showsOwnCounter(emulatorID);
}

QMap<QString, QString> linuxEnvironment(const GameSettings &settings, const QString &emulatorID,
                                        const LaunchFacts &facts)
{
    // Else Qt shows its menus to nobody: the desktop's own switch is the user's, and a program that runs already is not
    // reached by it.
    QMap<QString, QString> environment{{u"QT_LINUX_ACCESSIBILITY_ALWAYS_ON"_s, u"1"_s}};
    if (facts.waylandSession) {
        // On XWayland windows can be placed, keys posted and pictures taken. One variable for each toolkit.
        environment.insert(u"QT_QPA_PLATFORM"_s, u"xcb"_s);
        environment.insert(u"SDL_VIDEODRIVER"_s, u"x11"_s);
        environment.insert(u"SDL_VIDEO_DRIVER"_s, u"x11"_s);
        environment.insert(u"GDK_BACKEND"_s, u"x11"_s);
    }
    if (countsByMangoHud(settings, emulatorID, facts)) environment.insert(u"MANGOHUD"_s, u"1"_s);
    return environment;
}

/// The variable reaches programs that draw with Vulkan, also in a Flatpak; those with OpenGL have to be started through
/// MangoHud, which then becomes the program.
void startThroughMangoHud(LaunchPlan &plan, const GameSettings &settings, const QString &emulatorID,
                          const LaunchFacts &facts)
{
    if (countsByMangoHud(settings, emulatorID, facts)) plan.command.prepend(u"mangohud"_s);
}

QString applicationIDOf(const QString &id, const QString &path)
{
    return id.isEmpty() ? QFileInfo(path).fileName() : id;
}

/// "flatpak run", our options, the rest of the copy's command.
QStringList flatpakCommand(const InstalledEmulator &emulator, const QStringList &options)
{
    const qsizetype run = emulator.command.indexOf("run"_L1);
    return emulator.command.first(run + 1) + options + emulator.command.sliced(run + 1);
}

void runInFlatpak(LaunchPlan &plan, const LaunchRequest &request, const InstalledEmulator &emulator,
                  const LaunchFacts &facts)
{
    QStringList options;
    const QString access = request.path.isEmpty()
        ? QString()
        : flatpakAccess(emulator.emulatorID, request.path, facts.gameIsFolder, facts.home);
    if (!access.isEmpty()) options += access;
    for (const auto &[name, value] : plan.environment.asKeyValueRange())
        options += u"--env="_s + name + u'=' + value;
    plan.environment.clear();
    plan.command = flatpakCommand(emulator, options);
}

void prepareMac(LaunchPlan &plan, const LaunchRequest &request, const QString &emulatorID, const LaunchFacts &facts)
{
    plan.environment = macEnvironment(request.settings);
    const QStringList arguments = macArguments(request, emulatorID, facts);
    const EmulatorDef *def = emulatorWithID(emulatorID, Host::mac);
    plan.opensFile = def && !def->args && arguments.size() == 1;
    plan.command += arguments;
    if (emulatorID == "cemu"_L1) plan.programsToEnd = {u"Cemu"_s};
    if (emulatorID == "openemu"_L1) {
        plan.preferenceDomain = u"org.openemu.OpenEmu"_s;
        plan.preferenceKeys = {u"loadAutosaveDialogChoice"_s, u"stopEmulationWithoutConfirmation"_s};
    }
}

void prepareLinux(LaunchPlan &plan, const LaunchRequest &request, const InstalledEmulator &emulator,
                  const LaunchFacts &facts)
{
    const QString &id = emulator.emulatorID;
    plan.environment = linuxEnvironment(request.settings, id, facts);
    if (emulator.kind == ApplicationKind::flatpak)
        runInFlatpak(plan, request, emulator, facts);
    else
        startThroughMangoHud(plan, request.settings, id, facts);
    plan.command += linuxArguments(request, id, facts);
    // Cemu reads its list of games at its start only.
    if (id == "cemu"_L1) plan.programsToEnd = emulatorWithID(id, Host::linux)->programs;
    if (id == "retroarch"_L1) {
        plan.configFile = facts.retroArchConfig;
        plan.configText = retroArchConfig(request.settings, retroArchPort(request.path));
        if (facts.stateExists) {
            plan.stateToCopy = request.statePath.value_or(QString());
            plan.stateCopy = retroArchEntryState(plan.stateToCopy);
        }
    }
}

}

bool opensItself(const QString &path, const Console &console, Host host)
{
    if (console.engine == Engine::nxnative || console.engine == Engine::nativeApp) return true;
    return path.endsWith(host == Host::mac ? ".app"_L1 : ".appimage"_L1, Qt::CaseInsensitive);
}

QString engineOfNativeGame(const Console &console)
{
    return console.engine == Engine::nxnative ? u"nxnative"_s : u"native"_s;
}

LaunchPlan planNativeGame(const LaunchRequest &request, const Console &console, const LaunchFacts &facts)
{
    LaunchPlan plan;
    plan.engine = engineOfNativeGame(console);
    plan.applicationID = applicationIDOf({}, request.path);
    plan.command = {request.path};
    plan.workingFolder = facts.home;
    if (facts.host == Host::linux) {
        plan.environment = linuxEnvironment(request.settings, {}, facts);
        startThroughMangoHud(plan, request.settings, {}, facts);
        return plan;
    }
    plan.environment = macEnvironment(request.settings);
    if (request.settings.fps60) {
        plan.environment.insert(u"DM_FPS_TARGET"_s, u"60"_s);
        plan.environment.insert(u"DM_PRESENT_INTERVAL"_s, u"display"_s);
    }
    return plan;
}

LaunchPlan planEmulator(const LaunchRequest &request, const InstalledEmulator &emulator, const LaunchFacts &facts)
{
    LaunchPlan plan;
    plan.engine = emulator.emulatorID;
    plan.applicationID = applicationIDOf(emulator.applicationID, emulator.path);
    plan.command = emulator.command;
    plan.workingFolder = facts.home;
    if (facts.host == Host::mac)
        prepareMac(plan, request, emulator.emulatorID, facts);
    else
        prepareLinux(plan, request, emulator, facts);
    return plan;
}

LaunchPlan planEmulatorAlone(const InstalledEmulator &emulator, const LaunchFacts &facts)
{
    LaunchPlan plan;
    plan.engine = emulator.emulatorID;
    plan.applicationID = applicationIDOf(emulator.applicationID, emulator.path);
    plan.command = emulator.command;
    plan.workingFolder = facts.home;
    if (facts.host == Host::linux) plan.environment = linuxEnvironment({}, emulator.emulatorID, facts);
    if (emulator.kind == ApplicationKind::flatpak) runInFlatpak(plan, {}, emulator, facts);
    return plan;
}

QString mgbaSlotOf(const QString &gamePath)
{
    const qsizetype name = gamePath.lastIndexOf(u'/') + 1;
    const qsizetype dot = gamePath.lastIndexOf(u'.');
    return (dot > name ? gamePath.first(dot) : gamePath) + u".ss1"_s;
}
