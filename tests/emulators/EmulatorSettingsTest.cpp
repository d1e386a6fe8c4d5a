#include "emulators/settings/EmulatorSettings.h"
#include "catalog/EmulatorDef.h"
#include "emulators/TextDiff.h"
#include "emulators/controllers/ControllerMapping.h"
#include "emulators/settings/EmulatorSetUp.h"
#include "fakes/FakeProcessControl.h"
#include "fakes/TemporaryHome.h"

#include <QDateTime>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {
QByteArray sample(const QString &name)
{
    QFile file(QStringLiteral(VELKO_SOURCE_DIR "/tests/samples/") + name);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

GameSettings everything()
{
    GameSettings settings;
    settings.showFPS = settings.widescreen = true;
    settings.fullScreen = true;
    return settings;
}

GameSettings inAWindow()
{
    GameSettings settings;
    settings.fullScreen = false;
    return settings;
}

struct Row {
    const char *test;
    const char *emulator;
    const char *sample;
    Host host;
    QualityPreset quality;
    GameSettings settings;
    const char *diff; ///< exactly what changes in the file
};
}

static const QualityPreset low = QualityPreset::minimum, mid = QualityPreset::medium, high = QualityPreset::maximum;

class SettingsInFiles : public testing::TestWithParam<Row> {
protected:
    QString file() const
    {
        const Places places = GetParam().host == Host::mac ? home.macPlaces() : home.places();
        const QString id = QString::fromLatin1(GetParam().emulator);
        return settingsFile(id, emulatorFolders({id, ApplicationKind::native, u"/usr/bin/x"_s, {}, {}}, places));
    }
    SetUpOutcome setUp(const ChangeJournal &journal = {}) const
    {
        const QString id = QString::fromLatin1(GetParam().emulator);
        const Places places = GetParam().host == Host::mac ? home.macPlaces() : home.places();
        SetUpOrder order;
        order.wish = {id,
                      places.host,
                      emulatorFolders({id, ApplicationKind::native, u"/usr/bin/x"_s, {}, {}}, places),
                      u"/games/A & B/game.wua"_s,
                      GetParam().settings,
                      GetParam().quality};
        order.notes.journal = journal;
        order.notes.journal.quieted.insert(file(), {1}); // the keys that avoid questions have a test of their own
        return setUpEmulator(order, FakeProcessControl());
    }
    QByteArray content() const { return home.read(file().sliced(home.path().size() + 1)); }

    const TemporaryHome home;
};

