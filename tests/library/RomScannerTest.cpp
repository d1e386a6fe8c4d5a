#include "library/RomScanner.h"
#include "library/ScanReport.h"

#include "OrdinaryUser.h"

#include "fakes/TemporaryHome.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

static bool always(int)
{
    return true;
}

/// The hits as "console title" lines, and the number of unsettled files when there are any.
static QStringList scanned(const TemporaryHome &home, const QStringList &files, const QString &root = u"Roms"_s,
                           Host host = Host::linux)
{
    for (const QString &file : files)
        home.write(root + u'/' + file);
    const ScanFindings findings = RomScanner(host).scan({home.path() + u'/' + root}, always);
    QStringList lines;
    for (const Hit &hit : findings.hits)
        lines += hit.consoleID + u' ' + hit.title;
    if (findings.unsettled > 0) lines += u"unsettled %1"_s.arg(findings.unsettled);
    return lines;
}

struct TreeRow {
    const char *name;
    QStringList files;
    QStringList expected;
    QString root = u"Roms"_s;
};
class RomScannerFinds : public testing::TestWithParam<TreeRow> { };

TEST_P(RomScannerFinds, whatTheFolderHolds)
{
    const TemporaryHome home;
    EXPECT_EQ(scanned(home, GetParam().files, GetParam().root), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Edges, RomScannerFinds,
    testing::Values(
        TreeRow{"oneConsole", {"B (USA).n64", "a.SFC"}, {"n64 B", "snes a"}},
        TreeRow{"climbs", {"PlayStation 2/Action/Game.iso"}, {"ps2 Game"}},
        TreeRow{"nothingToClimbTo", {"Game.iso"}, {"unsettled 1"}, u"Downloads"_s},
        TreeRow{"theRootCounts", {"Game.iso"}, {"ps2 Game"}, u"PS2"_s},
        TreeRow{"aboveTheRootDoesNot", {"Game.iso"}, {"unsettled 1"}, u"PS2/Roms"_s},
        TreeRow{"nearestHintThatFits", {"PS2/Wii/Saturn/DS/Game.iso"}, {"saturn Game"}},
        TreeRow{"zipByItsFolder", {"SNES/Game.zip", "PS2/Game.zip"}, {"snes Game", "unsettled 1"}},
        TreeRow{"cueStandsForBin", {"PS1/G.bin", "PS1/G.cue"}, {"ps1 G"}},
        TreeRow{"cueStandsForTracks", {"PS1/G (Track 1).bin", "PS1/G (Track 02).bin", "PS1/G.cue"}, {"ps1 G"}},
        TreeRow{"binAlone", {"PS1/G.bin"}, {"ps1 G"}}, TreeRow{"levelSix", {"SNES/2/3/4/5/G.sfc"}, {"snes G"}},
        TreeRow{"levelSeven", {"SNES/2/3/4/5/6/G.sfc"}, {}}, TreeRow{"hidden", {".trash/G.sfc", ".G.sfc"}, {}},
        TreeRow{"workFolders", {"x_build/G.sfc", "x_survey/G.sfc", "x_builds/H.sfc"}, {"snes H"}},
        TreeRow{"bundles", {"X.app/G.sfc", "Y.Framework/G.sfc"}, {}},
        TreeRow{"foldersAreNoGames", {"Game.sfc/readme.txt"}, {}},
        TreeRow{"noOrOtherExtension", {"sfc", "G.", "G.txt", "G.sfc.part"}, {}},
        TreeRow{"onlyBrackets", {"(Demo).sfc"}, {"snes "}},
        TreeRow{
            "documents", {"README.md", "Sonic.md", "backup.tar.gz", "Game.iso.gz"}, {"ps2 Game.iso", "genesis Sonic"}},
        TreeRow{"ps3GameFolder",
                {"PS3/Blue (EU)/PS3_GAME/USRDIR/EBOOT.BIN", "PS3/Blue (EU)/PS3_GAME/PARAM.SFO",
                 "PS3/Blue (EU)/PS3_GAME/USRDIR/data.bin"},
                {"ps3 Blue"}},
        TreeRow{"ps4GameFolder", {"Any/Red/eboot.bin", "Any/Red/sce_sys/param.sfo", "Any/Red/data/x.elf"}, {"ps4 Red"}},
        TreeRow{"ps4WithoutSystemFolder", {"PS4/Red/eboot.bin"}, {"ps4 eboot"}},
        TreeRow{"switch2GameFolder", {"Green/base/exefs/main", "Green/base/romfs/x.bin"}, {"switch2 Green"}},
        TreeRow{"theRootIsAGameFolder", {"eboot.bin", "sce_sys/param.sfo"}, {"ps4 Roms"}},
        TreeRow{"appImageForNative", {"Native ports/Ship/Ship.AppImage"}, {"native Ship"}},
        TreeRow{"appImageElsewhere", {"Emulators/mgba.appimage", "Native ports/a/b/c.AppImage"}, {}},
        TreeRow{"strangeNames",
                {u"NES/-rf.nes"_s, u"NES/$(reboot).nes"_s, u"NES/a\nb\"c'd.nes"_s,
                 u"NES/"_s + QString(251, u'x') + u".nes"_s},
                {u"nes $"_s, u"nes -rf"_s, u"nes a b\"c'd"_s, u"nes "_s + QString(251, u'x')}}),
    [](const auto &row) { return row.param.name; });

TEST(RomScanner, tellsWhereAGameLies)
{
    const TemporaryHome home;
    const QString eboot = home.write(u"Roms/Blue/PS3_GAME/USRDIR/EBOOT.BIN"_s);
    home.write(u"Roms/Blue/PS3_GAME/PARAM.SFO"_s);
    home.write(u"Roms/Red/eboot.bin"_s);
    home.write(u"Roms/Red/sce_sys/param.sfo"_s);
    const QString root = home.path() + u"/Roms"_s;
    EXPECT_EQ(RomScanner(Host::linux).scan({root + u"/"_s}, always).hits,
              (QList<Hit>{{eboot, u"Blue"_s, u"ps3"_s, root}, {root + u"/Red"_s, u"Red"_s, u"ps4"_s, root}}));
}

TEST(RomScanner, knowsAProgramByItsFirstBytes)
{
    const TemporaryHome home;
    const QString program = home.write(u"Native/Port/Ship 64"_s,
                                       "\x7F"
                                       "ELF...");
    const QString script = home.write(u"Native/Port/run"_s, "#!/bin/sh");
    home.write(u"Native/Port/data"_s,
               "\x7F"
               "ELF...");
    for (const QString &file : {program, script})
        QFile::setPermissions(file, QFile::ReadOwner | QFile::ExeOwner);
    EXPECT_EQ(scanned(home, {}, u"Native"_s), QStringList{u"native Ship 64"_s});
    EXPECT_EQ(scanned(home, {}, u"Native"_s, Host::mac), QStringList{});
}

TEST(RomScanner, followsNoLinksAndSurvivesTheirLoops)
{
    const TemporaryHome home;
    home.write(u"Outside/G.sfc"_s);
    home.write(u"Roms/SNES/H.sfc"_s);
    const QString roms = home.path() + u"/Roms"_s;
    QFile::link(home.path() + u"/Outside"_s, roms + u"/out"_s);
    QFile::link(home.path() + u"/Outside/G.sfc"_s, roms + u"/G.sfc"_s);
    QFile::link(roms, roms + u"/SNES/loop"_s);
    QFile::link(u"itself"_s, roms + u"/itself"_s);
    QFile::link(roms, home.path() + u"/Link"_s);
    EXPECT_EQ(scanned(home, {}), QStringList{u"snes H"_s});
    EXPECT_EQ(scanned(home, {}, u"Link"_s), QStringList{u"snes H"_s});
}

TEST(RomScanner, leavesOutNamesThatAreNoText)
{
    const TemporaryHome home;
    home.write(u"Roms/Good.sfc"_s);
    const QByteArray roms = home.path().toUtf8() + "/Roms/";
    for (const QByteArray &name : {roms + "Bad\xFF.sfc", roms + "Bad\xFF.txt"})
        ASSERT_EQ(::mknod(name.constData(), S_IFREG | 0644, 0), 0);
    ASSERT_EQ(::mkdir((roms + "\xC3").constData(), 0755), 0);
    ASSERT_EQ(::mknod((roms + "\xC3/G.sfc").constData(), S_IFREG | 0644, 0), 0);
    const ScanFindings findings = RomScanner(Host::linux).scan({home.path() + u"/Roms"_s}, always);
    ASSERT_EQ(findings.hits.size(), 1);
    EXPECT_EQ(findings.hits[0].title, u"Good"_s);
    EXPECT_EQ(findings.unnamable, 2);
    EXPECT_EQ(scanReport(findings, 1).arguments[1], u"2"_s);

    // Qt could not remove these.
    for (const QByteArray &name : {roms + "Bad\xFF.sfc", roms + "Bad\xFF.txt", roms + "\xC3/G.sfc"})
        ::unlink(name.constData());
    ::rmdir((roms + "\xC3").constData());
}

TEST(RomScanner, stopsAtItsLimitInEachFolder)
{
    const TemporaryHome home;
    for (int i = 0; i < 10; ++i)
        home.write(u"Huge/%1/%1.sfc"_s.arg(i));
    home.write(u"Small/G.sfc"_s);
    const QStringList roots{home.path() + u"/Huge"_s, home.path() + u"/Small"_s};
    const ScanFindings cut = RomScanner(Host::linux, 19).scan(roots, always);
    EXPECT_EQ(cut.hits.size(), 10);
    EXPECT_EQ(cut.cutShort, QStringList{roots[0]});
    const ScanFindings whole = RomScanner(Host::linux, 20).scan(roots, always);
    EXPECT_EQ(whole.hits.size(), 11);
    EXPECT_EQ(whole.cutShort, QStringList());
}

TEST(RomScanner, keepsWhatItFoundWhenCancelled)
{
    const TemporaryHome home;
    for (int i = 0; i < 300; ++i)
        home.write(u"Roms/%1.sfc"_s.arg(i));
    const ScanFindings findings =
        RomScanner(Host::linux).scan({home.path() + u"/Roms"_s, home.path()}, [](int examined) {
            return examined < 250;
        });
    EXPECT_TRUE(findings.cancelled);
    EXPECT_EQ(findings.hits.size(), 255);
}

TEST(RomScanner, passesOverFoldersThatItMayNotRead)
{
    const TemporaryHome home;
    home.write(u"Roms/Closed/G.sfc"_s);
    home.write(u"Roms/Open/H.sfc"_s);
    const OrdinaryUser user(home.path());
    const QByteArray closed = home.path().toUtf8() + "/Roms/Closed";
    ASSERT_EQ(::chmod(closed.constData(), 0), 0);
    EXPECT_EQ(scanned(home, {}), QStringList{u"snes H"_s});
    EXPECT_EQ(RomScanner(Host::linux).scan({QString::fromUtf8(closed)}, always).unopened.size(), 1);
    ASSERT_EQ(::chmod(closed.constData(), 0755), 0);
}

struct GivenRow {
    const char *name;
    QString file;
    QString expected;
};
class RomScannerTakes : public testing::TestWithParam<GivenRow> { };

TEST_P(RomScannerTakes, aFileThatIsGiven)
{
    const TemporaryHome home;
    home.write(GetParam().file);
    EXPECT_EQ(scanned(home, {}, GetParam().file), QStringList{GetParam().expected});
}

INSTANTIATE_TEST_SUITE_P(Edges, RomScannerTakes,
                         testing::Values(GivenRow{"byItsExtension", u"Downloads/G (USA).n64"_s, u"n64 G"_s},
                                         GivenRow{"byTheFoldersAbove", u"Roms/PS2/Action/G.iso"_s, u"ps2 G"_s},
                                         GivenRow{"unclear", u"Downloads/G.iso"_s, u"unsettled 1"_s},
                                         GivenRow{"noGame", u"Downloads/G.txt"_s, u"unsettled 1"_s},
                                         GivenRow{"readme", u"Downloads/README.md"_s, u"unsettled 1"_s},
                                         GivenRow{"appImage", u"Downloads/Ship.AppImage"_s, u"native Ship"_s},
                                         GivenRow{"ps3Program", u"Blue (EU)/PS3_GAME/USRDIR/EBOOT.BIN"_s,
                                                  u"ps3 Blue"_s}),
                         [](const auto &row) { return row.param.name; });

TEST(RomScanner, namesFoldersThatCannotBeOpened)
{
    const TemporaryHome home;
    const QStringList roots{home.path() + u"/Gone"_s, home.path() + u"/pipe.sfc"_s};
    ASSERT_EQ(::mkfifo(roots[1].toUtf8().constData(), 0644), 0);
    EXPECT_EQ(RomScanner(Host::linux).scan(roots, always), (ScanFindings{.unopened = roots}));
}

struct ReportRow {
    const char *name;
    ScanFindings findings;
    int added;
    const char *expected;
};
class ScanReport : public testing::TestWithParam<ReportRow> { };

TEST_P(ScanReport, saysWhatMattersMost)
{
    EXPECT_TRUE(
        english(scanReport(GetParam().findings, GetParam().added)).startsWith(QString::fromUtf8(GetParam().expected)))
        << english(scanReport(GetParam().findings, GetParam().added)).toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Edges, ScanReport,
    testing::Values(
        ReportRow{"none", {}, 0, "No new games found."}, ReportRow{"one", {}, 1, "1 game added."},
        ReportRow{"many", {}, 20, "20 games added."},
        ReportRow{"unsettled", {.unsettled = 3}, 2, "Games added: 2. Files whose console isn't clear: 3."},
        ReportRow{"limit",
                  {.unsettled = 3, .cutShort = {"/a"}},
                  2,
                  "Games added: 2. Only the first 20000 entries of “/a” were looked at"},
        ReportRow{"gone", {.cutShort = {"/a"}, .unopened = {"/b"}}, 0, "Games added: 0. “/b” can't be opened"},
        ReportRow{"cancelled", {.unopened = {"/b"}, .cancelled = true}, 4, "Scan stopped. Games added: 4."}),
    [](const auto &row) { return row.param.name; });
