#include "emulators/finding/EmulatorFinder.h"
#include "emulators/finding/InstalledEmulators.h"
#include "fakes/FakeFileIndex.h"
#include "fakes/FakeTasks.h"
#include "fakes/FakeWorkspace.h"
#include "fakes/TemporaryHome.h"
#include "platform/Preferences.h"

#include <QFile>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

/// A machine on which only what a test puts there is installed.
class Discovery : public testing::Test {
protected:
    QString program(const QString &name)
    {
        const QString file = home.write(name, "#!/bin/sh\n");
        QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return file;
    }
    QString desktopEntry(const QString &id, const QString &path, QStringList command = {})
    {
        if (command.isEmpty()) command = {path};
        workspace.installed += Application{id, id, ApplicationKind::native, path, command};
        return path;
    }
    QString flatpak(const QString &id)
    {
        const QString path = home.write(u".local/share/flatpak/exports/share/applications/"_s + id + u".desktop"_s);
        workspace.installed += Application{
            id, id, ApplicationKind::flatpak, path, {u"/usr/bin/flatpak"_s, u"run"_s, u"--command=x"_s, id}};
        return path;
    }
    EmulatorFinder finder() { return {places, workspace, index}; }
    /// The path of the copy that is found, or an empty text.
    QString path(const QString &emulator)
    {
        const auto found = finder().find(*emulatorWithID(emulator, places.host), choices);
        return found ? found->path : QString();
    }
    QStringList paths(const QString &emulator)
    {
        QStringList all;
        for (const InstalledEmulator &copy : finder().copies(*emulatorWithID(emulator, places.host), choices))
            all += copy.path;
        return all;
    }
    QString emulatorOf(const QString &console)
    {
        const auto found = finder().forConsole(*consoleWithID(console, places.host), choices);
        return found ? found->emulatorID : QString();
    }

    const TemporaryHome home;
    Places places = home.places();
    FakeWorkspace workspace;
    FakeFileIndex index;
    EmulatorChoices choices;
};

TEST_F(Discovery, goesFromTheUsersChoiceToTheIndex)
{
    // Every place at once; the first is taken away each time and the next must answer.
    const QString chosen = program(u"mine/my-build"_s);
    choices.pathByEmulator[u"pcsx2"_s] = chosen;
    const QStringList inOrder{chosen,
                              desktopEntry(u"pcsx2-qt"_s, program(u"elsewhere/pcsx2-qt"_s)),
                              flatpak(u"net.pcsx2.PCSX2"_s),
                              home.write(u"Applications/pcsx2-v2.0.0.AppImage"_s),
                              home.write(u"AppImages/pcsx2-v2.9.0.AppImage"_s),
                              program(u".local/bin/pcsx2-qt"_s),
                              home.write(u"opt/PCSX2.AppImage"_s),
                              program(u"opt/pcsx2-2.6/pcsx2-qt"_s),
                              home.write(u"Downloads/pcsx2-v2.8.2.AppImage"_s),
                              home.write(u"Desktop/pcsx2-v2.8.2.AppImage"_s),
                              home.write(u"Velko/Emulators/pcsx2-v2.1.AppImage"_s),
                              program(u"bin/pcsx2-qt"_s),
                              home.write(u"deep/down/pcsx2-v1.7.AppImage"_s)};
    index.files = {inOrder.last()};
    EXPECT_EQ(paths(u"pcsx2"_s), inOrder);
    for (const QString &each : inOrder) {
        EXPECT_EQ(path(u"pcsx2"_s), each);
        ASSERT_TRUE(QFile::remove(each));
    }
    EXPECT_EQ(path(u"pcsx2"_s), QString());
}

