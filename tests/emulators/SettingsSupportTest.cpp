#include "emulators/settings/SettingsSupport.h"

#include "catalog/EmulatorDef.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

struct CaptionRow {
    const char *test;
    const char *emulator;
    Host host;
    QStringList captions; ///< minimum, medium, maximum
};
class QualityCaption : public testing::TestWithParam<CaptionRow> { };

TEST_P(QualityCaption, namesThePictureOfEachPreset)
{
    const QString id = QString::fromLatin1(GetParam().emulator);
    QStringList captions;
    for (const auto preset : {QualityPreset::minimum, QualityPreset::medium, QualityPreset::maximum})
        captions += english(qualityCaption(id, preset, GetParam().host));
    EXPECT_EQ(captions, GetParam().captions) << captions.join(u" | "_s).toStdString();
    EXPECT_EQ(settingsSupport(id, QualityPreset::medium, GetParam().host).resolution,
              captions.first().startsWith("Original"_L1));
}

static QStringList heights(const QString &low, const QString &middle, const QString &high)
{
    return {u"Original resolution (%1)"_s.arg(low), u"About "_s + middle, u"About "_s + high};
}
static const QStringList unknown{u"Runs on any Mac"_s, u"Sharp, for most Macs"_s,
                                 u"The best picture, for powerful Macs"_s};

INSTANTIATE_TEST_SUITE_P(
    Emulators, QualityCaption,
    testing::Values(CaptionRow{"dolphin", "dolphin", Host::linux, heights(u"480p"_s, u"1080p"_s, u"4K"_s)},
                    CaptionRow{"pcsx2", "pcsx2", Host::linux, heights(u"448p"_s, u"1080p"_s, u"4K"_s)},
                    CaptionRow{"duckstation", "duckstation", Host::mac, heights(u"240p"_s, u"1080p"_s, u"4K"_s)},
                    CaptionRow{"ppsspp", "ppsspp", Host::linux, heights(u"272p"_s, u"1080p"_s, u"4K"_s)},
                    CaptionRow{"rpcs3InPercent", "rpcs3", Host::linux, heights(u"720p"_s, u"1080p"_s, u"4K"_s)},
                    CaptionRow{"xemu", "xemu", Host::linux, heights(u"480p"_s, u"1080p"_s, u"1440p"_s)},
                    CaptionRow{"azahar", "azahar", Host::mac, heights(u"240p"_s, u"720p"_s, u"1440p"_s)},
                    CaptionRow{"flycastInLines", "flycast", Host::linux, heights(u"480p"_s, u"1080p"_s, u"4K"_s)},
                    CaptionRow{"melondsOnLinux", "melonds", Host::linux, heights(u"192p"_s, u"720p"_s, u"1440p"_s)},
                    CaptionRow{"melondsOnTheMac", "melonds", Host::mac, unknown},
                    CaptionRow{"cemu", "cemu", Host::linux, unknown},
                    CaptionRow{"noSuchEmulator", "x", Host::linux, unknown}),
    [](const auto &row) { return row.param.test; });

TEST(HeightLabel, changesAtItsBounds)
{
    const QList<QPair<int, const char *>> rows{{0, "0p"},      {599, "599p"},   {600, "720p"},   {849, "720p"},
                                               {850, "1080p"}, {1249, "1080p"}, {1250, "1440p"}, {1699, "1440p"},
                                               {1700, "4K"},   {8640, "4K"}};
    for (const auto &[lines, label] : rows)
        EXPECT_EQ(heightLabel(lines).toStdString(), label) << lines;
}

TEST(SettingsSupport, differsByEmulatorAndHost)
{
    const auto which = [](Host host, bool SettingsSupport::*flag) {
        QStringList ids;
        for (const EmulatorDef &def : emulatorDefs(host)) {
            if (settingsSupport(def.id, QualityPreset::medium, host).*flag) ids += def.id;
        }
        return ids.join(u' ').toStdString();
    };
    EXPECT_EQ(which(Host::mac, &SettingsSupport::widescreen), "dolphin");
    EXPECT_EQ(which(Host::linux, &SettingsSupport::widescreen), "duckstation flycast pcsx2 dolphin");
    EXPECT_EQ(which(Host::linux, &SettingsSupport::fps), "rpcs3 shadps4");
    EXPECT_EQ(which(Host::mac, &SettingsSupport::resolution),
              "duckstation flycast pcsx2 dolphin xemu ppsspp rpcs3 azahar");
    EXPECT_EQ(which(Host::linux, &SettingsSupport::resolution),
              "duckstation flycast pcsx2 dolphin xemu melonds ppsspp rpcs3 azahar");
    EXPECT_EQ(settingsSupport(u"pcsx2"_s, QualityPreset::maximum, Host::linux),
              (SettingsSupport{true, false, true, true, true, u"PCSX2"_s, u"pcsx2"_s, QualityPreset::maximum}));
    EXPECT_EQ(settingsSupport(u"native"_s, QualityPreset::medium, Host::linux),
              (SettingsSupport{false, false, false, true, true, {}, u"native"_s, QualityPreset::medium}));
}

TEST(SettingsSupport, everyEmulatorHasAChoiceOrSaysWhyNot)
{
    for (const Host host : {Host::mac, Host::linux}) {
        for (const EmulatorDef &def : emulatorDefs(host)) {
            const bool offered = settingsSupport(def.id, QualityPreset::medium, host).resolution;
            const bool explained = qualityNotOffered(def.id) != "Quality isn't handled for this emulator yet."_L1;
            EXPECT_TRUE(offered || explained) << def.id.toStdString();
        }
    }
    EXPECT_EQ(qualityNotOffered(u"openemu"_s), u"Retro consoles look the same on any Mac: nothing to set."_s);
    EXPECT_EQ(qualityNotOffered(u"x"_s), u"Quality isn't handled for this emulator yet."_s);
    EXPECT_FALSE(counterNeedsMangoHud(u"xemu"_s, Host::mac));
    EXPECT_TRUE(counterNeedsMangoHud(u"native"_s, Host::linux));
    EXPECT_FALSE(counterNeedsMangoHud(u"dolphin"_s, Host::linux));
}
