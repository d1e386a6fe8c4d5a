#include "emulators/bios/BiosFiles.h"
#include "emulators/bios/XemuSetup.h"
#include "emulators/finding/InstalledEmulators.h"
#include "emulators/settings/EmulatorChanges.h"
#include "fakes/FakeFileIndex.h"
#include "fakes/FakeProcessControl.h"
#include "fakes/FakeTasks.h"
#include "fakes/FakeWorkspace.h"
#include "fakes/ManualClock.h"
#include "fakes/TemporaryHome.h"
#include "platform/Preferences.h"

#include <QtEndian>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using Grade = BiosIdentity::Grade;

/// A PlayStation 2 image with only what names it: directory, then "ROMVER" behind it.
static QByteArray ps2Image(const QByteArray &version, quint32 resetSize = 0)
{
    const auto entry = [](const QByteArray &name, quint32 size) {
        QByteArray bytes = name.leftJustified(12, '\0');
        bytes.resize(16);
        qToLittleEndian(size, bytes.data() + 12);
        return bytes;
    };
    const QByteArray directory = entry("RESET", resetSize) + entry("ROMDIR", 64) + entry("ROMVER", 16) + entry("", 0);
    return (directory + version).leftJustified(4 * 1024 * 1024, '\0');
}

struct IdentityRow {
    const char *test;
    BiosContent content;
    Grade grade;
    const char *consoleID;
    const char *title;
};
class BiosIdentities : public testing::TestWithParam<IdentityRow> { };

TEST_P(BiosIdentities, areToldFromContentSizeAndName)
{
    const BiosIdentity identity = identityOf(GetParam().content);
    EXPECT_EQ(identity.grade, GetParam().grade);
    EXPECT_EQ(identity.consoleID.toStdString(), GetParam().consoleID);
    EXPECT_EQ(english(identity.title).toStdString(), GetParam().title);
}

static constexpr qint64 halfMegabyte = 512 * 1024;

INSTANTIATE_TEST_SUITE_P(
    Files, BiosIdentities,
    testing::Values(
        IdentityRow{"ps1UnderAnyName",
                    {u"my bios.bin"_s, halfMegabyte, "490f666e1afb15b7362b406ed1cea246"},
                    Grade::good,
                    "ps1",
                    "SCPH-5501 (America)"},
        IdentityRow{"ps1UnderAnotherRegionsName",
                    {u"SCPH5502.bin"_s, halfMegabyte, "490f666e1afb15b7362b406ed1cea246"},
                    Grade::misnamed,
                    "ps1",
                    "SCPH-5501 (America)"},
        IdentityRow{"ps1Unknown", {u"scph9000.bin"_s, halfMegabyte, "00"}, Grade::unknown, "ps1", ""},
        IdentityRow{"segaCdWrongRegion",
                    {u"bios_CD_U.bin"_s, 131072, "e66fa1dc5820d254611fdcdba0662372"},
                    Grade::misnamed,
                    "segacd",
                    "Mega-CD BIOS (Europe)"},
        IdentityRow{"segaCdOlderAmerica",
                    {u"bios_CD_U.bin"_s, 131072, "2efd74e3232ff260e371b99f84024f7f"},
                    Grade::good,
                    "segacd",
                    "Sega CD BIOS (America)"},
        IdentityRow{"lynxNameMatters",
                    {u"LYNXBOOT.IMG"_s, 512, "fcd403db69f54290b51035d82f835e7b"},
                    Grade::misnamed,
                    "lynx",
                    "Lynx boot ROM"},
        IdentityRow{"lynxOtherContent", {u"lynxboot.img"_s, 512, "00"}, Grade::unknown, "lynx", ""},
        IdentityRow{"dreamcastOtherName",
                    {u"dc_bios.bin"_s, 2097152, "e10c53c2f8b90bab96ead2d368858623"},
                    Grade::good,
                    "dc",
                    "Dreamcast BIOS"},
        IdentityRow{"dreamcastFlash", {u"dc_flash.bin"_s, 131072, "00"}, Grade::good, "dc", "Dreamcast flash memory"},
        IdentityRow{"dreamcastFlashCutShort", {u"dc_flash.bin"_s, 131071, "00"}, Grade::unknown, "dc", ""},
        IdentityRow{"xboxBadDump",
                    {u"mcpx_1.0.bin"_s, 512, "196a5f59a13382c185636e691d6c323d"},
                    Grade::badDump,
                    "xbox",
                    "MCPX Boot ROM 1.0"},
        IdentityRow{"xboxFlash", {u"Complex_4627.bin"_s, 1048576, "00"}, Grade::unknown, "xbox", ""},
        IdentityRow{"xboxDisk", {u"disk"_s, 9, "00", "QFI\xfb"}, Grade::good, "xbox", "Xbox hard disk image"},
        IdentityRow{"ps3Firmware", {u"update"_s, 9, "00", "SCEUF\0\0"}, Grade::good, "ps3", "PlayStation 3 firmware"},
        IdentityRow{"ps4Module", {u"libSceNgs2.sprx"_s, 9, "00"}, Grade::good, "ps4", "PlayStation 4 firmware module"},
        IdentityRow{"ps2FromItsVersion",
                    {u"x.bin"_s, 4194304, "00", ps2Image("0160AC20010730")},
                    Grade::good,
                    "ps2",
                    "PlayStation 2 BIOS 1.60 (America)"},
        IdentityRow{"ps2DirectoryPointsOutside",
                    {u"x.bin"_s, 4194304, "00", ps2Image("0160AC20010730", 0xffffffff)},
                    Grade::unknown,
                    "",
                    ""},
        IdentityRow{"ps2DirectoryAtTheEnd", {u"x.bin"_s, 12, "00", "xxRESET\0\0\0\0\0"}, Grade::unknown, "", ""},
        IdentityRow{"ps2VersionWithoutDigits", {u"x.bin"_s, 4194304, "00", ps2Image("v160AC")}, Grade::unknown, "", ""},
        IdentityRow{"nothing", {u"holiday.jpg"_s, 4096, "00"}, Grade::unknown, "", ""}),
    [](const auto &row) { return row.param.test; });