TEST_F(Discovery, carriesTheKindAndTheCommand)
{
    flatpak(u"net.shadps4.shadPS4"_s);
    flatpak(u"net.pcsx2.PCSX2"_s);
    const QString appImage = home.write(u"AppImages/xemu-0.8.5-x86_64.AppImage"_s);
    const QString dolphin = program(u"games/dolphin-emu"_s);
    desktopEntry(u"dolphin-emu"_s, dolphin, {u"env"_s, u"QT_QPA_PLATFORM=xcb"_s, dolphin});
    QDir().mkpath(home.path() + u"/bin"_s);
    ASSERT_TRUE(QFile::link(program(u"own/flycast.AppImage"_s), home.path() + u"/bin/flycast"_s));

    const auto copy = [this](const QString &id) { return *finder().find(*emulatorWithID(id, Host::linux), choices); };
    EXPECT_EQ(copy(u"shadps4"_s).kind, ApplicationKind::flatpak);
    EXPECT_EQ(copy(u"shadps4"_s).applicationID, u"net.shadps4.shadPS4"_s);
    EXPECT_EQ(copy(u"shadps4"_s).command.join(u' '), u"/usr/bin/flatpak run --command=shadps4 net.shadps4.shadPS4"_s);
    EXPECT_EQ(copy(u"pcsx2"_s).command.join(u' '), u"/usr/bin/flatpak run --command=x net.pcsx2.PCSX2"_s);
    EXPECT_EQ(copy(u"xemu"_s).kind, ApplicationKind::appImage);
    EXPECT_EQ(copy(u"xemu"_s).command, QStringList{appImage});
    EXPECT_EQ(copy(u"dolphin"_s).kind, ApplicationKind::native);
    EXPECT_EQ(copy(u"dolphin"_s).command.join(u' '), u"env QT_QPA_PLATFORM=xcb "_s + dolphin);
    EXPECT_EQ(copy(u"flycast"_s).kind, ApplicationKind::appImage) << "a link on PATH that leads to an AppImage";
}

TEST_F(Discovery, leavesOutWhatIsNoUse)
{
    desktopEntry(u"dolphin-emu"_s, program(u".local/share/Trash/files/dolphin-emu"_s));
    desktopEntry(u"xemu"_s, home.path() + u"/gone/xemu"_s);
    desktopEntry(u"rpcs3"_s, program(u"usr/rpcs3"_s), {u"sh"_s, u"-c"_s, u"rpcs3 %f"_s});
    home.write(u"bin/flycast"_s); // not executable
    QDir().mkpath(home.path() + u"/AppImages/cemu-2.6.AppImage"_s); // a folder
    index.files = {home.write(u".local/share/Trash/files/pcsx2-v2.8.2.AppImage"_s),
                   home.write(u".cache/x/xemu-0.8.5-x86_64.AppImage"_s), home.write(u"x/azahar-room.AppImage"_s),
                   home.path() + u"/stale/duckstation-x64.AppImage"_s};
    for (const EmulatorDef &def : emulatorDefs(Host::linux))
        EXPECT_EQ(path(def.id), QString()) << qPrintable(def.id);
}

TEST_F(Discovery, reportsAnAppImageThatMayNotRunYet)
{
    const QString file = home.write(u"Downloads/Cemu-2.6-x86_64.AppImage"_s);
    const auto before = QFile::permissions(file);
    EXPECT_EQ(path(u"cemu"_s), file);
    EXPECT_EQ(QFile::permissions(file), before);
}

TEST_F(Discovery, takesTheNewestVersionInAFolder)
{
    home.write(u"AppImages/mGBA-0.9.3-appimage-x64.appimage"_s);
    const QString newest = home.write(u"AppImages/mGBA-0.10.5-appimage-x64.appimage"_s);
    home.write(u"Downloads/mGBA-0.11.0-appimage-x64.appimage"_s);
    EXPECT_EQ(path(u"mgba"_s), newest);
}

TEST_F(Discovery, listsEachFileOnce)
{
    const QString file = program(u"bin/mgba-qt"_s);
    desktopEntry(u"io.mgba.mGBA"_s, file);
    choices.pathByEmulator[u"mgba"_s] = file;
    QFile::link(file, home.path() + u"/bin/mgba"_s);
    EXPECT_EQ(paths(u"mgba"_s), QStringList{file});
}

TEST_F(Discovery, prefersTheBetterProgramNameToTheEarlierFolder)
{
    places.programDirs = {home.path() + u"/a"_s, home.path() + u"/b"_s};
    program(u"a/mgba"_s);
    const QString qt = program(u"b/mgba-qt"_s);
    EXPECT_EQ(path(u"mgba"_s), qt);
}

TEST_F(Discovery, looksIntoTheChosenVelkoFolder)
{
    const QString file = home.write(u"Elsewhere/Emulators/flycast-x86_64.AppImage"_s);
    EXPECT_EQ(path(u"flycast"_s), QString());
    choices.velkoFolder = home.path() + u"/Elsewhere"_s;
    EXPECT_EQ(path(u"flycast"_s), file);
}

