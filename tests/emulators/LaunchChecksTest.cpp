#include "emulators/launch/LaunchChecks.h"
#include "emulators/launch/OpenEmuLibrary.h"
#include "emulators/patches/ParamSfo.h"
#include "emulators/launch/SessionLog.h"
#include "emulators/bios/XemuSetup.h"
#include "fakes/TemporaryHome.h"

#include <QTimeZone>
#include <QtEndian>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

struct TomlRow {
    const char *test;
    const char *toml;
    const char *bootrom; ///< empty: not set
};
class XemuSettings : public testing::TestWithParam<TomlRow> { };

TEST_P(XemuSettings, giveTheSystemFiles)
{
    EXPECT_EQ(xemuSystemFiles(QString::fromUtf8(GetParam().toml)).value(u"bootrom_path"_s).toStdString(),
              GetParam().bootrom);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, XemuSettings,
    testing::Values(TomlRow{"literal", "[general]\nshow_welcome = false\n[sys.files]\nbootrom_path = '/a b/mcpx.bin'\n",
                            "/a b/mcpx.bin"},
                    TomlRow{"backslashesStay", "[sys.files]\nbootrom_path = 'C:\\n'", "C:\\n"},
                    TomlRow{"escapes", "[sys.files]\nbootrom_path = \"/\\u00e9\\t\\\"q\\\"\"", "/\xc3\xa9\t\"q\""},
                    TomlRow{"comment", "[sys.files] # x\nbootrom_path='/a#b' # c\r\n", "/a#b"},
                    TomlRow{"dottedKey", "[sys]\nfiles.bootrom_path = '/a'", "/a"},
                    TomlRow{"quotedNames", "[\"sys\".'files']\n\"bootrom_path\" = '/a'", "/a"},
                    TomlRow{"otherSection", "[sys.filesystem]\nbootrom_path = '/a'\n[x]\nbootrom_path = '/b'", ""},
                    TomlRow{"commentedOut", "[sys.files]\n# bootrom_path = '/a'", ""},
                    TomlRow{"keyInsideAText", "[sys.files]\nx = \"bootrom_path = '/a'\"", ""},
                    TomlRow{"noClosingQuote", "[sys.files]\nbootrom_path = '/a", ""},
                    TomlRow{"endsInEscape", "[sys.files]\nbootrom_path = \"/a\\", ""},
                    TomlRow{"badEscape", "[sys.files]\nbootrom_path = \"/a\\u12\"", ""},
                    TomlRow{"otherType", "[sys.files]\nbootrom_path = 7", ""},
                    TomlRow{"openSection", "[sys.files\nbootrom_path = '/a'", ""}, TomlRow{"nothing", "", ""}),
    [](const auto &row) { return row.param.test; });

class Checks : public testing::Test {
protected:
    QString program(const QString &name)
    {
        const QString file = home.write(name, "#!/bin/sh\n");
        QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return file;
    }
    InstalledEmulator copy(const QString &id)
    {
        const QString file = program(u"bin/"_s + id);
        return {id, ApplicationKind::native, file, {}, {file}};
    }
    QString refusal(const InstalledEmulator &emulator, const QString &path = {})
    {
        const auto message = emulatorRefusal(emulator, path, home.places());
        return message ? english(*message) : QString();
    }
    QByteArray xemuToml(const QString &bios, const QString &flash, const QString &disk)
    {
        return u"[sys.files]\nbootrom_path = '%1'\nflashrom_path = '%2'\nhdd_path = '%3'\n"_s.arg(bios, flash, disk)
            .toUtf8();
    }
    static QByteArray sfo(const QByteArray &key, const QByteArray &value, quint16 format = 0x0204)
    {
        const auto number = [](quint32 n) {
            QByteArray bytes(4, '\0');
            qToLittleEndian(n, bytes.data());
            return bytes;
        };
        const quint32 keys = 36;
        const quint32 values = keys + quint32(key.size()) + 1;
        QByteArray formatBytes(2, '\0');
        qToLittleEndian(format, formatBytes.data());
        return QByteArray("\0PSF", 4) + number(0x101) + number(keys) + number(values) + number(1) + QByteArray(2, '\0')
            + formatBytes + number(quint32(value.size()) + 1) + number(16) + number(0) + key + '\0' + value + '\0';
    }

    const TemporaryHome home;
};