class Bios : public testing::Test {
protected:
    const Console &console(const QString &id, Host host = Host::linux) { return *consoleWithID(id, host); }
    InstalledEmulator copy(const QString &id, ApplicationKind kind = ApplicationKind::native,
                           const QString &application = {})
    {
        return {id, kind, home.path() + u"/bin/"_s + id, application, {id}};
    }
    QString folder(const QString &id, const std::optional<InstalledEmulator> &emulator, const Places &places)
    {
        QString path = biosFolder(*consoleWithID(id, places.host), emulator, places);
        return path.remove(home.path() + u'/');
    }

    TemporaryHome home;
    ChangeNotes notes;
};

TEST_F(Bios, goesToTheFolderOfTheCopyThatIsUsed)
{
    const auto flatpak = [this](const QString &id, const QString &app) {
        return copy(id, ApplicationKind::flatpak, app);
    };
    const Places places = home.places();
    EXPECT_EQ(folder(u"ps1"_s, {}, places), u".local/share/duckstation/bios"_s);
    EXPECT_EQ(folder(u"ps1"_s, flatpak(u"duckstation"_s, u"org.duckstation.DuckStation"_s), places),
              u".var/app/org.duckstation.DuckStation/config/duckstation/bios"_s);
    EXPECT_EQ(folder(u"ps1"_s, copy(u"retroarch"_s), places), u".config/retroarch/system"_s);
    EXPECT_EQ(folder(u"ps2"_s, copy(u"pcsx2"_s), places), u".config/PCSX2/bios"_s);
    EXPECT_EQ(folder(u"ps2"_s, flatpak(u"pcsx2"_s, u"net.pcsx2.PCSX2"_s), places),
              u".var/app/net.pcsx2.PCSX2/config/PCSX2/bios"_s);
    EXPECT_EQ(folder(u"dc"_s, flatpak(u"flycast"_s, u"org.flycast.Flycast"_s), places),
              u".var/app/org.flycast.Flycast/data/flycast"_s);
    EXPECT_EQ(folder(u"saturn"_s, flatpak(u"retroarch"_s, u"org.libretro.RetroArch"_s), places),
              u".var/app/org.libretro.RetroArch/config/retroarch/system"_s);
    EXPECT_EQ(folder(u"ps3"_s, copy(u"rpcs3"_s), places), u""_s);
    EXPECT_EQ(folder(u"dc"_s, {}, home.macPlaces()), u"Library/Application Support/Flycast/data"_s);

    home.write(u".config/retroarch/retroarch.cfg"_s, "system_directory = \"~/roms/bios\"\n");
    EXPECT_EQ(folder(u"lynx"_s, copy(u"retroarch"_s), places), u"roms/bios"_s);
    Places moved = places;
    moved.config = home.path() + u"/settings"_s;
    EXPECT_EQ(folder(u"ps1"_s, {}, moved), u"settings/duckstation/bios"_s);
    EXPECT_EQ(folder(u"ps2"_s, {}, moved), u"settings/PCSX2/bios"_s);
}