TEST_F(Discovery, rememberedPathMayBeAFlatpakOrAFolder)
{
    program(u"bin/rpcs3"_s);
    const QString entry = flatpak(u"net.rpcs3.RPCS3"_s);
    choices.pathByEmulator[u"rpcs3"_s] = entry;
    EXPECT_EQ(finder().find(*emulatorWithID(u"rpcs3"_s, Host::linux), choices)->kind, ApplicationKind::flatpak);
    const QString unpacked = home.write(u"own/rpcs3-v0.0.38_linux64.AppImage"_s);
    choices.pathByEmulator[u"rpcs3"_s] = home.path() + u"/own"_s;
    EXPECT_EQ(path(u"rpcs3"_s), unpacked);
    choices.pathByEmulator[u"rpcs3"_s] = home.write(u"some.desktop"_s);
    EXPECT_EQ(path(u"rpcs3"_s), entry);
}

TEST_F(Discovery, consoleTakesTheUsersEmulatorWhenItIsReady)
{
    program(u"bin/mgba-qt"_s);
    choices.emulatorByConsole[u"gba"_s] = u"retroarch"_s;
    EXPECT_EQ(emulatorOf(u"gba"_s), u"mgba"_s) << "not installed";
    program(u"bin/retroarch"_s);
    EXPECT_EQ(emulatorOf(u"gba"_s), u"mgba"_s) << "installed without the core";
    home.write(u".config/retroarch/cores/mgba_libretro.so"_s);
    EXPECT_EQ(emulatorOf(u"gba"_s), u"retroarch"_s);
    EXPECT_EQ(emulatorOf(u"gb"_s), u"mgba"_s) << "the choice is for one console";
    choices.emulatorByConsole[u"gba"_s] = u"unheard-of"_s;
    EXPECT_EQ(emulatorOf(u"gba"_s), u"mgba"_s);
}

TEST_F(Discovery, consoleIsReadyWithRetroArchOnlyWithItsCore)
{
    program(u"bin/retroarch"_s);
    EXPECT_EQ(emulatorOf(u"snes"_s), QString());
    home.write(u"usr/lib/libretro/bsnes_mercury_balanced_libretro.so"_s);
    EXPECT_EQ(emulatorOf(u"snes"_s), u"retroarch"_s);
    EXPECT_EQ(emulatorOf(u"n64"_s), QString());

    // The native copy comes first, but only the Flatpak has this core.
    flatpak(u"org.libretro.RetroArch"_s);
    const QString core =
        home.write(u".var/app/org.libretro.RetroArch/config/retroarch/cores/mupen64plus_next_libretro.so"_s);
    const auto ready = finder().readyFor(*consoleWithID(u"n64"_s, Host::linux), choices);
    ASSERT_TRUE(ready);
    EXPECT_EQ(ready->emulator.kind, ApplicationKind::flatpak);
    EXPECT_EQ(ready->core, core);
}

TEST_F(Discovery, consoleWithoutEmulatorsNeverHasOne)
{
    program(u"bin/mgba-qt"_s);
    for (const QString &console : {u"native"_s, u"switch"_s, u"switch2"_s, u"cdi"_s}) {
        choices.emulatorByConsole[console] = u"mgba"_s;
        EXPECT_EQ(emulatorOf(console), QString());
    }
}

/// The same on the Mac, where applications are bundles.
class MacDiscovery : public Discovery {
protected:
    MacDiscovery() { places = home.macPlaces(); }
    QString bundle(const QString &name)
    {
        QDir().mkpath(home.path() + u'/' + name);
        return home.path() + u'/' + name;
    }
    void registerBundle(const QString &id, const QString &path)
    {
        workspace.installed += Application{id, id, ApplicationKind::bundle, path, {path}};
    }
};

TEST_F(MacDiscovery, goesFromTheUsersChoiceToTheIndex)
{
    choices.pathByEmulator[u"dolphin"_s] = bundle(u"Own/Whatever.app"_s);
    registerBundle(u"org.dolphin-emu.dolphin"_s, bundle(u"Registered/Dolphin.app"_s));
    const QStringList inOrder{home.path() + u"/Own/Whatever.app"_s,
                              home.path() + u"/Registered/Dolphin.app"_s,
                              bundle(u"system/Applications/Dolphin 2603.app"_s),
                              bundle(u"Applications/dolphin.app"_s),
                              bundle(u"Downloads/Dolphin-dev.app"_s),
                              bundle(u"Desktop/DÓLPHIN.app"_s),
                              bundle(u"Deep/Dolphin5.app"_s)};
    bundle(u"Applications/Doll.app"_s);
    bundle(u"Applications/Dolphin"_s);
    index.files = {bundle(u".Trash/Dolphin.app"_s), bundle(u"Library/Caches/Dolphin.app"_s), inOrder.last()};
    for (const QString &each : inOrder) {
        EXPECT_EQ(path(u"dolphin"_s), each);
        ASSERT_TRUE(QDir(each).removeRecursively());
    }
    EXPECT_EQ(path(u"dolphin"_s), QString());
}