TEST_F(Checks, xemuNamesWhatIsMissing)
{
    const QString all =
        u"xemu isn't set up yet. Missing: MCPX Boot ROM, Flash ROM (BIOS), Hard disk image. Open xemu → Machine → Settings → System and choose these files, then play again."_s;
    EXPECT_EQ(refusal(copy(u"xemu"_s)), all);
    home.write(u".local/share/xemu/xemu/xemu.toml"_s, QByteArray("\xff\0[[", 4));
    EXPECT_EQ(refusal(copy(u"xemu"_s)), all);
    const QString bios = home.write(u"x/mcpx.bin"_s);
    home.write(u".local/share/xemu/xemu/xemu.toml"_s, xemuToml(bios, home.path() + u"/gone"_s, home.path()));
    EXPECT_TRUE(refusal(copy(u"xemu"_s)).contains(u"Missing: Flash ROM (BIOS), Hard disk image. "_s));
    home.write(u".local/share/xemu/xemu/xemu.toml"_s, xemuToml(bios, bios, bios));
    EXPECT_EQ(refusal(copy(u"xemu"_s)), QString());
}

TEST_F(Checks, everyCopyOfXemuHasItsOwnSettings)
{
    const QString file = home.write(u"x/file"_s);
    home.write(u".var/app/app.xemu.xemu/data/xemu/xemu/xemu.toml"_s, xemuToml(file, file, file));
    const InstalledEmulator flatpak{u"xemu"_s, ApplicationKind::flatpak, u"/x"_s, u"app.xemu.xemu"_s, {}};
    EXPECT_EQ(refusal(flatpak), QString());
    EXPECT_NE(refusal(copy(u"xemu"_s)), QString());
    home.write(u"bin/xemu.toml"_s, xemuToml(file, file, file));
    EXPECT_EQ(refusal(copy(u"xemu"_s)), QString()) << "portable";
    const InstalledEmulator bundle{u"xemu"_s, ApplicationKind::bundle, u"/Applications/xemu.app"_s, {}, {}};
    EXPECT_NE(emulatorRefusal(bundle, {}, home.macPlaces()), std::nullopt);
    home.write(u"Library/Application Support/xemu/xemu/xemu.toml"_s, xemuToml(file, file, file));
    EXPECT_EQ(emulatorRefusal(bundle, {}, home.macPlaces()), std::nullopt);
}

TEST_F(Checks, ps4GamesAreFoldersWithASerial)
{
    const InstalledEmulator emulator = copy(u"shadps4"_s);
    const QString eboot = home.write(u"ps4/CUSA1/eboot.bin"_s);
    const QString folder = QFileInfo(eboot).path();
    EXPECT_EQ(refusal(emulator, eboot), u"Velko can't find this game's folder (with sce_sys inside)."_s);
    home.write(u"ps4/CUSA1/sce_sys/icon0.png"_s);
    EXPECT_EQ(refusal(emulator, folder), u"Velko can't read this game's serial (sce_sys/param.sfo)."_s);
    home.write(u"ps4/CUSA1/sce_sys/param.sfo"_s, "\0PSF broken");
    EXPECT_EQ(refusal(emulator, eboot), u"Velko can't read this game's serial (sce_sys/param.sfo)."_s);
    home.write(u"ps4/CUSA1/sce_sys/param.sfo"_s, sfo("TITLE_ID", "CUSA00001"));
    EXPECT_EQ(refusal(emulator, eboot), QString());
    EXPECT_EQ(refusal(emulator, folder), QString());
    EXPECT_EQ(ps4GameFolder(u"/"_s), std::nullopt);
}

TEST_F(Checks, sfoIsReadWithinItsBounds)
{
    const QByteArray good = sfo("TITLE_ID", "CUSA00001");
    EXPECT_EQ(sfoText(good, "TITLE_ID"), u"CUSA00001"_s);
    EXPECT_EQ(sfoText(good, "TITLE"), std::nullopt);
    EXPECT_EQ(sfoText(sfo("TITLE_ID", "1234", 0x0404), "TITLE_ID"), std::nullopt) << "a number";
    for (qsizetype length = 0; length < good.size(); ++length)
        sfoText(good.first(length), "TITLE_ID"); // must come back
    for (qsizetype i = 4; i < 36; ++i) {
        QByteArray damaged = good;
        damaged[i] = '\xff';
        const auto text = sfoText(damaged, "TITLE_ID");
        EXPECT_TRUE(!text || text->size() <= 10) << i;
    }
}

TEST_F(Checks, programsMustBeAllowedToRun)
{
    const QString file = home.write(u"AppImages/Cemu-2.6-x86_64.AppImage"_s);
    EXPECT_TRUE(refusal({u"cemu"_s, ApplicationKind::appImage, file, {}, {file}})
                    .startsWith(u"“Cemu-2.6-x86_64.AppImage” isn't allowed to run yet."_s));
    EXPECT_EQ(refusal(copy(u"cemu"_s)), QString());
    EXPECT_NE(nativeGameRefusal(file, Host::linux), std::nullopt);
    EXPECT_EQ(nativeGameRefusal(program(u"games/port"_s), Host::linux), std::nullopt);
    EXPECT_NE(nativeGameRefusal(home.path(), Host::linux), std::nullopt) << "a folder, such as a Mac application";
    EXPECT_EQ(nativeGameRefusal(home.path(), Host::mac), std::nullopt);
}

