#include "emulators/launch/LaunchPlan.h"
#include "catalog/EmulatorDef.h"
#include "emulators/launch/CommandChannel.h"
#include "emulators/launch/FlatpakAccess.h"
#include "emulators/settings/QualityValue.h"
#include "emulators/settings/RetroArchConfig.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

// A name with everything that a shell, a comma list or an option parser could trip over.
static const QString game = u"/home/u/Games/-f it's, \"a\" $(b):c;\n#d.iso"_s;
static const QString state = u"/home/u/states/My Game, 1.s01"_s;

static LaunchRequest request(const QString &options = {})
{
    LaunchRequest request{u"My Game"_s, game, {}, {}, {}};
    for (const QString &option : options.split(u'+', Qt::SkipEmptyParts)) {
        if (option == "state"_L1) request.statePath = state;
        if (option == "window"_L1) request.settings.fullScreen = false;
        if (option == "fps"_L1) request.settings.showFPS = true;
        if (option == "wide"_L1) request.settings.widescreen = true;
        if (option == "max"_L1) request.settings.quality = QualityPreset::maximum;
    }
    return request;
}

static LaunchFacts facts(Host host, const QString &options = {})
{
    LaunchFacts facts{.host = host, .home = u"/home/u"_s};
    facts.displays = options.contains("two"_L1) ? 2 : 1;
    facts.waylandSession = options.contains("wayland"_L1);
    facts.stateExists = options.contains("state"_L1);
    facts.slotBesideGame = options.contains("slot"_L1);
    facts.core = u"/cores/snes9x_libretro.so"_s;
    facts.retroArchConfig = u"/data/retroarch.cfg"_s;
    return facts;
}

static InstalledEmulator copyOf(const QString &id, ApplicationKind kind)
{
    const QString app = u"app.id"_s;
    switch (kind) {
    case ApplicationKind::native:
        return {id, kind, u"/usr/bin/prog"_s, {}, {u"prog"_s}};
    case ApplicationKind::appImage:
        return {id, kind, u"/a/P.AppImage"_s, {}, {u"/a/P.AppImage"_s}};
    case ApplicationKind::flatpak:
        return {id, kind, u"/e/app.id.desktop"_s, app, {u"flatpak"_s, u"run"_s, u"--command=c"_s, app}};
    case ApplicationKind::bundle:
        return {id, kind, u"/Applications/P.app"_s, app, {u"/Applications/P.app"_s}};
    }
    return {};
}

/// The argument vector in one line; an argument that is the game's path, whole, reads PATH.
static QString line(const QStringList &command)
{
    QStringList words = command;
    for (QString &word : words) {
        if (word == game) word = u"PATH"_s;
        if (word == game.chopped(4) + u".ss1"_s) word = u"SLOT"_s;
        word.replace(state, u"STATE"_s);
    }
    return words.join(u' ');
}

struct ArgumentRow {
    const char *emulator;
    const char *options;
    const char *arguments;
};

static std::string nameOf(const testing::TestParamInfo<ArgumentRow> &row)
{
    const QString options = QString::fromUtf8(row.param.options).replace(u'+', u'_');
    return (QString::fromUtf8(row.param.emulator) + (options.isEmpty() ? u"_fresh"_s : u'_' + options)).toStdString();
}

class MacArguments : public testing::TestWithParam<ArgumentRow> { };

