#include "emulators/SfoFile.h"
#include "emulators/ZipFile.h"
#include "emulators/patches/ArchiveUnpacking.h"
#include "emulators/patches/FramePatchAct.h"
#include "emulators/patches/FrameRatePatch.h"
#include "emulators/patches/PatchLists.h"
#include "fakes/TemporaryHome.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(FrameRatePatch, isToldByItsName)
{
    for (const auto &name : {u"60 FPS"_s, u"60Hz mode"_s, u"60-fps"_s, u"Unlock FPS"_s, u"FPS Unlock"_s,
                             u"Unlocked frame rate"_s, u"Frame-rate unlock"_s, u"Uncapped FPS"_s, u"High FPS"_s})
        EXPECT_TRUE(is60FpsPatch(name)) << name.toStdString();
    for (const auto &name : {u""_s, u"Disable Motion Blur"_s, u"30 FPS Fix"_s, u"Unlock characters"_s})
        EXPECT_FALSE(is60FpsPatch(name)) << name.toStdString();
}

struct NotesRow {
    const char *test;
    const char *notes;
    int rate;
};
class VblankRate : public testing::TestWithParam<NotesRow> { };
TEST_P(VblankRate, isReadFromTheNotes)
{
    EXPECT_EQ(vblankRateOf(QString::fromUtf8(GetParam().notes)), GetParam().rate);
}
INSTANTIATE_TEST_SUITE_P(Notes, VblankRate,
                         testing::Values(NotesRow{"none", "", 60}, NotesRow{"noVblank", "Needs 240 Hz", 60},
                                         NotesRow{"asksFor240", "Set Vblank to 240 for 120 FPS.", 240},
                                         NotesRow{"recommends120", "A VBlank of 120 is recommended", 120},
                                         NotesRow{"half", "Runs at half the vblank rate; use 240", 120},
                                         NotesRow{"defaultBeats", "Vblank rate 60, not vblank 120", 60},
                                         NotesRow{"mustBeDefault",
                                                  "Clocks and vblank must be set to the defaults. vblank 240", 60},
                                         NotesRow{"notAcrossASentence", "Change vblank. Then 120 appears", 60},
                                         NotesRow{"tooFar", "vblank 0123456789012345678901234567890123456789 120", 60}),
                         [](const auto &row) { return row.param.test; });

static const QByteArray patchList = R"(Version: 1.2

Anchors:
  code: &code
    - [ be16, 0x00025ed8, 0x981f ]
  rates: &rate_notes
    "Set the Vblank rate to 120."
  souls: &souls
    "Demon's Souls":
      BLUS30443: [ 01.00, 01.04 ]
      BLES00932: [ 01.00 ]

PPU-first:
  "Unlock FPS":
    Games: *souls
    Author: "x"
    Notes: *rate_notes
    Patch:
      - [ load, *code ]
  "Disable Motion Blur":
    Games: *souls
    Patch:
      - [ be32, 0x1, 0x2 ]
PPU-broken:
  "60 FPS": "no closing
  x: [
PPU-all:
  60 FPS:
    Games:
      "Any: game":
        All: [ All ]
    Notes: plain
)";

TEST(Ps3Patches, areReadWithAnchorsAndWithoutBrokenBlocks)
{
    const PS3PatchList list = readPs3Patches(patchList);
    EXPECT_EQ(list.broken, 1);
    ASSERT_EQ(list.entries.size(), 2);
    EXPECT_EQ(list.entries[0].patch,
              (PS3Patch{u"PPU-first"_s,
                        u"Unlock FPS"_s,
                        u"Demon's Souls"_s,
                        {u"BLUS30443"_s, u"BLES00932"_s},
                        u"Set the Vblank rate to 120."_s}));
    EXPECT_EQ(decodePs3Patches(encodePs3Patches(list.entries)), list.entries);

    const auto versions = [&list](const QString &serial, const QString &version) {
        QStringList found;
        for (const PS3PatchUse &use : ps3PatchesFor({serial, version}, list.entries))
            found += use.patch.hash + u' ' + use.serial + u' ' + use.version;
        return found.join(u", "_s).toStdString();
    };
    EXPECT_EQ(versions(u"BLUS30443"_s, u"01.04"_s), "PPU-first BLUS30443 01.04, PPU-all All All");
    EXPECT_EQ(versions(u"BLUS30443"_s, u"02.00"_s), "PPU-all All All");
    EXPECT_EQ(versions(u"BLES00932"_s, {}), "PPU-first BLES00932 01.00, PPU-all All All");
    const PS3PatchEntry anyVersion{{u"PPU"_s, u"60 FPS"_s, u"T"_s, {u"BLUS30443"_s}, {}}, {{}}};
    EXPECT_EQ(ps3PatchesFor({u"BLUS30443"_s, u"01.04"_s}, {anyVersion}).value(0).version, u"All");
}

