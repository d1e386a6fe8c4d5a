#include "emulators/patches/FramePatches.h"
#include "emulators/SfoFile.h"
#include "emulators/ZipFile.h"
#include "emulators/finding/InstalledEmulators.h"
#include "fakes/FakeFileIndex.h"
#include "fakes/FakeHttp.h"
#include "fakes/FakeTasks.h"
#include "fakes/FakeWorkspace.h"
#include "fakes/ManualClock.h"
#include "fakes/TemporaryHome.h"
#include "platform/Preferences.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

using Phase = FramePatchState::Phase;

class FramePatchStore : public testing::Test {
protected:
    FramePatchStore() { tasks.immediate = true; }

    QString ps3Game()
    {
        home.write(u"g/PS3_GAME/PARAM.SFO"_s, sfoFile({{"APP_VER", "01.00"}, {"TITLE_ID", "BLUS1"}}));
        return home.write(u"g/PS3_GAME/USRDIR/EBOOT.BIN"_s);
    }
    QString ps4Game()
    {
        home.write(u"p/sce_sys/param.sfo"_s, sfoFile({{"APP_VER", "01.00"}, {"TITLE_ID", "CUSA1"}}));
        return home.write(u"p/eboot.bin"_s);
    }
    FramePatchState::Phase phase(const QString &game = u"A"_s) { return patches.state(game).phase; }
    std::string message(const QString &game = u"A"_s) { return english(patches.state(game).message).toStdString(); }

    static constexpr auto ps3Address = "https://rpcs3.net/compatibility?patch&api=v1&v=1.2"_L1;
    static constexpr auto ps4Address = "https://api.github.com/repos/illusion0001/PS4-PS5-Game-Patch"_L1;
    static constexpr auto zipAddress =
        "https://codeload.github.com/illusion0001/PS4-PS5-Game-Patch/zip/refs/heads/main"_L1;
    const QByteArray ps3List = R"({"return_code":0,"patch":"H:\n  60 FPS: {Games: {T: {BLUS1: [ 01.00 ]}}}\n"})";

    TemporaryHome home;
    FakeWorkspace workspace;
    FakeFileIndex index;
    FakeTasks tasks;
    FakeHttp http;
    ManualClock clock;
    Preferences preferences{home.path() + u"/preferences.ini"_s};
    InstalledEmulators emulators{home.places(), workspace, index, preferences, tasks};
    FramePatches patches{home.places(), {}, emulators, http, clock, tasks};
};

TEST_F(FramePatchStore, fetchesAListOnceForAllAndAgainAfterAWeek)
{
    clock.present = QDateTime::currentDateTime();
    http.pages[ps3Address] = {200, ps3List, {}};
    const QString game = ps3Game();
    patches.look(u"other"_s, u"snes"_s, game);
    EXPECT_EQ(phase(u"other"_s), Phase::unknown);

    patches.look(u"A"_s, u"ps3"_s, game);
    patches.look(u"B"_s, u"ps3"_s, home.write(u"no/EBOOT.BIN"_s));
    EXPECT_EQ(phase(), Phase::downloading);
    QList<double> progress;
    QObject::connect(&patches, &FramePatches::changed, &patches, [&](const QString &id) {
        if (id == u"A") progress += patches.state(id).progress;
    });
    http.deliver();
    EXPECT_EQ(http.requests.size(), 1);
    EXPECT_EQ(phase(), Phase::available);
    EXPECT_EQ(patches.state(u"A"_s).patch, u"60 FPS"_s);
    EXPECT_TRUE(progress.contains(1.0));
    EXPECT_EQ(phase(u"B"_s), Phase::none);
    EXPECT_EQ(message(u"B"_s), "No 60 FPS patch for this game yet.");

    patches.look(u"A"_s, u"ps3"_s, game);
    EXPECT_EQ(http.requests.size(), 1);
    clock.present = clock.present.addDays(8);
    patches.look(u"A"_s, u"ps3"_s, game); // the server can't be reached under the address with the hash
    http.deliver();
    EXPECT_EQ(http.requests.size(), 2);
    EXPECT_TRUE(http.requests.last().address.query().contains("&sha256="_L1));
    EXPECT_EQ(phase(), Phase::available) << "the old list will do";
}