TEST_P(MacArguments, standInTheirOrder)
{
    const QString options = QString::fromUtf8(GetParam().options);
    const LaunchPlan plan =
        planEmulator(request(options), copyOf(QString::fromUtf8(GetParam().emulator), ApplicationKind::bundle),
                     facts(Host::mac, options));
    EXPECT_EQ(line(plan.command.sliced(1)).toStdString(), GetParam().arguments);
    EXPECT_EQ(plan.command.first(), u"/Applications/P.app"_s);
    EXPECT_EQ(plan.opensFile,
              std::string_view(GetParam().arguments) == "PATH" && !emulatorWithID(plan.engine, Host::mac)->args);
    EXPECT_EQ(plan.applicationID, u"app.id"_s);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, MacArguments,
    testing::Values(
        ArgumentRow{"duckstation", "", "-fullscreen -batch -- PATH"},
        ArgumentRow{"duckstation", "state", "-state 1 -fullscreen -batch -- PATH"},
        ArgumentRow{"pcsx2", "", "-fullscreen -batch -- PATH"},
        ArgumentRow{"pcsx2", "state+two", "-state 1 -batch -- PATH"}, ArgumentRow{"pcsx2", "window", "-batch -- PATH"},
        ArgumentRow{"dolphin", "",
                    "-C Dolphin.Display.Fullscreen=True -b -e PATH -C GFX.Settings.InternalResolution=2 -C "
                    "GFX.Settings.wideScreenHack=False"},
        ArgumentRow{"dolphin", "state+two+wide+max",
                    "-s STATE -b -e PATH -C GFX.Settings.InternalResolution=4 -C GFX.Settings.wideScreenHack=True"},
        ArgumentRow{"xemu", "", "-full-screen -dvd_path PATH"}, ArgumentRow{"xemu", "two", "-dvd_path PATH"},
        ArgumentRow{"rpcs3", "", "--no-gui PATH"}, ArgumentRow{"flycast", "", "PATH"},
        ArgumentRow{"melonds", "", "-f PATH"}, ArgumentRow{"melonds", "two", "PATH"},
        ArgumentRow{"azahar", "", "-f PATH"}, ArgumentRow{"ppsspp", "", "--fullscreen PATH"},
        ArgumentRow{"ppsspp", "state", "--fullscreen PATH"}, ArgumentRow{"cemu", "", "-f -g PATH"},
        ArgumentRow{"shadps4", "", "-f true -g PATH"}, ArgumentRow{"shadps4", "two", "-g PATH"},
        ArgumentRow{"openemu", "", "PATH"}, ArgumentRow{"openemu", "fps", "PATH"}, ArgumentRow{"mgba", "", "PATH"},
        ArgumentRow{"mgba", "two", "PATH"}, ArgumentRow{"mgba", "state", "-t STATE -f PATH"},
        ArgumentRow{"mgba", "slot+two", "-t SLOT PATH"}, ArgumentRow{"mgba", "state+slot", "-t STATE -f PATH"}),
    nameOf);

class LinuxArguments : public testing::TestWithParam<ArgumentRow> { };