TEST_P(SettingsInFiles, changeExactlyTheirKeys)
{
    const QByteArray before = sample(QString::fromLatin1(GetParam().sample));
    ASSERT_FALSE(before.isEmpty());
    home.write(file().sliced(home.path().size() + 1), before);
    const SetUpOutcome outcome = setUp();
    EXPECT_TRUE(outcome.failures.isEmpty());
    const QByteArray after = content();
    EXPECT_EQ(textDiff(before, after), GetParam().diff);

    QFile written(file());
    ASSERT_TRUE(written.open(QFile::ReadWrite));
    ASSERT_TRUE(written.setFileTime(QDateTime::fromSecsSinceEpoch(1'000'000'000), QFileDevice::FileModificationTime));
    written.close();
    const SetUpOutcome again = setUp(outcome.notes.journal);
    EXPECT_EQ(content(), after);
    EXPECT_EQ(QFileInfo(file()).lastModified().toSecsSinceEpoch(), 1'000'000'000) << "the same again writes nothing";
    EXPECT_EQ(again.notes.journal, outcome.notes.journal);
}

INSTANTIATE_TEST_SUITE_P(
    Mac, SettingsInFiles,
    testing::Values(Row{"pcsx2", "pcsx2", "PCSX2.ini", Host::mac, high, everything(),
                        "-upscale_multiplier = 1\n+upscale_multiplier = 4\n"},
                    Row{"duckstation", "duckstation", "duckstation-settings.ini", Host::mac, mid, everything(),
                        "-ResolutionScale = 6\n+ResolutionScale = 4\n"},
                    Row{"ppsspp", "ppsspp", "ppsspp.ini", Host::mac, high, everything(),
                        "-InternalResolution = 2\n+InternalResolution = 8\n"},
                    Row{"xemu", "xemu", "xemu.toml", Host::mac, high, inAWindow(),
                        "+[display.quality]\n+surface_scale = 3\n"},
                    Row{"flycast", "flycast", "flycast-emu.cfg", Host::mac, mid, everything(),
                        "-rend.Resolution = 720\n+rend.Resolution = 960\n"},
                    Row{"azahar", "azahar", "azahar-qt-config.ini", Host::mac, mid, everything(),
                        "-resolution_factor\\default=true\n-resolution_factor=1\n"
                        "+resolution_factor\\default=false\n+resolution_factor=3\n"},
                    Row{"rpcs3", "rpcs3", "rpcs3-config.yml", Host::mac, high, everything(),
                        "-  Resolution Scale: 100\n+  Resolution Scale: 300\n"},
                    Row{"cemu", "cemu", "cemu-settings.xml", Host::mac, high, everything(),
                        "+        <Entry>/games/A &amp; B</Entry>\n"
                        "-        <TVDevice></TVDevice>\n+        <TVDevice>default</TVDevice>\n"}),
    [](const auto &row) { return row.param.test; });

INSTANTIATE_TEST_SUITE_P(
    Linux, SettingsInFiles,
    testing::Values(
        Row{"pcsx2Minimum", "pcsx2", "PCSX2.ini", Host::linux, low, {}, "-EnablePINE = false\n+EnablePINE = true\n"},
        Row{"pcsx2Medium",
            "pcsx2",
            "PCSX2.ini",
            Host::linux,
            mid,
            {},
            "-EnablePINE = false\n+EnablePINE = true\n-upscale_multiplier = 1\n+upscale_multiplier = 2\n"},
        Row{"pcsx2Maximum", "pcsx2", "PCSX2.ini", Host::linux, high, everything(),
            "-EnablePINE = false\n-EnableWideScreenPatches = false\n"
            "+EnablePINE = true\n+EnableWideScreenPatches = true\n"
            "-OsdShowFPS = false\n-upscale_multiplier = 1\n+OsdShowFPS = true\n+upscale_multiplier = 4\n"},
        Row{"duckstationMinimum",
            "duckstation",
            "duckstation-settings.ini",
            Host::linux,
            low,
            {},
            "-ResolutionScale = 6\n+ResolutionScale = 1\n"},
        Row{"duckstationMedium",
            "duckstation",
            "duckstation-settings.ini",
            Host::linux,
            mid,
            {},
            "-ResolutionScale = 6\n+ResolutionScale = 4\n"},
        Row{"duckstationMaximum", "duckstation", "duckstation-settings.ini", Host::linux, high, everything(),
            "-ResolutionScale = 6\n-WidescreenHack = false\n+ResolutionScale = 8\n+WidescreenHack = true\n"
            "-AspectRatio = Auto (Game Native)\n-ShowFPS = false\n+AspectRatio = 16:9\n+ShowFPS = true\n"},
        Row{"ppssppMinimum",
            "ppsspp",
            "ppsspp.ini",
            Host::linux,
            low,
            {},
            "-InternalResolution = 2\n+InternalResolution = 1\n"},
        Row{"ppssppMedium",
            "ppsspp",
            "ppsspp.ini",
            Host::linux,
            mid,
            {},
            "-InternalResolution = 2\n+InternalResolution = 4\n"},
        Row{"ppssppMaximum", "ppsspp", "ppsspp.ini", Host::linux, high, everything(),
            "-InternalResolution = 2\n+InternalResolution = 8\n-iShowStatusFlags = 8\n+iShowStatusFlags = 10\n"},
        Row{"xemuMinimum", "xemu", "xemu.toml", Host::linux, low, {}, "+[display.quality]\n+surface_scale = 1\n"},
        Row{"xemuMedium", "xemu", "xemu.toml", Host::linux, mid, inAWindow(),
            "-fullscreen_on_startup = true\n+fullscreen_on_startup = false\n+[display.quality]\n+surface_scale = 2\n"},
        Row{"xemuMaximum", "xemu", "xemu.toml", Host::linux, high, everything(),
            "+[display.quality]\n+surface_scale = 3\n"},
        Row{"flycastGoesByItsArguments", "flycast", "flycast-emu.cfg", Host::linux, high, everything(), ""},
        Row{"azaharMinimum",
            "azahar",
            "azahar-qt-config.ini",
            Host::linux,
            low,
            {},
            "-resolution_factor\\default=true\n+resolution_factor\\default=false\n"},
        Row{"azaharMedium",
            "azahar",
            "azahar-qt-config.ini",
            Host::linux,
            mid,
            {},
            "-resolution_factor\\default=true\n-resolution_factor=1\n"
            "+resolution_factor\\default=false\n+resolution_factor=3\n"},
        Row{"azaharMaximum", "azahar", "azahar-qt-config.ini", Host::linux, high, everything(),
            "-resolution_factor\\default=true\n-resolution_factor=1\n"
            "+resolution_factor\\default=false\n+resolution_factor=6\n"},
        Row{"rpcs3Minimum", "rpcs3", "rpcs3-config.yml", Host::linux, low, inAWindow(), ""},
        Row{"rpcs3Medium",
            "rpcs3",
            "rpcs3-config.yml",
            Host::linux,
            mid,
            {},
            "-  Resolution Scale: 100\n+  Resolution Scale: 150\n"
            "-  Start games in fullscreen mode: false\n+  Start games in fullscreen mode: true\n"},
        Row{"rpcs3Maximum", "rpcs3", "rpcs3-config.yml", Host::linux, high, everything(),
            "-  Resolution Scale: 100\n+  Resolution Scale: 300\n-    Enabled: false\n+    Enabled: true\n"
            "-  Start games in fullscreen mode: false\n+  Start games in fullscreen mode: true\n"},
        Row{"cemuInAWindow", "cemu", "cemu-settings.xml", Host::linux, low, inAWindow(),
            "-    <fullscreen>true</fullscreen>\n+    <fullscreen>false</fullscreen>\n"
            "+        <Entry>/games/A &amp; B</Entry>\n"
            "-        <TVDevice></TVDevice>\n+        <TVDevice>default</TVDevice>\n"},
        Row{"cemuWithEverything", "cemu", "cemu-settings.xml", Host::linux, high, everything(),
            "+        <Entry>/games/A &amp; B</Entry>\n"
            "-            <Position>0</Position>\n+            <Position>1</Position>\n"
            "-        <TVDevice></TVDevice>\n+        <TVDevice>default</TVDevice>\n"},
        Row{"melondsMinimum", "melonds", "melonDS.toml", Host::linux, low, {}, "-ScaleFactor = 2\n+ScaleFactor = 1\n"},
        Row{"melondsMedium",
            "melonds",
            "melonDS.toml",
            Host::linux,
            mid,
            {},
            "-Renderer = 0\n+Renderer = 1\n-ScaleFactor = 2\n+ScaleFactor = 4\n"},
        Row{"melondsMaximum", "melonds", "melonDS.toml", Host::linux, high, everything(),
            "-Renderer = 0\n+Renderer = 1\n-ScaleFactor = 2\n+ScaleFactor = 8\n"}),
    [](const auto &row) { return row.param.test; });

TEST(EmulatorSettings, someEmulatorsGoByTheirArgumentsAlone)
{
    for (const Host host : {Host::mac, Host::linux}) {
        for (const QString &id : {u"mgba"_s, u"dolphin"_s, u"retroarch"_s, u"openemu"_s, u"shadps4"_s}) {
            const SettingsWish wish{id, host, {u"/c"_s, u"/d"_s}, u"/game"_s, everything(), high};
            EXPECT_TRUE(settingsEdits(wish).edits.isEmpty()) << qPrintable(id);
            EXPECT_TRUE(quietEdits(id, host, wish.folders).isEmpty()) << qPrintable(id);
        }
    }
}

/// One home with an emulator's file in it.
class SetUp : public testing::Test {
protected:
    SetUpOutcome setUp(const QString &id)
    {
        SetUpOrder order;
        order.wish = {id, Host::linux, folders(id), u"/games/game"_s, settings, QualityPreset::medium};
        order.wish.gameFile = gameFile;
        order.mapsController = xbox;
        order.vblankRate = vblankRate;
        order.notes = {journal, {800000000}, {}};
        const SetUpOutcome outcome = setUpEmulator(order, processes);
        journal = outcome.notes.journal;
        return outcome;
    }
    EmulatorFolders folders(const QString &id) const
    {
        return emulatorFolders({id, ApplicationKind::native, u"/usr/bin/x"_s, {}, {}}, home.places());
    }

    const TemporaryHome home;
    FakeProcessControl processes;
    ChangeJournal journal;
    QString gameFile;
    GameSettings settings;
    std::optional<int> vblankRate;
    bool xbox = false;
};

TEST_F(SetUp, questionsAreTurnedOffOnceAndWithABackup)
{
    const QString file = u".config/PCSX2/inis/PCSX2.ini"_s;
    const QByteArray before = sample(u"PCSX2.ini"_s);
    home.write(file, before);
    processes.processes = {{7, {7, 1, u"pcsx2-qt"_s}}};
    setUp(u"pcsx2"_s);
    EXPECT_TRUE(home.read(file).contains("ConfirmShutdown = true")) << "it would write its own settings at its end";
    EXPECT_TRUE(home.read(file + u".velkoemu-backup"_s).isEmpty());
    EXPECT_TRUE(home.read(file).contains("upscale_multiplier = 2")) << "a game's own settings do not wait";

    processes.processes.clear();
    home.write(file, before);
    journal = {};
    setUp(u"pcsx2"_s);
    EXPECT_EQ(textDiff(before, home.read(file)),
              "-ConfirmShutdown = true\n+ConfirmShutdown = false\n"
              "-SetupWizardIncomplete = true\n+SetupWizardIncomplete = false\n"
              "-EnablePINE = false\n+EnablePINE = true\n-upscale_multiplier = 1\n+upscale_multiplier = 2\n"
              "-CheckAtStartup = true\n+CheckAtStartup = false\n");
    EXPECT_EQ(home.read(file + u".velkoemu-backup"_s), before);

    QByteArray users = home.read(file);
    users.replace("ConfirmShutdown = false", "ConfirmShutdown = true");
    home.write(file, users);
    setUp(u"pcsx2"_s);
    EXPECT_EQ(home.read(file), users) << "the user turned it on again";
}

TEST_F(SetUp, everyEmulatorsQuestionsAreKnown)
{
    const auto diffOf = [this](const QString &id, const QString &file, const QString &sampleName) {
        home.write(file, sample(sampleName));
        processes.processes = {{7, {7, 1, emulatorWithID(id, Host::linux)->programs.first()}}};
        setUp(id);
        const QByteArray noisy = home.read(file);
        processes.processes.clear();
        setUp(id);
        return textDiff(noisy, home.read(file));
    };
    EXPECT_EQ(diffOf(u"duckstation"_s, u".local/share/duckstation/settings.ini"_s, u"duckstation-settings.ini"_s),
              "-ConfirmPowerOff = true\n+ConfirmPowerOff = false\n+NoDesktopFile = true\n"
              "+[AutoUpdater]\n+CheckAtStartup = false\n");
    EXPECT_EQ(diffOf(u"ppsspp"_s, u".config/ppsspp/PSP/SYSTEM/ppsspp.ini"_s, u"ppsspp.ini"_s),
              "-FirstRun = True\n-CheckForNewVersion = True\n+FirstRun = False\n+CheckForNewVersion = False\n");
    EXPECT_EQ(diffOf(u"xemu"_s, u".local/share/xemu/xemu/xemu.toml"_s, u"xemu.toml"_s),
              "+show_welcome = false\n+[general.updates]\n+check = false\n");
    EXPECT_EQ(diffOf(u"azahar"_s, u".config/azahar-emu/qt-config.ini"_s, u"azahar-qt-config.ini"_s),
              "-check_for_update_on_start\\default=true\n-check_for_update_on_start=true\n"
              "+check_for_update_on_start\\default=false\n+check_for_update_on_start=false\n"
              "-firstStart\\default=true\n-firstStart=true\n-confirmClose\\default=true\n-confirmClose=true\n"
              "+firstStart\\default=false\n+firstStart=false\n+confirmClose\\default=false\n+confirmClose=false\n");
    EXPECT_EQ(diffOf(u"cemu"_s, u".config/Cemu/settings.xml"_s, u"cemu-settings.xml"_s),
              "-    <check_update>true</check_update>\n+    <check_update>false</check_update>\n");
    EXPECT_EQ(diffOf(u"rpcs3"_s, u".config/rpcs3/GuiConfigs/CurrentSettings.ini"_s, u"rpcs3-CurrentSettings.ini"_s),
              "+checkUpdateStart=false\n-infoBoxEnabledWelcome=true\n+infoBoxEnabledWelcome=false\n"
              "+infoBoxEnabledInstallPUP=false\n+confirmationBoxExitGame=false\n");
}

TEST_F(SetUp, aCounterThatIsNotAskedForIsPutBack)
{
    const QString file = u".config/ppsspp/PSP/SYSTEM/ppsspp.ini"_s;
    home.write(file, sample(u"ppsspp.ini"_s));
    setUp(u"ppsspp"_s);
    const QByteArray without = home.read(file);
    settings.showFPS = true;
    setUp(u"ppsspp"_s);
    EXPECT_EQ(textDiff(without, home.read(file)), "-iShowStatusFlags = 8\n+iShowStatusFlags = 10\n");
    settings.showFPS = false;
    setUp(u"ppsspp"_s);
    EXPECT_EQ(home.read(file), without);

    settings.showFPS = true;
    setUp(u"ppsspp"_s);
    QByteArray users = home.read(file);
    users.replace("iShowStatusFlags = 10", "iShowStatusFlags = 14");
    home.write(file, users);
    settings.showFPS = false;
    setUp(u"ppsspp"_s);
    EXPECT_EQ(home.read(file), users) << "the user has changed it since";
}

TEST_F(SetUp, vblankRateIsWrittenWhenItIsAskedFor)
{
    const QString file = u".config/rpcs3/config.yml"_s;
    home.write(file, sample(u"rpcs3-config.yml"_s));
    EXPECT_EQ(setUp(u"rpcs3"_s).vblankRate, std::nullopt);
    EXPECT_TRUE(home.read(file).contains("  Vblank Rate: 120\n"));
    vblankRate = 60;
    EXPECT_EQ(setUp(u"rpcs3"_s).vblankRate, 60);
    EXPECT_TRUE(home.read(file).contains("  Vblank Rate: 60\n"));
    EXPECT_FALSE(setUp(u"ppsspp"_s).vblankRate);
}

TEST_F(SetUp, aGamesOwnFileInRpcs3GetsWhatWasChosenForTheGame)
{
    const QByteArray users = "Video:\n  Resolution Scale: 100\n  Vblank Rate: 90\n";
    gameFile = home.write(u".config/rpcs3/custom_configs/config_BLUS30443.yml"_s, users);
    const auto after = [this](std::optional<int> rate, std::optional<QualityPreset> quality) {
        vblankRate = rate;
        settings.quality = quality;
        setUp(u"rpcs3"_s);
        return home.read(u".config/rpcs3/custom_configs/config_BLUS30443.yml"_s);
    };
    EXPECT_EQ(after({}, {}), users);
    EXPECT_EQ(after(60, {}), users) << "another game's patch had raised the rate";
    EXPECT_EQ(after(120, QualityPreset::medium), "Video:\n  Resolution Scale: 150\n  Vblank Rate: 120\n");
    EXPECT_TRUE(after(60, QualityPreset::medium).contains("Vblank Rate: 90\n"));
}

TEST_F(SetUp, xboxControllersAreMappedInPcsx2)
{
    const QString file = u".config/PCSX2/inis/PCSX2.ini"_s;
    xbox = true;
    EXPECT_FALSE(setUp(u"pcsx2"_s).controllerMapped) << "PCSX2 has never run";
    const QByteArray before = sample(u"PCSX2.ini"_s);
    home.write(file, before);
    xbox = false;
    EXPECT_FALSE(setUp(u"pcsx2"_s).controllerMapped);
    const QByteArray unmapped = home.read(file);
    xbox = true;
    EXPECT_TRUE(setUp(u"pcsx2"_s).controllerMapped);
    const QByteArray mapped = home.read(file);
    EXPECT_EQ(textDiff(unmapped, mapped),
              "-SDL = false\n+SDL = true\n"
              "-Up = Keyboard/Up\n"
              "-Cross = Keyboard/K\n"
              "+Up = SDL-0/DPadUp\n"
              "+Cross = SDL-0/FaceSouth\n"
              "+Right = SDL-0/DPadRight\n+Down = SDL-0/DPadDown\n+Left = SDL-0/DPadLeft\n"
              "+Triangle = SDL-0/FaceNorth\n+Circle = SDL-0/FaceEast\n+Square = SDL-0/FaceWest\n"
              "+Select = SDL-0/Back\n+Start = SDL-0/Start\n"
              "+L1 = SDL-0/LeftShoulder\n+R1 = SDL-0/RightShoulder\n"
              "+L2 = SDL-0/+LeftTrigger\n+R2 = SDL-0/+RightTrigger\n+L3 = SDL-0/LeftStick\n+R3 = SDL-0/RightStick\n"
              "+LUp = SDL-0/-LeftY\n+LRight = SDL-0/+LeftX\n+LDown = SDL-0/+LeftY\n+LLeft = SDL-0/-LeftX\n"
              "+RUp = SDL-0/-RightY\n+RRight = SDL-0/+RightX\n+RDown = SDL-0/+RightY\n+RLeft = SDL-0/-RightX\n"
              "+LargeMotor = SDL-0/LargeMotor\n");
    EXPECT_EQ(home.read(file + u".velkoemu-backup"_s), before) << "the user's own, from before the first time";
    EXPECT_TRUE(setUp(u"pcsx2"_s).controllerMapped);
    EXPECT_EQ(home.read(file), mapped);
    EXPECT_FALSE(setUp(u"mgba"_s).controllerMapped);
}

TEST(ControllerMapping, namesButtonsAsTheEmulatorDoes)
{
    const auto value = [](const QString &id, Host host, const QString &key) {
        for (const ConfigEdit &edit : controllerEdits(id, host)) {
            if (edit.key == key) return edit.value;
        }
        return QString();
    };
    for (const auto &[id, host] : {std::pair(u"pcsx2"_s, Host::mac), std::pair(u"duckstation"_s, Host::mac),
                                   std::pair(u"duckstation"_s, Host::linux)}) {
        EXPECT_EQ(controllerEdits(id, host).size(), 27);
        EXPECT_EQ(controllerEdits(id, host).first(), (ConfigEdit{{u"InputSources"_s}, u"SDL"_s, u"true"_s}));
        EXPECT_EQ(value(id, host, u"Triangle"_s), u"SDL-0/Y"_s);
        EXPECT_EQ(value(id, host, u"Circle"_s), u"SDL-0/B"_s);
        EXPECT_EQ(value(id, host, u"Cross"_s), u"SDL-0/A"_s);
        EXPECT_EQ(value(id, host, u"Square"_s), u"SDL-0/X"_s);
    }
    EXPECT_TRUE(controllerEdits(u"flycast"_s, Host::linux).isEmpty());
    EXPECT_TRUE(hasXboxController({u"DualSense"_s, u"Microsoft XBOX Series S|X"_s}));
    EXPECT_TRUE(hasXboxController({u"Generic X-Box pad"_s}));
    EXPECT_FALSE(hasXboxController({u"DualSense"_s}));
    EXPECT_FALSE(hasXboxController({}));
}

struct FoldersRow {
    const char *test;
    const char *emulator;
    ApplicationKind kind;
    const char *program;
    const char *marker; ///< a file below the home; ends in "/": a folder
    const char *config; ///< below the home
    const char *data;
};
class Folders : public testing::TestWithParam<FoldersRow> { };

TEST_P(Folders, areThoseOfTheCopy)
{
    const TemporaryHome home;
    const FoldersRow &row = GetParam();
    const QString program = home.write(QString::fromLatin1(row.program));
    const QString marker = QString::fromLatin1(row.marker);
    if (marker.endsWith(u'/'))
        QDir(home.path()).mkpath(marker);
    else if (!marker.isEmpty())
        home.write(marker, marker.endsWith(".txt"_L1) ? "userdata\n" : "x");
    const EmulatorFolders folders =
        emulatorFolders({QString::fromLatin1(row.emulator), row.kind, program, u"app.id"_s, {}}, home.places());
    EXPECT_EQ(folders.config.toStdString(), home.path().toStdString() + row.config);
    EXPECT_EQ(folders.data.toStdString(), home.path().toStdString() + row.data);
}

static const auto native = ApplicationKind::native, appImage = ApplicationKind::appImage,
                  flatpak = ApplicationKind::flatpak;
INSTANTIATE_TEST_SUITE_P(
    Copies, Folders,
    testing::Values(
        FoldersRow{"pcsx2", "pcsx2", native, "bin/pcsx2-qt", "", "/.config/PCSX2", "/.config/PCSX2"},
        FoldersRow{"pcsx2Flatpak", "pcsx2", flatpak, "x.desktop", "", "/.var/app/app.id/config/PCSX2",
                   "/.var/app/app.id/config/PCSX2"},
        FoldersRow{"pcsx2Portable", "pcsx2", appImage, "a/pcsx2.AppImage", "a/portable.ini", "/a", "/a"},
        FoldersRow{"pcsx2PortableNamed", "pcsx2", appImage, "a/pcsx2.AppImage", "a/portable.txt", "/a/userdata",
                   "/a/userdata"},
        FoldersRow{"duckstation", "duckstation", appImage, "a/DuckStation-x64.AppImage", "",
                   "/.local/share/duckstation", "/.local/share/duckstation"},
        FoldersRow{"duckstationInConfig", "duckstation", appImage, "a/DuckStation-x64.AppImage",
                   ".config/duckstation/settings.ini", "/.config/duckstation", "/.config/duckstation"},
        FoldersRow{"duckstationFlatpak", "duckstation", flatpak, "x.desktop", "", "/.var/app/app.id/config/duckstation",
                   "/.var/app/app.id/config/duckstation"},
        FoldersRow{"xemuFlatpak", "xemu", flatpak, "x.desktop", "", "/.var/app/app.id/data/xemu/xemu",
                   "/.var/app/app.id/data/xemu/xemu"},
        FoldersRow{"rpcs3Portable", "rpcs3", appImage, "a/rpcs3.AppImage", "a/portable/", "/a/portable", "/a/portable"},
        FoldersRow{"azahar", "azahar", native, "bin/azahar", "", "/.config/azahar-emu", "/.local/share/azahar-emu"},
        FoldersRow{"azaharUser", "azahar", native, "bin/azahar", "user/", "/user/config", "/user"},
        FoldersRow{"cemu", "cemu", native, "bin/Cemu", "", "/.config/Cemu", "/.local/share/Cemu"},
        FoldersRow{"appImageHome", "melonds", appImage, "a/melonDS.AppImage", "a/melonDS.AppImage.home/",
                   "/a/melonDS.AppImage.home/.config/melonDS", "/a/melonDS.AppImage.home/.config/melonDS"},
        FoldersRow{"appImageConfig", "flycast", appImage, "a/flycast.AppImage", "a/flycast.AppImage.config/",
                   "/a/flycast.AppImage.config/flycast", "/.local/share/flycast"},
        FoldersRow{"dolphinOfOld", "dolphin", native, "bin/dolphin-emu", ".dolphin-emu/", "/.dolphin-emu/Config",
                   "/.dolphin-emu"}),
    [](const auto &row) { return row.param.test; });
