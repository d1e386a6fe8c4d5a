#include "play/GameFreezer.h"

#include "fakes/FakeAccessibility.h"
#include "fakes/FakeKeys.h"
#include "fakes/FakeWindows.h"
#include "library/LibraryHouse.h"
#include "play/supervision/PlacementLog.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {
constexpr qint64 velko = 10, game = 20, helper = 21, other = 30;

/// A game with a helper runs in front, beside Velko and another program.
struct Freezer : testing::Test {
    LibraryHouse house;
    FakeWindows windows;
    FakeAccessibility accessibility;
    FakeKeys keys;
    PlacementLog log{house.places, house.clock, house.tasks};
    GameEntry entry = existingGame(house, u"One"_s);
    LibraryStore &library = house.open();
    RunningGame running{.gameID = entry.id, .pid = game};
    std::unique_ptr<GameFreezer> freezer;
    int changes = 0;

    Freezer()
    {
        house.processes.processes = {
            {game, {game, 1, u"mgba"_s}}, {helper, {helper, game, u"sound"_s}}, {other, {other, 1, u"mail"_s}}};
        windows.windows = {{.id = 1, .pid = velko},
                           {.id = 2, .pid = helper},
                           {.id = 3, .pid = other},
                           {.id = 4, .pid = other, .transientFor = 2}};
        windows.active = 2;
        library.add({entry});
        library.launch(entry.id);
        house.workspace.running.insert(game);
        house.launcher.answer(StartedGame{game});
        freezer = std::make_unique<GameFreezer>(
            GameReach{Host::linux, house.clock, windows, accessibility, keys, house.processes, log}, library, velko);
        QObject::connect(freezer.get(), &GameFreezer::frozenChanged, freezer.get(), [this] { ++changes; });
    }
    double playSeconds() const { return library.game(entry.id)->playSeconds.value_or(0); }
};
}

TEST_F(Freezer, stopsTheGameWithItsHelpersAndItsPlayTime)
{
    EXPECT_EQ(freezer->frozenPID(), std::nullopt);
    house.clock.advance(20s);
    EXPECT_TRUE(freezer->freeze(running));
    EXPECT_TRUE(freezer->freeze(running));
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(freezer->frozenPID(), game);
    EXPECT_EQ(freezer->frozenHelpers(), QList{helper});
    EXPECT_EQ(house.processes.frozen, (std::set<qint64>{game, helper}));
    house.clock.advance(60s);
    freezer->thaw();
    freezer->thaw();
    EXPECT_EQ(changes, 2);
    EXPECT_TRUE(house.processes.frozen.empty());
    EXPECT_EQ(freezer->frozenHelpers(), QList<qint64>());
    house.clock.advance(20s);
    EXPECT_EQ(playSeconds(), 40);
}

struct FrontRow {
    const char *name;
    quint64 window;
    bool staysFrozen;
};
class InFront : public Freezer, public testing::WithParamInterface<FrontRow> { };
TEST_P(InFront, decides)
{
    freezer->freeze(running);
    windows.becomeActive(GetParam().window);
    EXPECT_EQ(freezer->frozenPID().has_value(), GetParam().staysFrozen);
    EXPECT_EQ(!house.processes.frozen.empty(), GetParam().staysFrozen);
}
INSTANTIATE_TEST_SUITE_P(Windows, InFront,
                         testing::Values(FrontRow{"velko", 1, true}, FrontRow{"nobody", 0, true},
                                         FrontRow{"anotherProgram", 3, false},
                                         FrontRow{"aQuestionOfTheDesktopAboutTheGame", 4, true}),
                         [](const auto &row) { return row.param.name; });

TEST_F(Freezer, thawsAtEveryEnd)
{
    freezer->freeze(running);
    house.processes.processes.erase(game);
    house.workspace.end(game);
    EXPECT_EQ(freezer->frozenPID(), std::nullopt);
    EXPECT_FALSE(freezer->freeze(running));
    EXPECT_EQ(freezer->frozenPID(), std::nullopt);

    house.processes.processes[game] = {game, 1, u"mgba"_s};
    freezer->freeze(running);
    freezer.reset();
    EXPECT_TRUE(house.processes.frozen.empty());
}

TEST_F(Freezer, holdsOneGameOnly)
{
    freezer->freeze(running);
    EXPECT_TRUE(freezer->freeze({.gameID = u"other"_s, .pid = other}));
    EXPECT_EQ(house.processes.frozen, std::set{other});
    EXPECT_EQ(freezer->frozenPID(), other);
}