TEST_P(LinuxArguments, areTheSameForEveryKind)
{
    const QString options = QString::fromUtf8(GetParam().options);
    for (const ApplicationKind kind : {ApplicationKind::native, ApplicationKind::appImage, ApplicationKind::flatpak}) {
        const InstalledEmulator copy = copyOf(QString::fromUtf8(GetParam().emulator), kind);
        const LaunchPlan plan = planEmulator(request(options), copy, facts(Host::linux, options));
        const qsizetype program = plan.command.indexOf(copy.command.last());
        ASSERT_GE(program, 0);
        EXPECT_EQ(line(plan.command.sliced(program + 1)).toStdString(), GetParam().arguments);
        EXPECT_EQ(plan.workingFolder, u"/home/u"_s);
        EXPECT_FALSE(plan.opensFile);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Rows, LinuxArguments,
    testing::Values(
        ArgumentRow{"mgba", "", "-f PATH"}, ArgumentRow{"mgba", "state", "-f -t STATE PATH"},
        ArgumentRow{"mgba", "slot+two", "-C fullscreen=0 -t SLOT PATH"}, ArgumentRow{"mgba", "two+wayland", "-f PATH"},
        ArgumentRow{"mgba", "window", "-C fullscreen=0 PATH"}, ArgumentRow{"mgba", "fps", "-f -C showFps=1 PATH"},
        ArgumentRow{"duckstation", "two", "-nofullscreen -batch -- PATH"},
        ArgumentRow{"duckstation", "state", "-fullscreen -statefile STATE -batch -- PATH"},
        ArgumentRow{"pcsx2", "", "-fullscreen -batch -- PATH"},
        ArgumentRow{"pcsx2", "window+fps", "-nofullscreen -batch -- PATH"},
        ArgumentRow{"flycast", "", "-config window:fullscreen=yes,config:rend.Resolution=960 PATH"},
        ArgumentRow{"flycast", "window+max+fps+state",
                    "-config "
                    "window:fullscreen=no,config:rend.Resolution=1920,config:rend.ShowFPS=yes,config:Dreamcast."
                    "AutoLoadState=yes,config:Dreamcast.SavestateSlot=0 PATH"},
        ArgumentRow{"dolphin", "",
                    "-C Dolphin.Display.Fullscreen=True -C Dolphin.Interface.ConfirmStop=False -C "
                    "Dolphin.Analytics.PermissionAsked=True -b -e PATH -C Graphics.Settings.InternalResolution=2 -C "
                    "Graphics.Settings.wideScreenHack=False"},
        ArgumentRow{
            "dolphin", "window+state+wide+max+fps",
            "-C Dolphin.Display.Fullscreen=False -C Dolphin.Interface.ConfirmStop=False -C "
            "Dolphin.Analytics.PermissionAsked=True -s STATE -b -e PATH -C Graphics.Settings.InternalResolution=4 -C "
            "Graphics.Settings.wideScreenHack=True -C Graphics.Settings.ShowFPS=True"},
        ArgumentRow{"xemu", "", "-full-screen -dvd_path PATH"}, ArgumentRow{"xemu", "window", "-dvd_path PATH"},
        ArgumentRow{"melonds", "", "-f PATH"}, ArgumentRow{"azahar", "", "-f PATH"},
        ArgumentRow{"azahar", "window", "-w PATH"}, ArgumentRow{"ppsspp", "", "--fullscreen PATH"},
        ArgumentRow{"ppsspp", "state", "--fullscreen --state=STATE PATH"},
        ArgumentRow{"rpcs3", "", "--no-gui --fullscreen PATH"}, ArgumentRow{"rpcs3", "two", "--no-gui PATH"},
        ArgumentRow{"rpcs3", "window", "--no-gui PATH"},
        ArgumentRow{"rpcs3", "state", "--no-gui --fullscreen --savestate STATE"}, ArgumentRow{"cemu", "", "-f -g PATH"},
        ArgumentRow{"shadps4", "", "-f true -g PATH"},
        ArgumentRow{"shadps4", "window+fps", "-f false --show-fps -g PATH"},
        ArgumentRow{"retroarch", "", "-f -L /cores/snes9x_libretro.so --appendconfig /data/retroarch.cfg PATH"},
        ArgumentRow{"retroarch", "window+state",
                    "-L /cores/snes9x_libretro.so --appendconfig /data/retroarch.cfg -e 1 PATH"}),
    nameOf);

TEST(LaunchPlan, aStateThatHasGoneIsNotAskedFor)
{
    for (const EmulatorDef &def : emulatorDefs(Host::linux)) {
        const InstalledEmulator copy = copyOf(def.id, ApplicationKind::native);
        EXPECT_EQ(planEmulator(request(u"state"_s), copy, facts(Host::linux)),
                  planEmulator(request(), copy, facts(Host::linux)))
            << qPrintable(def.id);
    }
}

static QString environmentOf(const LaunchPlan &plan)
{
    QStringList all;
    for (const auto &[name, value] : plan.environment.asKeyValueRange())
        all += name + u'=' + value;
    return all.join(u' ');
}

TEST(LaunchPlan, environmentOnLinux)
{
    LaunchFacts machine = facts(Host::linux);
    const InstalledEmulator azahar = copyOf(u"azahar"_s, ApplicationKind::native);
    const InstalledEmulator mgba = copyOf(u"mgba"_s, ApplicationKind::native);
    EXPECT_EQ(environmentOf(planEmulator(request(u"fps"_s), azahar, machine)), u"QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1"_s);
    machine.mangoHud = true;
    const LaunchPlan counted = planEmulator(request(u"fps"_s), azahar, machine);
    EXPECT_EQ(environmentOf(counted), u"MANGOHUD=1 QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1"_s);
    EXPECT_EQ(counted.command.first(2), QStringList{u"mangohud"_s} + azahar.command);
    EXPECT_EQ(environmentOf(planEmulator(request(u"fps"_s), mgba, machine)), u"QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1"_s)
        << "it has a counter of its own";
    EXPECT_EQ(environmentOf(planEmulator(request(), azahar, machine)), u"QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1"_s);
    machine.waylandSession = true;
    EXPECT_EQ(
        environmentOf(planEmulator(request(), azahar, machine)),
        u"GDK_BACKEND=x11 QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1 QT_QPA_PLATFORM=xcb SDL_VIDEODRIVER=x11 SDL_VIDEO_DRIVER=x11"_s);
}

TEST(LaunchPlan, environmentOnTheMac)
{
    for (const QString &id : {u"openemu"_s, u"pcsx2"_s}) {
        const InstalledEmulator copy = copyOf(id, ApplicationKind::bundle);
        EXPECT_EQ(environmentOf(planEmulator(request(), copy, facts(Host::mac))), QString());
        EXPECT_EQ(environmentOf(planEmulator(request(u"fps"_s), copy, facts(Host::mac))),
                  u"DM_METAL_HUD=1 MTL_HUD_ENABLED=1"_s);
    }
}

TEST(LaunchPlan, aFlatpakGetsEnvironmentAndFoldersAsOptions)
{
    LaunchRequest asked = request(u"fps"_s);
    asked.path = u"/mnt/ps2/a:b\\c/game.iso"_s;
    LaunchFacts machine = facts(Host::linux);
    machine.mangoHud = true;
    const LaunchPlan plan = planEmulator(asked, copyOf(u"pcsx2"_s, ApplicationKind::flatpak), machine);
    EXPECT_EQ(plan.command,
              (QStringList{u"flatpak"_s, u"run"_s, u"--filesystem=/mnt/ps2/a\\:b\\\\c:ro"_s,
                           u"--env=QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1"_s, u"--command=c"_s, u"app.id"_s,
                           u"-fullscreen"_s, u"-batch"_s, u"--"_s, asked.path}));
    EXPECT_EQ(plan.applicationID, u"app.id"_s);
    EXPECT_TRUE(plan.environment.isEmpty());
}

struct AccessRow {
    const char *test;
    const char *emulator;
    const char *path;
    bool folder;
    const char *option;
};
class FlatpakAccess : public testing::TestWithParam<AccessRow> { };

TEST_P(FlatpakAccess, addsWhatIsMissing)
{
    const AccessRow &row = GetParam();
    EXPECT_EQ(flatpakAccess(QString::fromUtf8(row.emulator), QString::fromUtf8(row.path), row.folder, u"/home/u"_s)
                  .toStdString(),
              row.option);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, FlatpakAccess,
    testing::Values(AccessRow{"wholeHost", "mgba", "/mnt/a.gba", false, ""},
                    AccessRow{"retroArch", "retroarch", "/mnt/a.sfc", false, ""},
                    AccessRow{"homeIsEnough", "melonds", "/home/u/a.nds", false, ""},
                    AccessRow{"statesBesideTheGame", "melonds", "/mnt/ds/a.nds", false, "--filesystem=/mnt/ds"},
                    AccessRow{"anothersHome", "melonds", "/home/u2/a.nds", false, "--filesystem=/home/u2"},
                    AccessRow{"always", "pcsx2", "/home/u/ps2/a.iso", false, "--filesystem=/home/u/ps2:ro"},
                    AccessRow{"media", "rpcs3", "/run/media/u/d/a.iso", false, ""},
                    AccessRow{"wholeGame", "rpcs3", "/mnt/G/PS3_GAME/USRDIR/EBOOT.BIN", false,
                              "--filesystem=/mnt/G:ro"},
                    AccessRow{"gameFolder", "shadps4", "/mnt/CUSA00001", true, "--filesystem=/mnt/CUSA00001:ro"},
                    AccessRow{"atTheRoot", "pcsx2", "/a.iso", false, "--filesystem=/:ro"}),
    [](const auto &row) { return row.param.test; });

TEST(LaunchPlan, whatMustBeDoneBefore)
{
    for (const Host host : {Host::mac, Host::linux}) {
        for (const EmulatorDef &def : emulatorDefs(host)) {
            const auto kind = host == Host::mac ? ApplicationKind::bundle : ApplicationKind::native;
            const LaunchPlan plan = planEmulator(request(), copyOf(def.id, kind), facts(host));
            EXPECT_EQ(plan.programsToEnd.contains(u"Cemu"_s), def.id == "cemu"_L1) << qPrintable(def.id);
            EXPECT_EQ(plan.preferenceDomain, def.id == "openemu"_L1 ? u"org.openemu.OpenEmu"_s : QString());
            EXPECT_EQ(plan.preferenceKeys.size(), def.id == "openemu"_L1 ? 2 : 0);
            EXPECT_EQ(plan.configFile, def.id == "retroarch"_L1 ? u"/data/retroarch.cfg"_s : QString());
        }
    }
}

TEST(LaunchPlan, openEmuGetsItsOwnCopyOfTheGame)
{
    LaunchFacts machine = facts(Host::mac);
    machine.openEmuCopy = u"/home/u/Library/roms/SNES/game.sfc"_s;
    const LaunchPlan plan = planEmulator(request(), copyOf(u"openemu"_s, ApplicationKind::bundle), machine);
    EXPECT_EQ(plan.command.last(), machine.openEmuCopy);
    EXPECT_TRUE(plan.opensFile);
}

struct ItselfRow {
    const char *test;
    const char *path;
    const char *console;
    Host host;
    bool itself;
};
class OpensItself : public testing::TestWithParam<ItselfRow> { };

TEST_P(OpensItself, whenItIsAProgram)
{
    const Console &console = *consoleWithID(QString::fromUtf8(GetParam().console), GetParam().host);
    EXPECT_EQ(opensItself(QString::fromUtf8(GetParam().path), console, GetParam().host), GetParam().itself);
}

INSTANTIATE_TEST_SUITE_P(Rows, OpensItself,
                         testing::Values(ItselfRow{"built", "/g/Game", "switch", Host::linux, true},
                                         ItselfRow{"program", "/g/soh.x86_64", "native", Host::linux, true},
                                         ItselfRow{"appImageOfAnyConsole", "/g/Port.AppImage", "n64", Host::linux,
                                                   true},
                                         ItselfRow{"rom", "/g/game.z64", "n64", Host::linux, false},
                                         ItselfRow{"homebrewOf3ds", "/g/game.app", "3ds", Host::linux, false},
                                         ItselfRow{"bundleOfAnyConsole", "/g/Game.app", "3ds", Host::mac, true},
                                         ItselfRow{"appImageOnTheMac", "/g/Port.AppImage", "n64", Host::mac, false}),
                         [](const auto &row) { return row.param.test; });

TEST(LaunchPlan, nativeGames)
{
    LaunchRequest asked = request(u"fps"_s);
    asked.settings.fps60 = true;
    LaunchFacts linuxFacts = facts(Host::linux);
    linuxFacts.mangoHud = true;
    const LaunchPlan onLinux = planNativeGame(asked, *consoleWithID(u"native"_s, Host::linux), linuxFacts);
    EXPECT_EQ(onLinux.command, (QStringList{u"mangohud"_s, game})) << "its variable alone reaches no OpenGL program";
    EXPECT_EQ(onLinux.engine, u"native"_s);
    EXPECT_EQ(environmentOf(onLinux), u"MANGOHUD=1 QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1"_s);

    const Console &built = *consoleWithID(u"switch"_s, Host::mac);
    EXPECT_EQ(planNativeGame(asked, built, facts(Host::mac)).engine, u"nxnative"_s);
    EXPECT_EQ(environmentOf(planNativeGame(asked, built, facts(Host::mac))),
              u"DM_FPS_TARGET=60 DM_METAL_HUD=1 DM_PRESENT_INTERVAL=display MTL_HUD_ENABLED=1"_s);
    asked.settings = {};
    EXPECT_EQ(environmentOf(planNativeGame(asked, built, facts(Host::mac))), QString());
}

TEST(LaunchPlan, mgbaSlotLiesBesideTheGame)
{
    EXPECT_EQ(mgbaSlotOf(u"/a.b/game.tar.gba"_s), u"/a.b/game.tar.ss1"_s);
    EXPECT_EQ(mgbaSlotOf(u"/a.b/game"_s), u"/a.b/game.ss1"_s);
    EXPECT_EQ(mgbaSlotOf(u"/a.b/.gba"_s), u"/a.b/.gba.ss1"_s);
}

TEST(QualityValue, isWhatTheEmulatorCounts)
{
    const auto row = [](const QString &id) {
        return QStringList{QString::number(qualityValue(id, QualityPreset::minimum, Host::linux)),
                           QString::number(qualityValue(id, QualityPreset::medium, Host::linux)),
                           QString::number(qualityValue(id, QualityPreset::maximum, Host::linux))}
            .join(u' ');
    };
    EXPECT_EQ(row(u"dolphin"_s), u"1 2 4"_s);
    EXPECT_EQ(row(u"duckstation"_s), u"1 4 8"_s);
    EXPECT_EQ(row(u"rpcs3"_s), u"100 150 300"_s);
    EXPECT_EQ(row(u"xemu"_s), u"1 2 3"_s);
    EXPECT_EQ(row(u"azahar"_s), u"1 3 6"_s);
    EXPECT_EQ(row(u"flycast"_s), u"480 960 1920"_s);
    EXPECT_EQ(row(u"mgba"_s), u"1 1 1"_s);
    EXPECT_EQ(defaultQuality(u"maximum"_s), QualityPreset::maximum);
    EXPECT_EQ(defaultQuality(u"Maximum"_s), QualityPreset::medium);
}

TEST(LaunchPlan, emulatorsTakeCommandsWhereTheirGameIsKnown)
{
    LaunchFacts xemu = facts(Host::linux);
    xemu.xemuSocket = xemuSocket(game, u"/run/user/1,2"_s, {});
    const QStringList command = planEmulator(request(), copyOf(u"xemu"_s, ApplicationKind::native), xemu).command;
    const QString name = u"/xemu-"_s + xemu.xemuSocket.section(u"/xemu-"_s, 1);
    EXPECT_EQ(command.value(command.indexOf(u"-qmp"_s) + 1),
              u"unix:/run/user/1,,2/velko"_s + name + u",server,nowait"_s);
    EXPECT_TRUE(xemuSocket(game, u"/run"_s, u"app.xemu.xemu"_s).startsWith(u"/run/app/app.xemu.xemu/"_s));
    EXPECT_NE(xemuSocket(game, u"/run"_s, {}), xemuSocket(u"/other"_s, u"/run"_s, {}));

    const quint16 port = retroArchPort(game);
    EXPECT_TRUE(port >= 20000 && port < 30000 && port != retroArchPort(u"/other"_s));
    EXPECT_TRUE(retroArchConfig({}, port).contains("network_cmd_port = \"" + QByteArray::number(port) + "\"\n"));

    EXPECT_EQ(pcsx2Socket("[EmuCore]\nPINESlot = 28011\n", u"/run"_s), u"/run/pcsx2.sock"_s);
    EXPECT_EQ(pcsx2Socket("[EmuCore]\nPINESlot = 28012\n", u"/run"_s), u"/run/pcsx2.sock.28012"_s);
    EXPECT_EQ(pcsx2Socket({}, u"/run"_s), u"/run/pcsx2.sock"_s);
}

TEST(RetroArchConfig, saysOnlyWhatTheGameAsksFor)
{
    GameSettings settings;
    EXPECT_TRUE(retroArchConfig(settings, 20001).contains("config_save_on_exit = \"false\"\n"));
    EXPECT_FALSE(retroArchConfig(settings, 20001).contains("video_fullscreen"));
    EXPECT_FALSE(retroArchConfig(settings, 20001).contains("fps_show"));
    settings.fullScreen = false;
    settings.showFPS = true;
    EXPECT_TRUE(retroArchConfig(settings, 20001).contains("video_fullscreen = \"false\"\n"));
    EXPECT_TRUE(retroArchConfig(settings, 20001).contains("fps_show = \"true\"\n"));
}

TEST(RetroArchConfig, resumesFromTheEntryBesideTheState)
{
    EXPECT_EQ(retroArchEntryState(u"/s/a.state.b/game.state3"_s), u"/s/a.state.b/game.state3.entry"_s);
    EXPECT_EQ(retroArchEntryState(u"/s/game.state"_s), u"/s/game.state1.entry"_s);
    EXPECT_EQ(retroArchEntryState(u"/s/odd"_s), u"/s/odd.state1.entry"_s);
}

TEST(RetroArchConfig, entrySlotIsInTheName)
{
    EXPECT_EQ(retroArchEntrySlot(u"/s/game.state1"_s), 1);
    EXPECT_EQ(retroArchEntrySlot(u"/s/game.state12"_s), 12);
    EXPECT_EQ(retroArchEntrySlot(u"/s/game.state"_s), 1);
    EXPECT_EQ(retroArchEntrySlot(u"/s/game.state3.png"_s), 1);
}
