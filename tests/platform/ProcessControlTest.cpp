#include "platform/ProcessControl.h"
#include "fakes/FakeProcessControl.h"
#include "platform/ProcessState.h"
#include "platform/WaitUntil.h"
#include "platform/linux/FreezeGuard.h"
#include "platform/linux/LinuxServices.h"

#include <QProcess>
#include <QTemporaryDir>
#include <algorithm>
#include <csignal>
#include <gtest/gtest.h>
#include <limits>
#include <sys/wait.h>

using namespace Qt::StringLiterals;

/// A process control and a game in it: a process with a child and a grandchild.
struct World {
    virtual ~World() = default;
    virtual ProcessControl &control() = 0;
    virtual qint64 game() const = 0;
    virtual bool isFrozen(qint64 pid) = 0;
    bool becomes(bool frozen, qint64 pid)
    {
        return waitUntil([&] { return isFrozen(pid) == frozen; });
    }
};

struct FakeWorld final : World {
    FakeProcessControl fake;

    FakeWorld() { fake.processes = {{11, {11, 2, u"sh"_s}}, {12, {12, 11, u"sh"_s}}, {13, {13, 12, u"sleep"_s}}}; }
    ProcessControl &control() override { return fake; }
    qint64 game() const override { return 11; }
    bool isFrozen(qint64 pid) override { return fake.frozen.contains(pid); }
};

struct LinuxWorld final : World {
    std::unique_ptr<ProcessControl> real = makeProcessControl();
    QProcess process;

    LinuxWorld()
    {
        process.start(u"/bin/sh"_s, {u"-c"_s, u"sh -c 'sleep 60 & wait' & wait"_s});
        process.waitForStarted();
        waitUntil([this] { return ProcessTable().program(real->tree(game()).value(2)) == u"sleep"_s; });
    }
    ~LinuxWorld() override
    {
        const QList<qint64> all = real->tree(game());
        for (auto each = all.rbegin(); each != all.rend(); ++each)
            real->kill(*each);
        process.waitForFinished();
    }
    ProcessControl &control() override { return *real; }
    qint64 game() const override { return process.processId(); }
    bool isFrozen(qint64 pid) override { return stateOf(pid) == 'T'; }
};

struct WorldRow {
    const char *name;
    std::unique_ptr<World> (*make)();
};
class AnyProcessControl : public testing::TestWithParam<WorldRow> {
protected:
    std::unique_ptr<World> world = GetParam().make();
    ProcessControl &control = world->control();
    const qint64 game = world->game();
};
INSTANTIATE_TEST_SUITE_P(
    Both, AnyProcessControl,
    testing::Values(WorldRow{"fake", [] { return std::unique_ptr<World>(std::make_unique<FakeWorld>()); }},
                    WorldRow{"real", [] { return std::unique_ptr<World>(std::make_unique<LinuxWorld>()); }}),
    [](const auto &row) { return row.param.name; });

TEST_P(AnyProcessControl, knowsTheTree)
{
    const QList<qint64> tree = control.tree(game);
    ASSERT_EQ(tree.size(), 3);
    EXPECT_EQ(tree[0], game);
    QHash<qint64, RunningProcess> known;
    for (const RunningProcess &each : control.running())
        known[each.pid] = each;
    EXPECT_EQ(known[tree[1]].parent, tree[0]);
    EXPECT_EQ(known[tree[2]].parent, tree[1]);
    EXPECT_EQ(known[tree[2]].program, u"sleep"_s);
}

TEST_P(AnyProcessControl, freezesAndThawsTheWholeTree)
{
    const QList<qint64> tree = control.tree(game);
    for (int round = 0; round < 2; ++round) {
        EXPECT_TRUE(control.freeze(game));
        EXPECT_TRUE(control.freeze(game));
        for (const qint64 each : tree)
            EXPECT_TRUE(world->becomes(true, each));
        EXPECT_TRUE(control.isAlive(game));
        EXPECT_TRUE(control.thaw(game));
        for (const qint64 each : tree)
            EXPECT_TRUE(world->becomes(false, each));
    }
}