TEST_F(FramePatchStore, saysWhatFailedAndDropsWhatIsCancelled)
{
    const QString ps3 = ps3Game(), ps4 = ps4Game();
    patches.look(u"A"_s, u"ps3"_s, ps3);
    patches.look(u"B"_s, u"ps4"_s, ps4);
    http.deliver();
    EXPECT_EQ(message(), "Couldn't download RPCS3's patch list. Check your Internet connection.");
    EXPECT_EQ(message(u"B"_s), "Couldn't download the PS4 patch list. Check your Internet connection.");
    for (const QByteArray &wrong : {QByteArray("<html>"), QByteArray("{\"return_code\":-2}"), QByteArray()}) {
        http.pages[ps3Address] = http.pages[ps4Address] = {200, wrong, {}};
        patches.look(u"A"_s, u"ps3"_s, ps3);
        patches.look(u"B"_s, u"ps4"_s, ps4);
        http.deliver();
        EXPECT_EQ(phase(), Phase::failed);
        EXPECT_EQ(phase(u"B"_s), Phase::failed);
    }
    patches.look(u"A"_s, u"ps3"_s, ps3);
    EXPECT_EQ(http.pending(), 1);
    patches.cancel(u"A"_s);
    EXPECT_EQ(http.pending(), 0);
    EXPECT_EQ(phase(), Phase::unknown);
    http.pages[ps3Address] = {200, ps3List, {}};
    patches.look(u"A"_s, u"ps3"_s, ps3);
    http.deliver();
    EXPECT_EQ(phase(), Phase::available);
}

TEST_F(FramePatchStore, goesOnForALaunchWhenAGameGivesItUp)
{
    http.pages[ps3Address] = {200, ps3List, {}};
    patches.look(u"A"_s, u"ps3"_s, ps3Game());
    bool ready = false;
    patches.prepare(u"ps3"_s, [&ready](bool) { ready = true; });
    patches.cancel(u"A"_s);
    http.deliver();
    EXPECT_TRUE(ready);
}

TEST_F(FramePatchStore, unpacksTheRepositoryOfThePlayStation4)
{
    const QByteArray xml =
        "<Patch><TitleID><ID>CUSA1</ID></TitleID><Metadata Name=\"60 FPS\" AppVer=\"mask\"/></Patch>";
    http.pages[ps4Address] = {200, R"({"default_branch":"main"})", {}};
    http.pages[zipAddress] = {200, zipOf({{"r/patches/xml/A.xml", xml}}), {}};
    patches.look(u"A"_s, u"ps4"_s, ps4Game());
    http.deliver();
    EXPECT_EQ(phase(), Phase::available);
    EXPECT_FALSE(home.read(u".local/share/VelkoEmu/patches/index.json"_s).isEmpty());
    EXPECT_TRUE(QDir(home.path() + u"/.cache/VelkoEmu"_s).isEmpty());
}

TEST_F(FramePatchStore, aLaunchWaitsForTheFirstListOnlyAndNotForLong)
{
    int ready = 0;
    const auto go = [&ready](bool cancelled) {
        EXPECT_FALSE(cancelled);
        ++ready;
    };
    patches.prepare(u"snes"_s, go);
    EXPECT_EQ(ready, 1);
    patches.prepare(u"ps3"_s, go);
    EXPECT_EQ(ready, 1);
    clock.advance(8s);
    EXPECT_EQ(ready, 2);
    http.pages[ps3Address] = {200, ps3List, {}};
    http.deliver();
    EXPECT_EQ(ready, 2) << "once";
    patches.prepare(u"ps3"_s, go);
    EXPECT_EQ(ready, 3) << "there is a list now";
    EXPECT_EQ(clock.pending(), 0);
}

TEST_F(FramePatchStore, aCancelledDownloadLeavesTheNextStartWithoutAPatch)
{
    QList<bool> ready;
    const auto go = [&ready](bool cancelled) { ready += cancelled; };
    const QString game = ps3Game();
    patches.look(u"A"_s, u"ps3"_s, game);
    patches.look(u"B"_s, u"ps3"_s, game);
    patches.cancelDownload(u"A"_s);
    EXPECT_EQ(http.pending(), 0);
    const auto sentence =
        "You cancelled the download of the patch list: this time the game starts without its 60 FPS patch.";
    EXPECT_EQ(message(), sentence);
    EXPECT_EQ(message(u"B"_s), sentence) << "which waited for the same list";
    patches.prepare(u"ps3"_s, go);
    EXPECT_EQ(ready, QList<bool>{true});
    EXPECT_EQ(http.pending(), 0);

    patches.look(u"A"_s, u"ps3"_s, game);
    patches.prepare(u"ps3"_s, go);
    EXPECT_EQ(ready.size(), 1) << "the next one asks for it";
    patches.cancelDownload(u"A"_s);
    EXPECT_EQ(ready, (QList<bool>{true, true})) << "and goes on when it is cancelled";
    EXPECT_EQ(clock.pending(), 0);

    http.pages[ps3Address] = {200, ps3List, {}};
    patches.look(u"A"_s, u"ps3"_s, game);
    http.deliver();
    EXPECT_EQ(phase(), Phase::available);
    clock.present = QDateTime::currentDateTime().addDays(8);
    patches.look(u"A"_s, u"ps3"_s, game);
    patches.cancelDownload(u"A"_s);
    EXPECT_EQ(phase(), Phase::available) << "an older list will do";
}
