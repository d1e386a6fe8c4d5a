#include "ui/facts/GameOptions.h"

#include "emulators/patches/FramePatches.h"
#include "fakes/FakeHttp.h"
#include "ui/ListHouse.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {
struct OptionsHouse : ListHouse {
    GameOptions options{*store, emulators, preferences, translator, Host::linux};

    void install(const QString &program)
    {
        QFile::setPermissions(home.write(u"bin/"_s + program, "#!/bin/sh\n"),
                              QFile::ReadOwner | QFile::ExeOwner | QFile::WriteOwner);
        emulators.refresh();
        tasks.finish();
    }
};

struct OptionRow {
    const char *test;
    const char *console;
    const char *quality; ///< its text
    const char *fps60, *widescreen; ///< their reasons; empty: offered
};
class GameOptionsOf : public testing::TestWithParam<OptionRow> { };

constexpr auto mangoHud = "Install MangoHud to see it: there is no counter of its own here";
}

TEST_P(GameOptionsOf, sayWhatIsThereAndWhyNot)
{
    const OptionRow &row = GetParam();
    OptionsHouse house;
    house.options.setGameID(house.add(u"Game"_s, QString::fromLatin1(row.console)));
    const GameOptions &options = house.options;
    EXPECT_EQ(options.qualityText().toStdString(), row.quality);
    EXPECT_EQ(options.fps60Text().toStdString(), row.fps60);
    EXPECT_EQ(options.widescreenText().toStdString(), row.widescreen);
    EXPECT_EQ(options.showFPSText().toStdString(), counterNeedsMangoHud(options.engine(), Host::linux) ? mangoHud : "");
    EXPECT_EQ(options.fps60Offered(), options.fps60Text().isEmpty());
    EXPECT_EQ(options.widescreenOffered(), options.widescreenText().isEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Consoles, GameOptionsOf,
    testing::Values(OptionRow{"dolphin", "gc", "About 1080p", "Not available with Dolphin", ""},
                    OptionRow{"rpcs3", "ps3", "About 1080p", "", "Not available with RPCS3"},
                    OptionRow{"shadps4", "ps4",
                              "shadPS4 shows PS4 games at their own resolution: there is no quality setting to change.",
                              "", "Not available with shadPS4"},
                    OptionRow{"retroarch", "snes", "Retro consoles look the same on any computer: nothing to set.",
                              "Not available with RetroArch", "Not available with RetroArch"},
                    OptionRow{"xemu", "xbox", "About 1080p", "Not available with xemu", "Not available with xemu"},
                    OptionRow{"native", "native", "Native games set their resolution themselves.",
                              "Only games rebuilt by nxnative on a Mac can do this", "Not available for this game"},
                    OptionRow{"unknownConsole", "x", "Quality isn't handled for this emulator yet.",
                              "Not available for this game", "Not available for this game"}),
    [](const auto &row) { return row.param.test; });

TEST(GameOptions, followTheEmulatorThatIsThereAndSaveAtOnce)
{
    OptionsHouse house;
    house.options.setGameID(house.add(u"Game"_s, u"ps1"_s));
    EXPECT_EQ(house.options.engine(), u"duckstation"_s) << "the one it would be played with";
    house.install(u"retroarch"_s);
    EXPECT_EQ(house.options.engine(), u"duckstation"_s) << "no core";
    house.install(u"mangohud"_s);
    house.options.setGameID(house.add(u"Xbox"_s, u"xbox"_s));
    EXPECT_TRUE(house.options.showFPSOffered());

    house.options.setQuality(u"maximum"_s);
    EXPECT_EQ(house.options.qualityText(), u"About 1440p"_s);
    house.options.setQuality(u"ultra"_s);
    house.options.setWidescreen(true);
    house.options.setFps60(true);
    house.options.setShowFPS(true);
    house.options.setFullScreen(false);
    const GameSettings saved = house.onDisk().last().settings.value();
    EXPECT_EQ(saved.quality, QualityPreset::maximum);
    EXPECT_TRUE(saved.widescreen && saved.fps60 && saved.showFPS);
    EXPECT_EQ(saved.fullScreen, false);
}

TEST(GameOptions, cancelTheDownloadOfPatchesAndKeepTheChoice)
{
    OptionsHouse house;
    house.tasks.immediate = true;
    FakeHttp http;
    FramePatches patches{house.places, {}, house.emulators, http, house.clock, house.tasks};
    house.options.setPatches(&patches);
    house.options.setGameID(house.add(u"Game"_s, u"ps3"_s));
    EXPECT_FALSE(house.options.downloadingPatches());
    house.options.setFps60(true);
    EXPECT_TRUE(house.options.downloadingPatches());
    house.options.cancelDownload();
    EXPECT_FALSE(house.options.downloadingPatches());
    EXPECT_TRUE(house.options.fps60());
    EXPECT_TRUE(house.options.fps60Text().startsWith(u"You cancelled the download"_s));
}