TEST_F(Bios, isCopiedWholeAndReplacesAnOlderCopy)
{
    const QString file = home.write(u"Downloads/SCPH-70004.bin"_s, ps2Image("0200EC20040614"));
    const BiosState before = biosState(console(u"ps2"_s), {}, home.places());
    EXPECT_EQ(before.presence, BiosPresence::missing);

    home.write(u".config/PCSX2/bios/SCPH-70004.bin"_s, "older");
    const BiosReport report = installBios(console(u"ps2"_s), file, {}, home.places(), notes);
    EXPECT_TRUE(report.installed);
    EXPECT_EQ(english(report.message), u"SCPH-70004.bin copied to "_s + home.path() + u"/.config/PCSX2/bios"_s);
    EXPECT_EQ(english(report.remark.value_or(Message{})),
              u"“SCPH-70004.bin” is a good copy: PlayStation 2 BIOS 2.00 (Europe)."_s);
    EXPECT_EQ(home.read(u".config/PCSX2/bios/SCPH-70004.bin"_s), home.read(u"Downloads/SCPH-70004.bin"_s));
    EXPECT_EQ(QDir(home.path() + u"/.config/PCSX2/bios"_s).entryList(QDir::Files).size(), 1);
    EXPECT_EQ(biosState(console(u"ps2"_s), {}, home.places()).presence, BiosPresence::present);
    // Dropped from the very place where it belongs, it stays.
    EXPECT_TRUE(
        installBios(console(u"ps2"_s), home.path() + u"/.config/PCSX2/bios/SCPH-70004.bin"_s, {}, home.places(), notes)
            .installed);
    EXPECT_EQ(home.read(u".config/PCSX2/bios/SCPH-70004.bin"_s), home.read(u"Downloads/SCPH-70004.bin"_s));
}

TEST_F(Bios, thatIsNotKnownIsCopiedAndSaidSo)
{
    const QString file = home.write(u"lynxboot.img"_s, QByteArray(512, 'x'));
    const BiosReport report = installBios(console(u"lynx"_s), file, {}, home.places(), notes);
    EXPECT_TRUE(report.installed);
    EXPECT_TRUE(english(report.remark.value_or(Message{})).contains("isn't a known file"_L1));
    EXPECT_EQ(biosState(console(u"lynx"_s), {}, home.places()).presence, BiosPresence::unknownFile);
    // The folder is shared: this file says nothing about other consoles.
    EXPECT_EQ(biosState(console(u"saturn"_s), {}, home.places()).presence, BiosPresence::missing);
    home.write(u".local/share/duckstation/bios/odd.bin"_s, QByteArray(halfMegabyte, 'x'));
    EXPECT_EQ(biosState(console(u"ps1"_s), {}, home.places()).presence, BiosPresence::unknownFile);
}