TEST_F(Checks, missingEmulatorsAreNamed)
{
    const auto text = [this](const QString &console, const std::optional<InstalledEmulator> &retroArch = {}) {
        return english(noEmulatorFor(*consoleWithID(console, Host::linux), retroArch, home.places()));
    };
    EXPECT_EQ(text(u"ps2"_s), u"No emulator installed for PlayStation 2. Install PCSX2 (Essentials tab)."_s);
    EXPECT_EQ(text(u"snes"_s), u"No emulator installed for Super Nintendo. Install RetroArch (Essentials tab)."_s);
    EXPECT_EQ(text(u"cdi"_s), u"Velko can't play CD-i games yet."_s);
    EXPECT_EQ(
        text(u"nes"_s, copy(u"retroarch"_s)),
        u"RetroArch has no core for Nintendo (NES) yet. Install the package libretro-nestopia, then play again."_s);
    EXPECT_TRUE(text(u"n64"_s, copy(u"retroarch"_s)).contains(u"Download mupen64plus_next_libretro in RetroArch"_s));
    const InstalledEmulator flatpak{u"retroarch"_s, ApplicationKind::flatpak, u"/x"_s, u"org.libretro.RetroArch"_s, {}};
    EXPECT_TRUE(text(u"nes"_s, flatpak).contains(u"/.var/app/org.libretro.RetroArch/config/retroarch/cores"_s))
        << "a Flatpak does not see Debian's packages";
}

TEST_F(Checks, shadPS4OnTheMac)
{
    EXPECT_EQ(shadPS4MacRefusal({26, true, true}), std::nullopt);
    const auto text = [](const MacFacts &facts) { return shadPS4MacRefusal(facts)->text; };
    EXPECT_TRUE(text({15, true, true}).startsWith(u"shadPS4 needs macOS 26 or newer"_s));
    EXPECT_TRUE(text({26, false, true}).startsWith(u"shadPS4 needs macOS 26 or newer"_s));
    EXPECT_TRUE(text({26, true, false}).startsWith(u"shadPS4 runs through Rosetta"_s));
}

TEST_F(Checks, openEmusOwnCopyIsFound)
{
    const QString roms = u"Library/Application Support/OpenEmu/Game Library/roms/"_s;
    EXPECT_EQ(openEmuCopyOf(u"/g/game.sfc"_s, home.path()), QString());
    home.write(roms + u"Super Nintendo/game.sfc.bak"_s);
    const QString copy = home.write(roms + u"Super Nintendo/game.sfc"_s);
    EXPECT_EQ(openEmuCopyOf(u"/g/game.sfc"_s, home.path()), copy);
    EXPECT_EQ(openEmuCopyOf(u"/g/game"_s, home.path()), QString());
}

TEST_F(Checks, sessionLogsAreKeptInNumber)
{
    const QString folder = home.path() + u"/logs"_s;
    const QDateTime start(QDate(2026, 3, 14), QTime(20, 0), QTimeZone("Europe/Paris"));
    EXPECT_EQ(newSessionLog(folder, u"mgba"_s, start), folder + u"/sessions/mgba-2026-03-14 20.00.00.log"_s);
    for (int i = 0; i < 25; ++i) {
        QFile file(home.write(u"logs/sessions/mgba-%1.log"_s.arg(i)));
        ASSERT_TRUE(file.open(QFile::ReadWrite));
        ASSERT_TRUE(file.setFileTime(start.addSecs(i), QFileDevice::FileModificationTime));
    }
    home.write(u"logs/sessions/notes.txt"_s);
    newSessionLog(folder, u"mgba"_s, start);
    EXPECT_EQ(QDir(folder + u"/sessions"_s).entryList({u"*.log"_s}).size(), 20);
    EXPECT_FALSE(QFile::exists(folder + u"/sessions/mgba-6.log"_s));
    EXPECT_TRUE(QFile::exists(folder + u"/sessions/mgba-7.log"_s));
    EXPECT_TRUE(QFile::exists(folder + u"/sessions/notes.txt"_s));

    const QString first = newSessionLog(folder, u"pcsx2"_s, start);
    EXPECT_TRUE(QFile::exists(first));
    EXPECT_EQ(newSessionLog(folder, u"pcsx2"_s, start), folder + u"/sessions/pcsx2-2026-03-14 20.00.00 2.log"_s);
    home.write(u"file"_s);
    EXPECT_EQ(newSessionLog(home.path() + u"/file"_s, u"mgba"_s, start), QString());
}
