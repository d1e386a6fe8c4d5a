#include "emulators/launch/LaunchArguments.h"

#include "catalog/EmulatorDef.h"
#include "emulators/settings/QualityValue.h"
#include "emulators/settings/RetroArchConfig.h"

#include <QHash>

using namespace Qt::StringLiterals;

bool startsFullScreen(const LaunchRequest &request, const LaunchFacts &facts)
{
    // Wayland lets nobody place a window.
    const bool placedFirst = facts.displays > 1 && !(facts.host == Host::linux && facts.waylandSession);
    return request.settings.fullScreen.value_or(true) && !placedFirst;
}

namespace {

/// The state to load; empty: none.
QString stateOf(const LaunchRequest &request, const QString &emulatorID, const LaunchFacts &facts)
{
    if (facts.stateExists) return request.statePath.value_or(QString());
    const bool resumesByItself = emulatorID == "mgba"_L1 && !request.statePath && facts.slotBesideGame;
    return resumesByItself ? mgbaSlotOf(request.path) : QString();
}

QString quality(const LaunchRequest &request, const QString &emulatorID, const LaunchFacts &facts)
{
    return QString::number(qualityValue(emulatorID, request.settings.quality.value_or(facts.quality), facts.host));
}

QString word(bool value)
{
    return value ? u"True"_s : u"False"_s;
}

QStringList fullScreenArguments(const QString &emulatorID)
{
    static const QHash<QString, QStringList> arguments{
        {u"melonds"_s, {u"-f"_s}},
        {u"mgba"_s, {u"-f"_s}},
        {u"cemu"_s, {u"-f"_s}},
        {u"azahar"_s, {u"-f"_s}},
        {u"shadps4"_s, {u"-f"_s, u"true"_s}},
        {u"pcsx2"_s, {u"-fullscreen"_s}},
        {u"duckstation"_s, {u"-fullscreen"_s}},
        {u"ppsspp"_s, {u"--fullscreen"_s}},
        {u"dolphin"_s, {u"-C"_s, u"Dolphin.Display.Fullscreen=True"_s}},
        {u"xemu"_s, {u"-full-screen"_s}},
    };
    return arguments.value(emulatorID);
}

/// For emulators that would otherwise start full screen when they did so before.
QStringList windowArguments(const QString &emulatorID)
{
    static const QHash<QString, QStringList> arguments{
        {u"mgba"_s, {u"-C"_s, u"fullscreen=0"_s}},
        {u"azahar"_s, {u"-w"_s}},
        {u"shadps4"_s, {u"-f"_s, u"false"_s}},
        {u"pcsx2"_s, {u"-nofullscreen"_s}},
        {u"duckstation"_s, {u"-nofullscreen"_s}},
        {u"ppsspp"_s, {u"--windowed"_s}},
        {u"dolphin"_s, {u"-C"_s, u"Dolphin.Display.Fullscreen=False"_s}},
    };
    return arguments.value(emulatorID);
}

QStringList stateArguments(const QString &emulatorID, const QString &state)
{
    if (state.isEmpty()) return {};
    if (emulatorID == "pcsx2"_L1 || emulatorID == "duckstation"_L1) return {u"-state"_s, u"1"_s};
    if (emulatorID == "dolphin"_L1) return {u"-s"_s, state};
    if (emulatorID == "mgba"_L1) return {u"-t"_s, state};
    return {};
}

/// The file itself, where it can be named: a slot may hold another state by now.
QStringList linuxStateArguments(const QString &emulatorID, const QString &state)
{
    if (state.isEmpty()) return {};
    if (emulatorID == "pcsx2"_L1 || emulatorID == "duckstation"_L1) return {u"-statefile"_s, state};
    if (emulatorID == "ppsspp"_L1) return {u"--state="_s + state};
    return stateArguments(emulatorID, state);
}

/// xemu's monitor, in the words of QEMU, for which a comma ends the path.
QStringList monitorArguments(const QString &socket)
{
    return {u"-qmp"_s, u"unix:"_s + QString(socket).replace(u","_s, u",,"_s) + u",server,nowait"_s};
}

QStringList dolphinArguments(const LaunchRequest &request, const QString &state, const LaunchFacts &facts)
{
    const GameSettings &settings = request.settings;
    const auto set = [](const QString &setting) { return QStringList{u"-C"_s, setting}; };
    QStringList arguments =
        startsFullScreen(request, facts) ? fullScreenArguments(u"dolphin"_s) : windowArguments(u"dolphin"_s);
    // Its questions: at the end whether to end, at the first start whether it may send statistics.
    arguments += set(u"Dolphin.Interface.ConfirmStop=False"_s) + set(u"Dolphin.Analytics.PermissionAsked=True"_s);
    arguments += stateArguments(u"dolphin"_s, state);
    // Without -b its list of games stays, in a window that is larger than the game's.
    arguments += {u"-b"_s, u"-e"_s, request.path};
    // The system is called Graphics on the command line, although its file is GFX.ini.
    arguments += set(u"Graphics.Settings.InternalResolution="_s + quality(request, u"dolphin"_s, facts));
    arguments += set(u"Graphics.Settings.wideScreenHack="_s + word(settings.widescreen));
    if (settings.showFPS) arguments += set(u"Graphics.Settings.ShowFPS=True"_s);
    return arguments;
}

QStringList flycastArguments(const LaunchRequest &request, const QString &state, const LaunchFacts &facts)
{
    QStringList settings{u"window:fullscreen="_s + (startsFullScreen(request, facts) ? u"yes"_s : u"no"_s),
                         u"config:rend.Resolution="_s + quality(request, u"flycast"_s, facts)};
    if (request.settings.showFPS) settings += u"config:rend.ShowFPS=yes"_s;
    if (request.settings.widescreen)
        settings += {u"config:rend.WideScreen=yes"_s, u"config:rend.WidescreenGameHacks=yes"_s};
    if (!state.isEmpty()) settings += {u"config:Dreamcast.AutoLoadState=yes"_s, u"config:Dreamcast.SavestateSlot=0"_s};
    return {u"-config"_s, settings.join(u','), request.path};
}

QStringList rpcs3Arguments(const LaunchRequest &request, const QString &state, const LaunchFacts &facts)
{
    QStringList arguments{u"--no-gui"_s};
    if (startsFullScreen(request, facts)) arguments += u"--fullscreen"_s;
    // A state names its game.
    return arguments + (state.isEmpty() ? QStringList{request.path} : QStringList{u"--savestate"_s, state});
}

QStringList retroArchArguments(const LaunchRequest &request, const QString &state, const LaunchFacts &facts)
{
    QStringList arguments;
    if (startsFullScreen(request, facts)) arguments += u"-f"_s;
    arguments += {u"-L"_s, facts.core, u"--appendconfig"_s, facts.retroArchConfig};
    if (!state.isEmpty()) arguments += {u"-e"_s, QString::number(retroArchEntrySlot(state))};
    return arguments + QStringList{request.path};
}

QStringList counterArguments(const QString &emulatorID)
{
    if (emulatorID == "mgba"_L1) return {u"-C"_s, u"showFps=1"_s};
    if (emulatorID == "shadps4"_L1) return {u"--show-fps"_s};
    return {};
}

}

