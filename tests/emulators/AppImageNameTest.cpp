#include "emulators/finding/AppImageName.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

struct NameRow {
    const char *test;
    const char *emulator;
    const char *fileName;
    bool fits;
};
class AppImageName : public testing::TestWithParam<NameRow> { };

TEST_P(AppImageName, tellsTheEmulator)
{
    const EmulatorDef *def = emulatorWithID(QString::fromUtf8(GetParam().emulator), Host::linux);
    ASSERT_NE(def, nullptr);
    EXPECT_EQ(isAppImageOf(*def, QString::fromUtf8(GetParam().fileName), u"x86_64"_s), GetParam().fits);
}

INSTANTIATE_TEST_SUITE_P(
    Names, AppImageName,
    testing::Values(NameRow{"released", "pcsx2", "pcsx2-v2.8.2-linux-appimage-x64-Qt.AppImage", true},
                    NameRow{"lowerCaseEnding", "mgba", "mGBA-0.10.5-appimage-x64.appimage", true},
                    NameRow{"bareName", "duckstation", "DuckStation.AppImage", true},
                    NameRow{"noVersion", "azahar", "azahar-wayland.AppImage", true},
                    NameRow{"unpackedZip", "shadps4", "Shadps4-sdl.AppImage", true},
                    NameRow{"secondDownload", "cemu", "Cemu-2.6-x86_64 (1).AppImage", true},
                    NameRow{"formerName", "azahar", "lime3ds-2120.3.AppImage", true},
                    NameRow{"server", "azahar", "azahar-room.AppImage", false},
                    NameRow{"debugBuild", "xemu", "xemu-0.8.5-dbg-x86_64.AppImage", false},
                    NameRow{"launcher", "shadps4", "shadPS4-qtlauncher.AppImage", false},
                    NameRow{"launcherInOneWord", "shadps4", "shadPS4QtLauncher-qt.AppImage", false},
                    NameRow{"otherProcessor", "duckstation", "DuckStation-arm64.AppImage", false},
                    NameRow{"longerWord", "cemu", "cemuhook-1.0.AppImage", false},
                    NameRow{"otherEmulator", "mgba", "xemu-0.8.5-x86_64.AppImage", false},
                    NameRow{"notTheBeginning", "xemu", "my-xemu.AppImage", false},
                    NameRow{"updateData", "pcsx2", "pcsx2-v2.8.2.AppImage.zsync", false},
                    NameRow{"archive", "melonds", "melonDS-appimage-x86_64.zip", false},
                    NameRow{"endingAlone", "xemu", ".AppImage", false}),
    [](const auto &row) { return row.param.test; });

TEST(AppImageName, onArmIntelBuildsAreForeign)
{
    const EmulatorDef *def = emulatorWithID(u"duckstation"_s, Host::linux);
    EXPECT_TRUE(isAppImageOf(*def, u"DuckStation-arm64.AppImage"_s, u"arm64"_s));
    EXPECT_FALSE(isAppImageOf(*def, u"DuckStation-x64.AppImage"_s, u"arm64"_s));
}

struct OrderRow {
    const char *test;
    const char *newestFirst;
};
class NewestFirst : public testing::TestWithParam<OrderRow> { };

TEST_P(NewestFirst, comparesVersionsAsNumbers)
{
    const QStringList expected = QString::fromUtf8(GetParam().newestFirst).split(u' ');
    QStringList reversed(expected.rbegin(), expected.rend());
    EXPECT_EQ(newestFirst(reversed), expected);
    EXPECT_EQ(newestFirst(expected), expected);
}

INSTANTIATE_TEST_SUITE_P(
    Orders, NewestFirst,
    testing::Values(
        OrderRow{"tenAfterNine", "mGBA-0.10.5-appimage-x64.appimage mGBA-0.9.3-appimage-x64.appimage"},
        OrderRow{"withV", "pcsx2-v2.10.0-linux-appimage-x64-Qt.AppImage pcsx2-v2.8.2-linux-appimage-x64-Qt.AppImage"},
        OrderRow{"buildNumber",
                 "rpcs3-v0.0.38-18364-c669a0be_linux64.AppImage rpcs3-v0.0.38-9999-ffffffff_linux64.AppImage "
                 "rpcs3-v0.0.37-20000-0_linux64.AppImage"},
        OrderRow{"versionBeforeNone", "flycast-2.5-x86_64.AppImage flycast-x86_64.AppImage"},
        OrderRow{"plainBeforeSpecial", "DuckStation-x64.AppImage DuckStation-x64-SSE2.AppImage"},
        OrderRow{"moreParts", "xemu-0.8.5.1-x86_64.AppImage xemu-0.8.5-x86_64.AppImage"}),
    [](const auto &row) { return row.param.test; });