TEST_F(Bios, thatCannotBeCopiedLeavesTheOlderOneAlone)
{
    const auto refused = [this](const QString &file) {
        const BiosReport report = installBios(console(u"lynx"_s), file, {}, home.places(), notes);
        return report.installed ? u"installed"_s : english(report.message);
    };
    EXPECT_TRUE(refused(home.path() + u"/gone.img"_s).startsWith("Could not copy the BIOS: "_L1));
    EXPECT_TRUE(refused(home.write(u"empty.img"_s, "")).startsWith("Could not copy the BIOS: "_L1));
    EXPECT_TRUE(refused(home.path()).contains("is a folder"_L1));
    home.write(u".config/retroarch/system"_s, "a file where the folder should be");
    EXPECT_TRUE(refused(home.write(u"lynxboot.img"_s)).startsWith("Could not copy the BIOS: "_L1));
    EXPECT_EQ(home.read(u".config/retroarch/system"_s), "a file where the folder should be");
}

/// The Xbox's three files in xemu's settings.
class XboxBios : public Bios {
protected:
    QByteArray settings() const { return home.read(u".local/share/xemu/xemu/xemu.toml"_s); }
    void setSettings(const QByteArray &text) { home.write(u".local/share/xemu/xemu/xemu.toml"_s, text); }
    QString inFolder(const QString &name) const { return home.path() + u"/.local/share/xemu/xemu/"_s + name; }
    XemuFiles files() { return xemuFiles(copy(u"xemu"_s), home.places()); }

    const QString disk = home.write(u"xbox.qcow2"_s, "QFI\xfb and more");
    const QString flash = home.write(u"Complex_4627.bin"_s, QByteArray(262144, 'f'));
    const QString bootRom = home.write(u"mcpx_1.0.bin"_s, QByteArray(512, 'm'));
};

TEST_F(XboxBios, isEnteredAndPutBackToTheLetter)
{
    const QByteArray before = "[general]\r\nshow_welcome = false\r\n\r\n[sys.files]\r\nhdd_path = '/old' # mine\r\n"
                              "eeprom_path = '/e'\r\n\r\n[net]\r\nenable = true\r\n";
    setSettings(before);
    FakeWorkspace workspace;
    FakeFileIndex index;
    FakeTasks tasks;
    tasks.immediate = true;
    ManualClock clock;
    FakeProcessControl processes;
    Preferences preferences(home.path() + u"/preferences.ini"_s);
    InstalledEmulators emulators(home.places(), workspace, index, preferences, tasks);
    EmulatorChanges changes(home.places(), clock, tasks, processes);
    BiosFiles bios(home.places(), emulators, preferences, workspace, tasks, changes);

    bios.install(u"xbox"_s, {disk, flash});
    QByteArray expected = before;
    expected.replace("/old", inFolder(u"xbox.qcow2"_s).toUtf8());
    expected.replace("'/e'\r\n", "'/e'\r\nflashrom_path = '" + inFolder(u"Complex_4627.bin"_s).toUtf8() + "'\r\n");
    EXPECT_EQ(settings().toStdString(), expected.toStdString());
    EXPECT_EQ(bios.state(u"xbox"_s)->missing, QStringList{u"MCPX Boot ROM"_s});
    ASSERT_EQ(changes.of(u"xemu"_s).size(), 2);
    EXPECT_EQ(changes.of(u"xemu"_s)[0].old, QStringList{u"'/old'"_s});

    // One that comes in the place of another, and its name is the journal's newer one.
    const QString other = home.write(u"other.qcow2"_s, "QFI\xfb");
    bios.install(u"xbox"_s, {other, disk, bootRom});
    EXPECT_EQ(changes.of(u"xemu"_s).size(), 3);
    EXPECT_EQ(bios.state(u"xbox"_s)->presence, BiosPresence::unknownFile) << "the boot ROM is not a known one";
    changes.putBack(u"xemu"_s);
    EXPECT_EQ(settings().toStdString(), before.toStdString());
    EXPECT_TRUE(changes.of(u"xemu"_s).isEmpty());
}

