#include "play/states/StateFiles.h"

#include "fakes/TemporaryHome.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

struct PlaceRow {
    const char *name;
    const char *engine;
    InstalledEmulator copy;
    const char *settings; ///< file below the home; empty: none
    const char *text;
    const char *state; ///< that is found, below the home
    const char *other; ///< that is not
};
static InstalledEmulator native(const char *engine)
{
    return {QString::fromUtf8(engine), ApplicationKind::native, u"/usr/bin/x"_s, {}, {}};
}
static InstalledEmulator flatpak(const char *engine, const QString &id)
{
    return {QString::fromUtf8(engine), ApplicationKind::flatpak, {}, id, {}};
}
class StatePlaces : public testing::TestWithParam<PlaceRow> { };
TEST_P(StatePlaces, areWhereTheEmulatorKeepsThem)
{
    const TemporaryHome home;
    const PlaceRow &row = GetParam();
    if (*row.settings)
        home.write(QString::fromUtf8(row.settings), QByteArray(row.text).replace("HOME", home.path().toUtf8()));
    const QString state = home.write(QString::fromUtf8(row.state));
    home.write(QString::fromUtf8(row.other));
    const auto places =
        statePlaces(QString::fromUtf8(row.engine), home.path() + u"/Roms/Game (EU).rom"_s, {row.copy}, home.places());
    const auto files = stateFiles(places);
    ASSERT_EQ(files.size(), 1);
    EXPECT_EQ(files.first().path, state);
}
INSTANTIATE_TEST_SUITE_P(
    Emulators, StatePlaces,
    testing::Values(
        PlaceRow{"besideTheGame", "mgba", native("mgba"), "", "", "Roms/Game (EU).ss3", "Roms/Game (EU).sav"},
        PlaceRow{"mgbaElsewhere", "mgba", native("mgba"), ".config/mgba/config.ini",
                 "[ports.qt]\nsavestatePath=HOME/States\n", "States/Game (EU).ss1", "Roms/Game (EU).ss1"},
        PlaceRow{"mgbaFlatpak", "mgba", flatpak("mgba", u"io.mgba.mGBA"_s),
                 ".var/app/io.mgba.mGBA/config/mgba/config.ini", "[ports.qt]\nsavestatePath=HOME/States\n",
                 "States/Game.ss1", "Roms/Game (EU).ss1"},
        PlaceRow{"melonds", "melonds", native("melonds"), ".config/melonDS/melonDS.toml",
                 "[Instance0]\nSavestatePath = 'HOME/States'\n", "States/Game.ml8", "Roms/Game (EU).ml1"},
        PlaceRow{"duckstationNamesAFolder", "duckstation", native("duckstation"),
                 ".local/share/duckstation/settings.ini", "[Folders]\nSaveStates = HOME/My states\n",
                 "My states/SLUS-00000_1.sav", "My states/SLUS-00000_resume.sav"},
        PlaceRow{"pcsx2BelowItsOwn", "pcsx2", native("pcsx2"), ".config/PCSX2/inis/PCSX2.ini",
                 "[Folders]\nSavestates = mine\n", ".config/PCSX2/mine/SLES-1 (0123ABCD).01.p2s",
                 ".config/PCSX2/mine/SLES-1 (0123ABCD).01.p2s.backup"},
        PlaceRow{"dolphin", "dolphin", native("dolphin"), "", "", ".local/share/dolphin-emu/StateSaves/GZLE01.s01",
                 ".local/share/dolphin-emu/StateSaves/lastState.sav"},
        PlaceRow{"flycast", "flycast", native("flycast"), "", "", ".local/share/flycast/Game (EU).state",
                 ".local/share/flycast/Game (EU).net"},
        PlaceRow{"ppsspp", "ppsspp", native("ppsspp"), "", "", ".config/ppsspp/PSP/PPSSPP_STATE/ULUS1_1.00_0.ppst",
                 ".config/ppsspp/PSP/PPSSPP_STATE/undo.ppst"},
        PlaceRow{"retroarchInFolders", "retroarch", native("retroarch"), ".config/retroarch/retroarch.cfg",
                 "savestate_directory = \"~/States\"\n", "States/Gambatte/gb/Game (EU).state1",
                 "States/Gambatte/gb/Game (EU).state1.png"},
        PlaceRow{"retroarchBesideTheGame", "retroarch", native("retroarch"), ".config/retroarch/retroarch.cfg",
                 "savestates_in_content_dir = \"true\"\n", "Roms/Game (EU).state", ".config/retroarch/states/A.state"},
        PlaceRow{"xemuInItsDisk", "xemu", native("xemu"), ".local/share/xemu/xemu/xemu.toml",
                 "[sys.files]\nhdd_path = 'HOME/disk (1).qcow2'\n", "disk (1).qcow2", "disk 1.qcow2"}),
    [](const auto &row) { return row.param.name; });

TEST(StateFiles, changesThatCount)
{
    const QDateTime then = QDateTime::fromSecsSinceEpoch(1000), later = then.addSecs(1);
    const StateFile a{u"/a.ss1"_s, 10, then, then}, b{u"/b.ss1"_s, 10, then, then};
    StateFile replaced = a, grown = b, empty = b;
    replaced.replaced = later;
    grown.size = 11;
    empty.size = 0;
    EXPECT_EQ(changedState({a, b}, {a, b}), std::nullopt);
    EXPECT_EQ(changedState({a, b}, {b}), std::nullopt) << "removed";
    EXPECT_EQ(changedState({a}, {a, empty}), std::nullopt);
    EXPECT_EQ(changedState({}, {b}), b);
    EXPECT_EQ(changedState({a, b}, {replaced, b}), replaced) << "by a file of the same size and time";
    EXPECT_EQ(changedState({a, b}, {grown, replaced}), replaced) << "the newest";
}

TEST(StateFiles, aGamesOwn)
{
    const QList<StateFile> files{{u"/s/Game.ss1"_s}, {u"/s/Game 2.ss1"_s}, {u"/s/Game_1.ss1"_s}};
    EXPECT_EQ(statesOf(files, u"mgba"_s, u"/r/Game.gba"_s).size(), 2);
    EXPECT_EQ(statesOf(files, u"mgba"_s, u"/r/Game.zip"_s).size(), 3);
    EXPECT_EQ(statesOf(files, u"dolphin"_s, u"/r/Game.iso"_s).size(), 3);
}
