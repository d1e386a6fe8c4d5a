#include "play/states/SaveStatePolicy.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using Kind = SaveStatePolicy::Kind;

struct PolicyRow {
    const char *name;
    const char *engine;
    Host host;
    bool keysBound;
    Kind kind;
    const char *subtitle;
};
class Policy : public testing::TestWithParam<PolicyRow> { };
TEST_P(Policy, saysHowStatesAreReached)
{
    const SaveStatePolicy policy =
        saveStatePolicy(QString::fromUtf8(GetParam().engine), GetParam().host, GetParam().keysBound);
    EXPECT_EQ(policy.kind, GetParam().kind);
    EXPECT_EQ(english(policy.subtitle), GetParam().subtitle);
    EXPECT_EQ(policy.acts(), policy.explanation.text.isEmpty()) << "either it acts or it says why not";
    EXPECT_EQ(policy.acts(),
              !stateWays(QString::fromUtf8(GetParam().engine), GetParam().host, GetParam().keysBound).isEmpty());
}
INSTANTIATE_TEST_SUITE_P(
    Engines, Policy,
    testing::Values(
        PolicyRow{"native", "native", Host::mac, false, Kind::none, "Native game: save from the game's own menu"},
        PolicyRow{"rebuilt", "nxnative", Host::linux, false, Kind::none, "Native game: save from the game's own menu"},
        PolicyRow{"ppssppHasAMenuAlthoughItHasKeys", "ppsspp", Host::mac, false, Kind::keyboardMenu,
                  "Press Esc on the keyboard: PPSSPP's menu"},
        PolicyRow{"ppssppWithKeysOfTheUser", "ppsspp", Host::linux, true, Kind::shortcut, "Quick slot 1"},
        PolicyRow{"keys", "duckstation", Host::mac, false, Kind::shortcut, "Quick slot 1"},
        PolicyRow{"openemu", "openemu", Host::mac, false, Kind::shortcut, "Quick slot 1"},
        PolicyRow{"retroarch", "retroarch", Host::linux, false, Kind::shortcut, "Quick slot 1"},
        PolicyRow{"xemuOnTheMac", "xemu", Host::mac, false, Kind::ownMenu, "Use xemu's own menu"},
        PolicyRow{"xemuTakesCommandsOnLinux", "xemu", Host::linux, false, Kind::shortcut, "Quick slot 1"},
        PolicyRow{"rpcs3", "rpcs3", Host::linux, false, Kind::ownMenu, "Use RPCS3's own menu"},
        PolicyRow{"flycastOnTheMac", "flycast", Host::mac, false, Kind::menuSearch, "Through Flycast's menu"},
        PolicyRow{"flycastDrawsItsMenu", "flycast", Host::linux, false, Kind::ownMenu, "Use Flycast's own menu"},
        PolicyRow{"flycastWithKeysOfTheUser", "flycast", Host::linux, true, Kind::shortcut, "Quick slot 1"},
        PolicyRow{"cemu", "cemu", Host::linux, false, Kind::unavailable, "Not available with Cemu"},
        PolicyRow{"shadps4", "shadps4", Host::mac, false, Kind::unavailable, "Not available with shadPS4"},
        PolicyRow{"azahar", "azahar", Host::linux, false, Kind::menuSearch, "Through Azahar's menu"}),
    [](const auto &row) { return row.param.name; });

struct KeyRow {
    const char *name;
    const char *engine;
    MacKey save;
    MacKey load;
};
class MacKeys : public testing::TestWithParam<KeyRow> { };
TEST_P(MacKeys, areThoseOfTheEmulator)
{
    const auto keys = shortcutPair(QString::fromUtf8(GetParam().engine), Host::mac);
    ASSERT_TRUE(keys);
    EXPECT_EQ(macKey(keys->save), GetParam().save);
    EXPECT_EQ(macKey(keys->load), GetParam().load);
}
INSTANTIATE_TEST_SUITE_P(Emulators, MacKeys,
                         testing::Values(KeyRow{"pcsx2", "pcsx2", {122}, {99}},
                                         KeyRow{"ppsspp", "ppsspp", {120}, {118}},
                                         KeyRow{"duckstation", "duckstation", {120}, {122}},
                                         KeyRow{"dolphin", "dolphin", {122, 0x20000, {56}}, {122}},
                                         KeyRow{"mgba", "mgba", {122, 0x20000, {56}}, {122}},
                                         KeyRow{"melonds", "melonds", {122, 0x20000, {56}}, {122}},
                                         KeyRow{"openemu", "openemu", {1, 0x100000, {55}}, {37, 0x100000, {55}}}),
                         [](const auto &row) { return row.param.name; });

TEST(SaveStatePolicy, keysThatAnEmulatorDoesNotHaveOnLinux)
{
    for (const auto &engine : {u"ppsspp"_s, u"flycast"_s, u"xemu"_s, u"rpcs3"_s, u"cemu"_s, u"openemu"_s})
        EXPECT_FALSE(shortcutPair(engine, Host::linux)) << qPrintable(engine);
}