TEST_F(XboxBios, thatCameBeforeTheSettingsIsEnteredLater)
{
    const BiosReport report = installBios(console(u"xbox"_s), disk, {}, home.places(), notes);
    EXPECT_TRUE(english(*report.remark).contains("Start it once and close it"_L1));
    EXPECT_FALSE(QFileInfo::exists(inFolder(u"xemu.toml"_s))) << "which is xemu's to make";
    EXPECT_TRUE(files().toEnter.isEmpty());
    const BiosState waiting = biosState(console(u"xbox"_s), {}, home.places());
    EXPECT_EQ(waiting.missing.size(), 3);
    EXPECT_EQ(waiting.remarks, QList<Message>{*report.remark});

    setSettings("[sys.files]\nbootrom_path = '" + bootRom.toUtf8() + "'\nhdd_path = '/gone'\n");
    EXPECT_EQ(files().toEnter, (QMap<QString, QString>{{u"hdd_path"_s, inFolder(u"xbox.qcow2"_s)}}));
    EXPECT_EQ(files().missing, QStringList{u"Flash ROM (BIOS)"_s});
    EXPECT_EQ(biosState(console(u"xbox"_s), {}, home.places()).missing, files().missing);
    // Of several a known one.
    home.write(u".local/share/xemu/xemu/a newer.qcow2"_s, "no disk");
    EXPECT_EQ(files().toEnter.value(u"hdd_path"_s), inFolder(u"xbox.qcow2"_s));
    setSettings("sys.files.hdd_path = '/a'\n[sys.files");
    EXPECT_EQ(files().missing.size(), 3) << "settings that cannot be edited";
}

TEST_F(Bios, storeInstallsFilesOfSeveralConsolesAndStartsRpcs3)
{
    FakeWorkspace workspace;
    FakeFileIndex index;
    FakeTasks tasks;
    tasks.immediate = true;
    Preferences preferences(home.path() + u"/preferences.ini"_s);
    InstalledEmulators emulators(home.places(), workspace, index, preferences, tasks);
    ManualClock clock;
    FakeProcessControl processes;
    EmulatorChanges changes(home.places(), clock, tasks, processes);
    BiosFiles bios(home.places(), emulators, preferences, workspace, tasks, changes);
    const QString firmware = home.write(u"in/PS3UPDAT.PUP"_s, "SCEUF");
    const QString module = home.write(u"in/libSceFont.sprx"_s);
    const QString odd = home.write(u"in/holiday.jpg"_s);
    QList<BiosReport> reports;
    const auto keep = [&reports](const QList<BiosReport> &all) { reports = all; };

    bios.installAnywhere({firmware, module, odd, u"/gone"_s}, keep);
    ASSERT_EQ(reports.size(), 4);
    EXPECT_EQ(english(reports[0].message), u"Install RPCS3 first."_s);
    EXPECT_EQ(workspace.started.size(), 0);
    EXPECT_TRUE(reports[1].installed);
    EXPECT_TRUE(english(reports[2].message).contains("can't tell which console"_L1));
    EXPECT_EQ(english(reports[3].message), u"File not found: /gone"_s);

    workspace.installed += {u"net.rpcs3.RPCS3"_s,
                            u"RPCS3"_s,
                            ApplicationKind::flatpak,
                            home.write(u"rpcs3.desktop"_s),
                            {u"flatpak"_s, u"run"_s, u"net.rpcs3.RPCS3"_s}};
    QString changed;
    QObject::connect(&bios, &BiosFiles::changed, [&changed](const QString &console) { changed = console; });
    bios.install(u"ps3"_s, {firmware});
    EXPECT_EQ(changed, u"ps3"_s);
    EXPECT_FALSE(bios.installing(u"ps3"_s));
    EXPECT_EQ(english(bios.reports(u"ps3"_s).value(0).message),
              u"RPCS3 is installing the firmware… follow its window."_s);
    ASSERT_EQ(workspace.started.size(), 1);
    EXPECT_EQ(workspace.started.value(workspace.lastPid).command,
              (QStringList{u"flatpak"_s, u"run"_s, u"net.rpcs3.RPCS3"_s, u"--installfw"_s, firmware}));
    EXPECT_EQ(bios.state(u"ps3"_s)->presence, BiosPresence::missing);
    home.write(u".var/app/net.rpcs3.RPCS3/config/rpcs3/dev_flash/vsh/etc/version.txt"_s);
    bios.look(u"ps3"_s);
    EXPECT_EQ(bios.state(u"ps3"_s)->presence, BiosPresence::present);
}
