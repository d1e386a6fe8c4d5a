#include "platform/ProcessControl.h"
#include "fakes/FakeProcessControl.h"
#include "platform/ProcessState.h"
#include "platform/WaitUntil.h"
#include "platform/linux/LinuxServices.h"

#include <QProcess>
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
        waitUntil([this] { return real->tree(game()).size() == 3; });
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