TEST_P(AnyProcessControl, knowsWhatHasEnded)
{
    const QList<qint64> tree = control.tree(game);
    EXPECT_TRUE(control.askToQuit(game));
    EXPECT_TRUE(waitUntil([&] { return !control.isAlive(game); })); // a zombie, until somebody asks how it ended
    EXPECT_FALSE(control.freeze(game));
    EXPECT_FALSE(control.thaw(game));
    EXPECT_FALSE(control.askToQuit(game));
    EXPECT_FALSE(control.kill(game));
    EXPECT_EQ(control.tree(game), QList<qint64>());
    EXPECT_TRUE(control.isAlive(tree[2]));
    EXPECT_TRUE(control.kill(tree[2]));
    EXPECT_TRUE(waitUntil([&] { return !control.isAlive(tree[2]); }));
}

TEST_P(AnyProcessControl, touchesNoGroupsAndNothingOfTheSystem)
{
    for (const qint64 pid : {qint64(-1), qint64(0), qint64(1), -game, qint64(getpid()), game + (qint64(1) << 32),
                             std::numeric_limits<qint64>::min()}) {
        EXPECT_FALSE(control.freeze(pid)) << pid;
        EXPECT_FALSE(control.askToQuit(pid)) << pid;
        EXPECT_FALSE(control.kill(pid)) << pid;
    }
    EXPECT_FALSE(control.freeze(getppid())); // Velko would stop with it
}

TEST(LinuxProcessControl, freezesAProgramThatKeepsStartingOthers)
{
    const auto control = makeProcessControl();
    QProcess busy;
    busy.start(u"/bin/sh"_s, {u"-c"_s, u"for i in 1 2 3; do (while :; do /bin/true; done) & done; wait"_s});
    busy.waitForStarted();
    ASSERT_TRUE(waitUntil([&] { return control->tree(busy.processId()).size() >= 4; }));
    for (int round = 0; round < 20; ++round) {
        ASSERT_TRUE(control->freeze(busy.processId()));
        const QList<qint64> tree = control->tree(busy.processId());
        for (const qint64 each : tree)
            EXPECT_TRUE(waitUntil([&] { return QByteArray("TDZ").contains(stateOf(each)); })) << stateOf(each);
        EXPECT_EQ(control->tree(busy.processId()), tree);
        ASSERT_TRUE(control->thaw(busy.processId()));
    }
    for (const qint64 each : control->tree(busy.processId()))
        control->kill(each);
    busy.waitForFinished();
}

TEST(LinuxProcessControl, thawsWhatLostItsParentMeanwhile)
{
    LinuxWorld world;
    const QList<qint64> tree = world.real->tree(world.game());
    ASSERT_TRUE(world.real->freeze(world.game()));
    ASSERT_TRUE(world.real->kill(tree[1]));
    ASSERT_TRUE(waitUntil([&] { return !world.real->isAlive(tree[1]); }));
    EXPECT_TRUE(world.real->thaw(world.game()));
    EXPECT_TRUE(waitUntil([&] { return stateOf(tree[2]) == 'S'; }));
    world.real->kill(tree[2]);
}

namespace {
/// Velko with a game of three processes that it has frozen.
struct FrozenGame {
    QTemporaryDir home;
    QProcess velko;
    std::unique_ptr<ProcessControl> control = makeProcessControl();
    QList<qint64> tree;
    qint64 guard = 0;