TEST(Ps3Patches, hostileListsEnd)
{
    // Aliases of aliases: ten lines that stand for 10^9 entries.
    QByteArray bomb = "Anchors:\n  a0: &a0 {v: x}\n";
    for (int i = 1; i < 10; ++i) {
        const QByteArray before = "*a" + QByteArray::number(i - 1);
        bomb += "  a" + QByteArray::number(i) + ": &a" + QByteArray::number(i) + " [";
        for (int j = 0; j < 10; ++j)
            bomb += before + (j < 9 ? ", " : "]\n");
    }
    bomb += "H:\n  60 FPS:\n    Games: {T: {S: *a9}}\n";
    EXPECT_EQ(readPs3Patches(bomb).entries.size(), 1);

    // Wide tables that every patch shares.
    QByteArray wide = "Anchors:\n  v: &v [" + QByteArray("1,").repeated(3000) + "1]\n  s: &s {";
    for (int i = 0; i < 500; ++i)
        wide += "S" + QByteArray::number(i) + ": *v, ";
    wide += "Z: *v}\nH:\n";
    for (int i = 0; i < 300; ++i)
        wide += "  60 FPS " + QByteArray::number(i) + ":\n    Games: {T: *s}\n";
    EXPECT_GT(readPs3Patches(wide).broken, 0);

    EXPECT_EQ(readPs3Patches("H:\n  60 FPS: " + QByteArray(100'000, '[')).broken, 1);
    EXPECT_EQ(readPs3Patches("H:\n  60 FPS: &a [*a]\nI:\n  60 FPS: {Games: *a}\n").entries.size(), 0);
    EXPECT_EQ(readPs3Patches("H: *nobody\nI: {60 FPS: {Games: {T: {S: All}}}}\n").entries.size(), 1);
    EXPECT_EQ(readPs3Patches(QByteArray("\0\x01\xff:\n", 5)).entries.size(), 0);
    EXPECT_EQ(readPs3Patches(QByteArray(2'000'000, 'x')).entries.size(), 0);
}

TEST(Ps3Patches, switchesAreEditedKeyByKey)
{
    const PS3PatchUse use{{u"PPU-1"_s, u"Unlock FPS"_s, u"Guns: of"_s, {}, {}}, u"NPUB1"_s, u"01.00"_s};
    const QByteArray linux =
        "PPU-1:\n  Unlock FPS:\n    \"Guns: of\":\n      NPUB1:\n        01.00:\n          Enabled: true";
    const QByteArray mac = "PPU-1:\n  Unlock FPS:\n    \"Guns: of\":\n      NPUB1:\n        01.00: true";
    const auto withPs3Patch = [](const QByteArray &config, const PS3PatchUse &use, bool on, Host host) {
        const ConfigEdit edit = ps3PatchEdit(config, use, on, host);
        return withConfigValues(config, ConfigFormat::yaml, edit.section, edit.key, {edit.value});
    };
    EXPECT_EQ(withPs3Patch("", use, true, Host::linux).value_or("").trimmed(), linux);
    EXPECT_EQ(withPs3Patch("", use, true, Host::mac).value_or("").trimmed(), mac);
    EXPECT_EQ(ps3PatchSwitch(linux, use), true);
    EXPECT_EQ(ps3PatchSwitch(mac, use), true);
    EXPECT_EQ(ps3PatchSwitch("PPU-1:\n  Unlock FPS: {}\n", use), std::nullopt);

    const QByteArray others =
        "# mine\nPPU-0:\n  Crash fix:\n    \"Guns: of\":\n      NPUB1:\n        All:\n          Enabled: true\n";
    EXPECT_EQ(withPs3Patch(others, use, true, Host::linux).value_or("").trimmed(), others + linux);
    EXPECT_EQ(withPs3Patch(others + linux, use, true, Host::linux), others + linux);
    EXPECT_EQ(withPs3Patch(others + linux, use, false, Host::linux),
              others + QByteArray(linux).replace("true", "false"));
    // The older form, which RPCS3 still reads, stays one.
    EXPECT_EQ(withPs3Patch(mac, use, false, Host::linux), QByteArray(mac).replace("true", "false"));
    EXPECT_EQ(withPs3Patch("PPU-1: [a]\n", use, true, Host::linux), std::nullopt);
}

static const QByteArray ps4Xml = R"(<?xml version="1.0" encoding="utf-8"?>
<Patch>
    <TitleID>
        <ID>CUSA00362</ID>
        <ID>CUSA00363</ID>
    </TitleID>
    <Metadata Title="A &amp; B" Name="60 FPS" AppVer="01.00" AppElf="eboot.bin">
        <PatchList><Line Type="bytes" Address="0x1" Value="00"/></PatchList>
    </Metadata>
    <Metadata Name="60 FPS" AppVer="01.04"/>
    <Metadata Name="Skip Intro" AppVer="01.04"/>
</Patch>
)";

TEST(Ps4Patches, areReadAndSwitched)
{
    const auto file = readPs4Patches(ps4Xml, u"a.xml"_s);
    ASSERT_TRUE(file);
    EXPECT_EQ(file->serials, (QStringList{u"CUSA00362"_s, u"CUSA00363"_s}));
    ASSERT_EQ(file->patches.size(), 3);
    EXPECT_TRUE(has60FpsPatch(*file, u"01.04"_s));
    EXPECT_TRUE(has60FpsPatch(*file, {}));
    EXPECT_FALSE(has60FpsPatch(*file, u"01.81"_s));
    EXPECT_TRUE(has60FpsPatch({{}, {}, {{u"60FPS"_s, u"mask"_s}}}, u"01.81"_s));
    EXPECT_EQ(decodePs4Index(encodePs4Index({*file})), QList<PS4PatchFile>{*file});

    // What the user has switched in shadPS4 itself stays.
    const QByteArray present = "<Patch><Metadata Name=\"Skip Intro\" AppVer=\"01.04\" isEnabled=\"true\"/></Patch>";
    const QByteArray on = withPs4Patches(ps4Xml, present, u"01.04"_s, true).value_or("");
    EXPECT_EQ(on.count("isEnabled=\"true\""), 2);
    EXPECT_TRUE(on.contains("Name=\"60 FPS\" AppVer=\"01.04\" isEnabled=\"true\""));
    EXPECT_TRUE(on.contains("Title=\"A &amp; B\"")
                && on.contains("<Line Type=\"bytes\" Address=\"0x1\" Value=\"00\"/>"));
    EXPECT_EQ(withPs4Patches(ps4Xml, on, u"01.04"_s, false).value_or("").count("isEnabled=\"true\""), 1);

    EXPECT_EQ(QJsonDocument::fromJson(
                  withPs4File("{\"b.xml\":[\"CUSA1\"],\"bad\":{}}", u"a.xml"_s, file->serials, true, Host::linux))
                  .toJson(QJsonDocument::Compact),
              "{\"a.xml\":[\"CUSA00362\",\"CUSA00363\"],\"b.xml\":[\"CUSA1\"]}");
    EXPECT_TRUE(withPs4File("damaged", u"a.xml"_s, {}, true, Host::mac).contains("\"isEnabled\": true"));
}

TEST(Ps4Patches, hostileXmlIsRefused)
{
    for (const QByteArray &xml :
         {QByteArray("<Patch><TitleID>"), QByteArray("not xml"), QByteArray(),
          QByteArray("<!DOCTYPE Patch [<!ENTITY a \"x\">]><Patch><TitleID><ID>&a;</ID></TitleID></Patch>"),
          QByteArray("<!DOCTYPE Patch SYSTEM \"file:///etc/passwd\"><Patch/>"),
          QByteArray("<Patch><TitleID><ID>&b;</ID></TitleID></Patch>"), QByteArray("<a>").repeated(100'000),
          "<Patch>" + QByteArray(9 * 1024 * 1024, ' ') + "</Patch>"}) {
        EXPECT_FALSE(readPs4Patches(xml, u"a"_s)) << xml.left(80).toStdString();
        EXPECT_FALSE(withPs4Patches(xml, {}, {}, true)) << xml.left(80).toStdString();
    }
}

struct ZipRow {
    const char *test;
    QList<ZipEntry> entries;
    bool taken;
};
class Unpacking : public testing::TestWithParam<ZipRow> { };

TEST_P(Unpacking, staysInItsFolder)
{
    const TemporaryHome home;
    const QString archive = home.write(u"a.zip"_s, zipOf(GetParam().entries));
    home.write(u"out/.keep"_s);
    const auto unpacked =
        unpackArchive(archive, home.path() + u"/out"_s, [](const QString &) { return true; }, {10, 1000, 2500});
    EXPECT_EQ(unpacked.has_value(), GetParam().taken);
    EXPECT_EQ(QDir(home.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::System),
              (QStringList{u"a.zip"_s, u"out"_s}));
    EXPECT_FALSE(QFileInfo(home.path() + u"/out/link"_s).isSymLink());
}

INSTANTIATE_TEST_SUITE_P(
    Archives, Unpacking,
    testing::Values(ZipRow{"good", {{"a/b.xml", "x"}, {"c.xml", "y"}}, true},
                    ZipRow{"parent", {{"../evil", "x"}}, false}, ZipRow{"parentInside", {{"a/../../evil", "x"}}, false},
                    ZipRow{"absolute", {{"/tmp/velko-evil", "x"}}, false},
                    ZipRow{"backslashes", {{"..\\evil", "x"}}, false}, ZipRow{"drive", {{"C:/evil", "x"}}, false},
                    ZipRow{"link", {{"link", "/etc/passwd", true}, {"a", "x"}}, true},
                    ZipRow{"throughALink", {{"link", "/tmp", true}, {"link/evil", "x"}}, true},
                    ZipRow{"sameNameTwice", {{"a", "x"}, {"a", "y"}}, false},
                    ZipRow{"largeFile", {{"a", QByteArray(1001, 'x')}}, false},
                    ZipRow{"largeInAll",
                           {{"a", QByteArray(1000, 'x')}, {"b", QByteArray(1000, 'x')}, {"c", QByteArray(1000, 'x')}},
                           false},
                    ZipRow{"tooMany", QList<ZipEntry>(11, ZipEntry{"d/", ""}), false}),
    [](const auto &row) { return row.param.test; });

TEST(Unpacking, refusesWhatIsNoWholeArchive)
{
    const TemporaryHome home;
    const QByteArray zip = zipOf({{"a", QByteArray(500, 'x')}, {"b", "y"}});
    for (const QByteArray &bytes : {QByteArray(), QByteArray("<html>"), zip.first(zip.size() / 2), zip.chopped(30)}) {
        const QString archive = home.write(u"a.zip"_s, bytes);
        QDir(home.path() + u"/out"_s).removeRecursively();
        home.write(u"out/.keep"_s);
        EXPECT_FALSE(unpackArchive(archive, home.path() + u"/out"_s, [](const QString &) { return true; }))
            << bytes.size();
    }
}

class FramePatchOfAGame : public testing::Test {
protected:
    FramePatchGame ps3()
    {
        home.write(u"games/souls/PS3_GAME/PARAM.SFO"_s, sfoFile({{"APP_VER", "01.00"}, {"TITLE_ID", "BLUS30443"}}));
        const QString path = home.write(u"games/souls/PS3_GAME/USRDIR/EBOOT.BIN"_s);
        const QString folder = home.path() + u"/.config/rpcs3"_s;
        return {u"rpcs3"_s, path, {folder, folder}};
    }
    FramePatchGame ps4(const QByteArray &version)
    {
        home.write(u"games/CUSA00363/sce_sys/param.sfo"_s, sfoFile({{"APP_VER", version}, {"TITLE_ID", "CUSA00363"}}));
        const QString path = home.write(u"games/CUSA00363/eboot.bin"_s);
        const QString folder = home.path() + u"/.local/share/shadPS4"_s;
        return {u"shadps4"_s, path, {folder, folder}};
    }
    QByteArray list(int code, const QByteArray &text)
    {
        return QJsonDocument(QJsonObject{{u"return_code"_s, code}, {u"patch"_s, QString::fromUtf8(text)}}).toJson();
    }

    TemporaryHome home;
    const Places places = home.places();
    const QDateTime now = QDateTime::currentDateTime();
    ChangeNotes notes;
};

TEST_F(FramePatchOfAGame, onThePlayStation3)
{
    const FramePatchGame game = ps3();
    EXPECT_EQ(english(findFramePatch(game, places).why), u"No 60 FPS patch for this game yet."_s);
    EXPECT_EQ(english(applyFramePatch(game, true, places, notes).shortcoming.value_or(Message{})),
              u"Couldn't download RPCS3's patch list. Check your Internet connection."_s);
    EXPECT_EQ(ps3ListState(game.folders, places, now), PatchListState{});
    for (const QByteArray &answer : {QByteArray("[]"), QByteArray("{"), list(-1, patchList), list(-2, ""), list(0, ""),
                                     list(1, ""), list(0, "H: ["), QByteArray("{\"return_code\":\"0\"}")})
        EXPECT_FALSE(takePs3Answer(answer, game.folders, places, now)) << answer.toStdString();
    EXPECT_EQ(ps3ListState(game.folders, places, now), PatchListState{});

    ASSERT_TRUE(takePs3Answer(list(0, patchList), game.folders, places, now));
    EXPECT_EQ(home.read(u".config/rpcs3/patches/patch.yml"_s), patchList);
    EXPECT_EQ(findFramePatch(game, places).name, u"Unlock FPS"_s);
    const QDateTime later = now.addDays(8);
    EXPECT_EQ(ps3ListState(game.folders, places, later), (PatchListState{true, false}));
    ASSERT_TRUE(takePs3Answer(list(1, ""), game.folders, places, later)); // unchanged: looked for again
    EXPECT_EQ(ps3ListState(game.folders, places, later), (PatchListState{true, true}));

    FramePatchOutcome outcome = applyFramePatch(game, true, places, notes);
    EXPECT_EQ(outcome.vblankRate, 120);
    const QByteArray on = home.read(u".config/rpcs3/patch_config.yml"_s);
    EXPECT_TRUE(on.contains("BLUS30443:\n        01.00:\n          Enabled: true")) << on.toStdString();
    outcome = applyFramePatch(game, true, places, notes);
    EXPECT_EQ(home.read(u".config/rpcs3/patch_config.yml"_s), on);
    outcome = applyFramePatch(game, false, places, notes);
    EXPECT_EQ(outcome.vblankRate, std::nullopt);
    EXPECT_EQ(home.read(u".config/rpcs3/patch_config.yml"_s), QByteArray(on).replace("true", "false"));

    // The installed update decides which version runs.
    home.write(u".config/rpcs3/dev_hdd0/game/BLUS30443/PARAM.SFO"_s,
               sfoFile({{"APP_VER", "01.04"}, {"TITLE_ID", "BLUS30443"}}));
    (void)applyFramePatch(game, true, places, notes);
    EXPECT_TRUE(home.read(u".config/rpcs3/patch_config.yml"_s).contains("01.04:\n          Enabled: true"));

    // Both switches are noted, and nothing is left of them when they are put back.
    QList<EmulatorChange> since;
    EXPECT_EQ(notes.journal.changes.size(), 2);
    EXPECT_EQ(putBack(home.read(u".config/rpcs3/patch_config.yml"_s), notes.journal.changes, since), "");
    EXPECT_TRUE(since.isEmpty());
}

TEST_F(FramePatchOfAGame, onThePlayStation4)
{
    const QString archive = home.write(u"a.zip"_s,
                                       zipOf({{"r-main/patches/xml/A-Orbis.xml", ps4Xml},
                                              {"r-main/patches/xml/broken.xml", "<Patch>"},
                                              {"r-main/README.md", "x"}}));
    FramePatchGame game = ps4("01.04");
    ASSERT_TRUE(takePs4Archive(archive, places, now));
    EXPECT_FALSE(takePs4Archive(home.write(u"b.zip"_s, "<html>"), places, now)) << "and the cache stays";
    EXPECT_EQ(ps4ListState(places, now), (PatchListState{true, true}));
    EXPECT_EQ(ps4ListState(places, now.addDays(7)), (PatchListState{true, false}));
    EXPECT_EQ(findFramePatch(game, places).name, u"60 FPS"_s);

    EXPECT_EQ(applyFramePatch(game, false, places, notes).shortcoming, std::nullopt);
    const QString folder = u".local/share/shadPS4/patches/VelkoEmu"_s;
    EXPECT_FALSE(QFileInfo::exists(home.path() + u'/' + folder)) << "nothing is there before it is wanted";
    EXPECT_EQ(applyFramePatch(game, true, places, notes).shortcoming, std::nullopt);
    EXPECT_EQ(QJsonDocument::fromJson(home.read(folder + u"/files.json"_s)).toJson(QJsonDocument::Compact),
              "{\"A-Orbis.xml\":[\"CUSA00362\",\"CUSA00363\"]}");
    EXPECT_EQ(home.read(folder + u"/A-Orbis.xml"_s).count("isEnabled=\"true\""), 1);

    // An update beside the game for which there is no patch.
    home.write(u"games/CUSA00363-patch/sce_sys/param.sfo"_s,
               sfoFile({{"APP_VER", "01.81"}, {"TITLE_ID", "CUSA00363"}}));
    const auto shortcoming = applyFramePatch(game, true, places, notes).shortcoming;
    EXPECT_EQ(english(shortcoming.value_or(Message{})), u"No 60 FPS patch for this game version 01.81 yet."_s);
    EXPECT_EQ(home.read(folder + u"/A-Orbis.xml"_s).count("isEnabled=\"true\""), 0);
    game.path = home.write(u"elsewhere/eboot.bin"_s);
    EXPECT_EQ(english(findFramePatch(game, places).why), u"Velko can't read this game's serial (sce_sys/param.sfo)."_s);
}

TEST_F(FramePatchOfAGame, isFoundInADiscImage)
{
    const QByteArray sfo = sfoFile({{"APP_VER", "01.02"}, {"TITLE_ID", "BLES00932"}});
    const QByteArray disc =
        packed({{"PS3_GAME/", ""}, {"PS3_GAME/PARAM.SFO", sfo}, {"PS3_GAME/USRDIR", "x"}}, Packing::disc);
    const QString image = home.write(u"game.iso"_s, disc);
    EXPECT_EQ(ps3Identity(image, {}), (GameIdentity{u"BLES00932"_s, u"01.02"_s}));
    for (const qsizetype size : {qsizetype(0), qsizetype(100), qsizetype(34'000), disc.size() / 2})
        (void)ps3Identity(home.write(u"game.iso"_s, disc.first(size)), {}); // whatever comes, it ends
    EXPECT_EQ(fileInDisc(home.write(u"game.iso"_s, disc), u"ps3_game/param.sfo"_s, 10), std::nullopt);
    EXPECT_EQ(ps3Identity(home.write(u"game.iso"_s, QByteArray(100'000, 'x')), {}), std::nullopt);
}

TEST_F(FramePatchOfAGame, hasASerialThatIsSafeInAPath)
{
    home.write(u"g/PS3_GAME/PARAM.SFO"_s, sfoFile({{"TITLE_ID", "../../etc"}}));
    EXPECT_EQ(ps3Identity(home.write(u"g/PS3_GAME/USRDIR/EBOOT.BIN"_s), home.path()), std::nullopt);
}
