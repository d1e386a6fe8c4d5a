#include "platform/linux/ProcessTable.h"
#include "fakes/TemporaryHome.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

static QByteArray statLine(qint64 pid, const QByteArray &name, char state, qint64 parent, int threads = 1)
{
    return QByteArray::number(pid) + " (" + name + ") " + state + ' ' + QByteArray::number(parent)
        + " 1 1 0 -1 4194560 98 0 0 0 0 0 0 0 20 0 " + QByteArray::number(threads) + " 0 777 2703360 268\n";
}

struct StatRow {
    const char *name;
    QByteArray line;
    std::optional<ProcessStat> stat;
};
class ParseProcessStat : public testing::TestWithParam<StatRow> { };
TEST_P(ParseProcessStat, findsTheEndOfTheName)
{
    EXPECT_EQ(parseProcessStat(GetParam().line), GetParam().stat);
}
INSTANTIATE_TEST_SUITE_P(
    Edges, ParseProcessStat,
    testing::Values(StatRow{"plain", statLine(7, "emu", 'S', 3, 4), ProcessStat{"emu", 'S', 3, 4, 777}},
                    StatRow{"hostileName", statLine(7, ") Z 1 (\n) R", 'T', 3),
                            ProcessStat{") Z 1 (\n) R", 'T', 3, 1, 777}},
                    StatRow{"emptyName", statLine(7, "", 'R', 0), ProcessStat{"", 'R', 0, 1, 777}},
                    StatRow{"empty", "", {}}, StatRow{"cut", statLine(7, "emu", 'S', 3).first(20), {}},
                    StatRow{"noName", "7 S 3 1 1 0 -1 4194560 98 0 0 0 0 0 0 0 20 0 1 0 777 1 2 3 4", {}},
                    StatRow{"noise", ")(\xff\x00 1 2 3", {}}),
    [](const auto &row) { return row.param.name; });

TEST(ProcessStat, knowsALivingProcessWhoseFirstThreadEnded)
{
    EXPECT_TRUE((ProcessStat{.state = 'Z', .threads = 3}).isAlive());
    EXPECT_FALSE((ProcessStat{.state = 'Z', .threads = 1}).isAlive());
    EXPECT_FALSE((ProcessStat{.state = 'X', .threads = 0}).isAlive());
    EXPECT_TRUE((ProcessStat{.state = 'T', .threads = 1}).isAlive());
}

/// A made-up folder of processes: 10 ← 20 and 30 (by a second thread), 20 ← 40, and 50, a zombie, below 30.
class MadeUpProcesses : public testing::TestWithParam<bool> {
protected:
    TemporaryHome home;
    const bool withLists = GetParam();

    void add(qint64 pid, qint64 parent, char state, const QByteArray &children, const QByteArray &others = {}) const
    {
        const QString folder = QString::number(pid) + u'/';
        home.write(folder + u"stat"_s, statLine(pid, "x y", state, parent));
        home.write(folder + u"task/%1/comm"_s.arg(pid), "x");
        if (!withLists) return;
        home.write(folder + u"task/%1/children"_s.arg(pid), children);
        home.write(folder + u"task/9%1/children"_s.arg(pid), others);
    }
};
INSTANTIATE_TEST_SUITE_P(Kernels, MadeUpProcesses, testing::Bool(),
                         [](const auto &row) { return row.param ? "withLists" : "withoutLists"; });

TEST_P(MadeUpProcesses, formATreeOfTheLiving)
{
    add(10, 1, 'S', "20 ", "30 ");
    add(20, 10, 'T', "40 ");
    add(30, 10, 'S', "50 ");
    add(40, 20, 'R', "");
    add(50, 30, 'Z', "");
    add(60, 1, 'S', "");
    const ProcessTable table(home.path().toUtf8());
    EXPECT_EQ(table.tree(10), (QList<qint64>{10, 20, 30, 40}));
    EXPECT_EQ(table.tree(50), QList<qint64>());
    EXPECT_EQ(table.tree(70), QList<qint64>());
}

TEST_P(MadeUpProcesses, mayBeManyAndSeemToDescendFromThemselves)
{
    QByteArray children;
    for (int pid = 1000; pid < 1060; ++pid) {
        home.write(QString::number(pid) + u"/stat"_s, statLine(pid, "x", 'S', 10));
        children += QByteArray::number(pid) + ' ';
    }
    add(10, 1000, 'S', children + "10 999999 ");
    EXPECT_EQ(ProcessTable(home.path().toUtf8()).tree(10).size(), 61);
}

TEST(ProcessTable, namesTheProgramByItsFile)
{
    const TemporaryHome home;
    home.write(u"1/cmdline"_s, QByteArray("/opt/My Emu\0-f\0", 15));
    home.write(u"2/cmdline"_s, "");
    QDir(home.path()).mkpath(u"3"_s);
    QFile::link(u"/usr/bin/emu (deleted)"_s, home.path() + u"/3/exe"_s);
    const ProcessTable table(home.path().toUtf8());
    EXPECT_EQ(table.program(1), u"My Emu"_s);
    EXPECT_EQ(table.program(2), QString());
    EXPECT_EQ(table.program(3), u"emu"_s);
    EXPECT_EQ(table.owner(3), getuid());
    EXPECT_EQ(table.owner(4), std::nullopt);
}