TEST_F(MacDiscovery, aCopyInTheTrashIsNotFound)
{
    registerBundle(u"app.xemu.xemu"_s, bundle(u".Trash/xemu.app"_s));
    index.files = {home.path() + u"/.Trash/xemu.app"_s};
    EXPECT_EQ(path(u"xemu"_s), QString());
}

TEST_F(MacDiscovery, namesAreTriedInTheirOrderInEachFolder)
{
    const QString plain = bundle(u"Applications/OpenEmu.app"_s);
    const QString silicon = bundle(u"Applications/OpenEmu-Silicon.app"_s);
    EXPECT_EQ(path(u"openemu"_s), silicon);
    const QString earlierFolder = bundle(u"system/Applications/OpenEmu.app"_s);
    EXPECT_EQ(path(u"openemu"_s), earlierFolder);
    EXPECT_EQ(paths(u"openemu"_s), (QStringList{earlierFolder, silicon, plain}));
    const QString sdl = bundle(u"Applications/PPSSPPSDL.app"_s);
    EXPECT_EQ(path(u"ppsspp"_s), sdl);
    const QString former = bundle(u"Downloads/Citra.app"_s);
    EXPECT_EQ(path(u"azahar"_s), former);
}

class LastLook : public Discovery {
protected:
    Preferences preferences{home.path() + u"/preferences.ini"_s};
    FakeTasks tasks;
    InstalledEmulators installed{places, workspace, index, preferences, tasks};
};

TEST_F(LastLook, isKnownOnceItIsOver)
{
    const QString file = program(u"bin/mgba-qt"_s);
    EXPECT_FALSE(installed.known());
    installed.refresh();
    EXPECT_FALSE(installed.known());
    EXPECT_EQ(installed.stillReadyFor(u"gba"_s), std::nullopt);
    tasks.finish();
    EXPECT_TRUE(installed.known());
    EXPECT_EQ(installed.copies(u"mgba"_s).size(), 1);
    EXPECT_EQ(installed.forConsole(u"gba"_s)->path, file);
    EXPECT_EQ(installed.forConsole(u"ps2"_s), std::nullopt);
    EXPECT_EQ(installed.stillReadyFor(u"gba"_s)->emulator.path, file);
}

TEST_F(LastLook, dropsAResultThatANewerLookOvertook)
{
    installed.refresh();
    const auto slow = std::move(tasks.waiting.front());
    tasks.waiting.pop_front();
    slow.first();
    program(u"bin/mgba-qt"_s);
    installed.refresh();
    tasks.finish();
    int changes = 0;
    QObject::connect(&installed, &InstalledEmulators::changed, &installed, [&changes] { ++changes; });
    slow.second();
    EXPECT_EQ(changes, 0);
    EXPECT_TRUE(installed.forConsole(u"gba"_s));
}

TEST_F(LastLook, isNotTrustedWhenTheProgramHasGone)
{
    const QString file = program(u"bin/retroarch"_s);
    const QString core = home.write(u".config/retroarch/cores/snes9x_libretro.so"_s);
    installed.refresh();
    tasks.finish();
    EXPECT_EQ(installed.stillReadyFor(u"snes"_s)->core, core);
    QFile::remove(core);
    EXPECT_EQ(installed.stillReadyFor(u"snes"_s), std::nullopt);
    home.write(u".config/retroarch/cores/snes9x_libretro.so"_s);
    QFile::remove(file);
    EXPECT_EQ(installed.stillReadyFor(u"snes"_s), std::nullopt);
}

TEST_F(LastLook, isRepeatedWhenTheUserDecides)
{
    program(u"bin/mgba-qt"_s);
    const QString own = program(u"own/mgba-qt"_s);
    preferences.set(preference::default60FPS, true);
    preferences.set(preference::emulator(u"gba"_s), u"mgba"_s);
    EXPECT_TRUE(tasks.waiting.empty()) << "nothing is looked for before it is asked for";
    installed.refresh();
    tasks.finish();
    preferences.set(preference::emulatorPath(u"mgba"_s), own);
    EXPECT_EQ(installed.stillReadyFor(u"gba"_s), std::nullopt) << "the old answer is out of date";
    tasks.finish();
    EXPECT_EQ(installed.stillReadyFor(u"gba"_s)->emulator.path, own);
    preferences.set(preference::default60FPS, false);
    EXPECT_TRUE(tasks.waiting.empty());
}