bool showsOwnCounter(const QString &emulatorID)
{
    static const QStringList own{u"dolphin"_s, u"flycast"_s,     u"mgba"_s,   u"retroarch"_s, u"shadps4"_s,
                                 u"pcsx2"_s,   u"duckstation"_s, u"ppsspp"_s, u"rpcs3"_s,     u"cemu"_s};
    return own.contains(emulatorID);
}

QStringList macArguments(const LaunchRequest &request, const QString &emulatorID, const LaunchFacts &facts)
{
    const EmulatorDef *def = emulatorWithID(emulatorID, Host::mac);
    QStringList arguments = stateArguments(emulatorID, stateOf(request, emulatorID, facts));
    const bool opensFile = def && !def->args && arguments.isEmpty();
    if (opensFile) return {facts.openEmuCopy.isEmpty() ? request.path : facts.openEmuCopy};
    if (startsFullScreen(request, facts)) arguments += fullScreenArguments(emulatorID);
    if (def) arguments += def->args.value_or(QStringList());
    arguments += request.path;
    if (emulatorID == "dolphin"_L1) {
        arguments += {u"-C"_s, u"GFX.Settings.InternalResolution="_s + quality(request, emulatorID, facts)};
        arguments += {u"-C"_s, u"GFX.Settings.wideScreenHack="_s + word(request.settings.widescreen)};
    }
    return arguments;
}

QStringList linuxArguments(const LaunchRequest &request, const QString &emulatorID, const LaunchFacts &facts)
{
    const QString state = stateOf(request, emulatorID, facts);
    if (emulatorID == "dolphin"_L1) return dolphinArguments(request, state, facts);
    if (emulatorID == "flycast"_L1) return flycastArguments(request, state, facts);
    if (emulatorID == "rpcs3"_L1) return rpcs3Arguments(request, state, facts);
    if (emulatorID == "retroarch"_L1) return retroArchArguments(request, state, facts);

    QStringList arguments =
        startsFullScreen(request, facts) ? fullScreenArguments(emulatorID) : windowArguments(emulatorID);
    arguments += linuxStateArguments(emulatorID, state);
    if (emulatorID == "xemu"_L1 && !facts.xemuSocket.isEmpty()) arguments += monitorArguments(facts.xemuSocket);
    if (request.settings.showFPS) arguments += counterArguments(emulatorID);
    const EmulatorDef *def = emulatorWithID(emulatorID, Host::linux);
    if (def) arguments += def->args.value_or(QStringList());
    return arguments + QStringList{request.path};
}