    FrozenGame()
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"FREEZE"_s, u"1"_s);
        velko.setProcessEnvironment(environment);
        velko.start(QString::fromUtf8(VELKO_BUILD_DIR) + u"/velko-test-starter"_s,
                    {QString(), home.path(), u"/bin/sh"_s, u"-c"_s, u"sleep 60 & sleep 60 & wait"_s});
        waitUntil([this] { return velko.canReadLine() || velko.state() == QProcess::NotRunning; });
        tree = control->tree(velko.readLine().toLongLong());
        for (const RunningProcess &each : control->running()) {
            if (each.parent == velko.processId() && each.program == u"velko-freeze-guard"_s) guard = each.pid;
        }
    }
    ~FrozenGame()
    {
        for (const qint64 each : tree)
            control->kill(each);
        velko.kill();
        velko.waitForFinished();
    }
    bool allAre(bool frozen) const
    {
        return !tree.isEmpty()
            && std::ranges::all_of(tree, [&](qint64 each) { return (stateOf(each) == 'T') == frozen; });
    }
};
}

TEST(FreezeGuard, continuesTheGameWhenVelkoIsKilledAndLeaves)
{
    FrozenGame game;
    ASSERT_GT(game.guard, 0);
    ASSERT_TRUE(game.allAre(true));
    ASSERT_TRUE(waitUntil([&] { return stateOf(game.guard) == 'S'; })); // it is not frozen itself
    game.control->askToQuit(game.guard); // as when the desktop ends everything: it stays as long as Velko
    game.velko.kill();
    EXPECT_TRUE(waitUntil([&] { return game.allAre(false); }, std::chrono::seconds(1)));
    EXPECT_TRUE(waitUntil([&] { return !game.control->isAlive(game.guard); }));
}

// A game that ended while it was frozen may have left its identifier to somebody else.
TEST(FreezeGuard, leavesAnotherProcessWithTheSameIdentifierAlone)
{
    LinuxWorld world;
    const QList<qint64> tree = world.real->tree(world.game());
    for (const qint64 each : tree)
        ::kill(pid_t(each), SIGSTOP);
    ASSERT_TRUE(world.becomes(true, tree[0]));
    pid_t guardProcess = 0;
    {
        FreezeGuard guard;
        guard.aboutToStop(tree[0], ProcessTable().stat(tree[0])->started);
        guard.aboutToStop(tree[1], ProcessTable().stat(tree[1])->started - 1);
        guard.aboutToStop(tree[2], ProcessTable().stat(tree[2])->started);
        guard.hasContinued(tree[2]);
        guardProcess = guard.process();
        ASSERT_GT(guardProcess, 1);
    }
    EXPECT_FALSE(world.real->isAlive(guardProcess));
    EXPECT_TRUE(world.becomes(false, tree[0]));
    EXPECT_EQ(stateOf(tree[1]), 'T');
    EXPECT_EQ(stateOf(tree[2]), 'T');
}

TEST(FreezeGuard, isReplacedWhenItWasKilled)
{
    LinuxWorld world;
    const QList<qint64> tree = world.real->tree(world.game());
    for (const qint64 each : tree)
        ::kill(pid_t(each), SIGSTOP);
    auto guard = std::make_unique<FreezeGuard>();
    guard->aboutToStop(tree[0], ProcessTable().stat(tree[0])->started);
    const pid_t first = guard->process();
    ASSERT_EQ(::kill(first, SIGKILL), 0);
    ASSERT_TRUE(waitUntil([&] { return !world.real->isAlive(first); }));
    guard->aboutToStop(tree[1], ProcessTable().stat(tree[1])->started);
    EXPECT_NE(guard->process(), first);
    guard.reset();
    EXPECT_TRUE(world.becomes(false, tree[0]));
    EXPECT_TRUE(world.becomes(false, tree[1]));
}

TEST(LinuxProcessControl, leavesNothingStoppedWhenItGoes)
{
    LinuxWorld world;
    const QList<qint64> tree = world.real->tree(world.game());
    auto second = makeProcessControl();
    ASSERT_TRUE(second->freeze(world.game()));
    ASSERT_TRUE(world.becomes(true, tree[2]));
    second.reset();
    for (const qint64 each : tree)
        EXPECT_TRUE(world.becomes(false, each));
}
