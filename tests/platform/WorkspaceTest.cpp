#include "platform/Workspace.h"
#include "fakes/TemporaryHome.h"
#include "platform/ProcessState.h"
#include "platform/WaitUntil.h"
#include "platform/linux/LinuxServices.h"
#include "platform/linux/StartFailure.h"

#include <QProcess>
#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

using namespace Qt::StringLiterals;

/// The real workspace on a home of its own, with what became of the programs that it started.
class LinuxWorkspace : public testing::Test {
protected:
    TemporaryHome home;
    std::unique_ptr<Workspace> workspace = makeWorkspace(home.places());
    QMap<qint64, QList<ProgramEnd>> ends;
    const QString log = home.path() + u"/logs/game.log"_s;

    LinuxWorkspace()
    {
        while (waitpid(-1, nullptr, 0) > 0) { } // log writers of the test before
        QObject::connect(workspace.get(), &Workspace::ended, workspace.get(),
                         [this](qint64 pid, ProgramEnd end) { ends[pid] += end; });
    }
    StartRequest request(const QStringList &command) const
    {
        return {.command = command, .environment = {}, .workingFolder = home.path(), .logFile = {}};
    }
    StartRequest shell(const QString &script) const { return request({u"/bin/sh"_s, u"-c"_s, script}); }

    /// Starts it and waits for its end; -1 when either fails.
    ProgramEnd run(const StartRequest &request)
    {
        const auto pid = workspace->start(request);
        if (!pid || !waitUntil([&] { return ends.contains(pid.value()); })) return {-1, -1};
        return ends[pid.value()].first();
    }
    QString refusal(const QStringList &command)
    {
        const auto pid = workspace->start(request(command));
        return pid ? u"started"_s : english(pid.failure());
    }
    QString executable(const QString &name, const QByteArray &content) const
    {
        const QString path = home.write(name, content);
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return path;
    }
    QByteArray logged() const { return home.read(u"logs/game.log"_s); }
};

TEST_F(LinuxWorkspace, tellsHowAProgramEnded)
{
    EXPECT_EQ(run(shell(u"exit 0"_s)), ProgramEnd());
    EXPECT_EQ(run(shell(u"exit 255"_s)), (ProgramEnd{.exitStatus = 255}));
    EXPECT_EQ(run(shell(u"kill -SEGV $$"_s)), (ProgramEnd{.signal = SIGSEGV}));
}

TEST_F(LinuxWorkspace, announcesEachEndOnce)
{
    QList<qint64> pids;
    for (int i = 0; i < 20; ++i)
        pids += workspace->start(shell(u"exit 3"_s)).value();
    EXPECT_TRUE(waitUntil([&] { return ends.size() == 20; }));
    for (const qint64 pid : pids)
        EXPECT_EQ(ends[pid], QList<ProgramEnd>{{.exitStatus = 3}});
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1); // nothing is left to be reaped
}

TEST_F(LinuxWorkspace, handsOverArgumentsAndEnvironmentUnchanged)
{
    const QString script =
        executable(u"bin/tell"_s, "#!/bin/sh\nprintf '<%s>' \"$@\" \"$GREETING\" \"$KEPT\" \"$PWD\"\n");
    qputenv("KEPT", "k\xff");
    qputenv("GREETING", "old");
    StartRequest start = request({u"tell"_s, u""_s, u"a b"_s, u"$(id)"_s, u"-n"_s, u"'\"\\\n"_s, u"Pokémon*"_s});
    start.environment = {{u"GREETING"_s, u"héllo=x"_s}};
    start.logFile = log;
    EXPECT_EQ(run(start), ProgramEnd());
    const QByteArray expected = "<><a b><$(id)><-n><'\"\\\n><Pokémon*><héllo=x><k\xff><" + home.path().toUtf8() + ">";
    EXPECT_TRUE(waitUntil([&] { return logged() == expected; })) << logged().constData();
}

TEST_F(LinuxWorkspace, givesTheProgramACleanStart)
{
    // Our own open files, ignored and blocked signals must not reach a game.
    const int open = ::open("/dev/null", O_RDONLY);
    signal(SIGUSR1, SIG_IGN);
    sigset_t blocked, before;
    sigemptyset(&blocked);
    sigaddset(&blocked, SIGUSR2);
    pthread_sigmask(SIG_BLOCK, &blocked, &before);
    StartRequest start =
        shell(u"ls -l /proc/self/fd | grep -v ' -> /proc/' | wc -l; cat; cut -d' ' -f5-6 /proc/$$/stat;"
              "echo $$; exec grep -E 'Sig(Blk|Ign)' /proc/self/status"_s);
    start.logFile = log;
    EXPECT_EQ(run(start), ProgramEnd());
    signal(SIGUSR1, SIG_DFL);
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    ::close(open);
    ASSERT_TRUE(waitUntil([&] { return logged().count('\n') == 5; })) << logged().constData();
    const QByteArrayList lines = logged().split('\n');
    EXPECT_EQ(lines[0], "4"); // three streams, and a heading
    EXPECT_EQ(lines[1], lines[2] + ' ' + lines[2]); // its process group and session are its own
    EXPECT_TRUE(lines[3].endsWith("0000000000000000"));
    EXPECT_EQ(lines[4].sliced(lines[4].size() - 16).toULongLong(nullptr, 16) & 0x7fffffff, 0u) << lines[4].constData();
}

TEST_F(LinuxWorkspace, saysWhyAProgramCannotStart)
{
    const QString plain = home.write(u"Plain.AppImage"_s);
    EXPECT_EQ(
        refusal({plain}),
        u"“Plain.AppImage” can't be started: it isn't marked as executable. Allow it in the file's properties, then play again."_s);
    EXPECT_TRUE(refusal({u"/not/there"_s}).contains(u"wasn't found"_s));
    EXPECT_TRUE(refusal({u"absent"_s}).contains(u"wasn't found"_s));
    EXPECT_TRUE(refusal({}).contains(u"wasn't found"_s));
    EXPECT_TRUE(refusal({home.path()}).contains(u"it is a folder"_s));
    EXPECT_TRUE(refusal({executable(u"noise"_s, "\x01\x02")}).contains(u"isn't a program for this computer"_s));
    EXPECT_TRUE(refusal({executable(u"script"_s, "#!/no/such/interpreter\n")}).contains(u"it needs is missing"_s));
    EXPECT_TRUE(refusal({u"/bin/true"_s, u"a"_s + QChar() + u"b"_s}).contains(u"Rename the file"_s));
    EXPECT_TRUE(refusal({u"/bin/true"_s, QString(5'000'000, u'x')}).contains(u"too much"_s));
    const QString busy = executable(u"busy"_s, "#!/bin/sh\n");
    QFile writing(busy);
    ASSERT_TRUE(writing.open(QFile::Append));
    EXPECT_TRUE(refusal({busy}).contains(u"still being written"_s));
    StartRequest lost = shell(u"true"_s);
    lost.workingFolder = u"/not/there"_s;
    EXPECT_TRUE(english(workspace->start(lost).failure()).contains(u"the folder “/not/there” is missing"_s));
    EXPECT_TRUE(ends.isEmpty());
}

TEST_F(LinuxWorkspace, saysSoWhenDescriptorsRunOut)
{
    rlimit before{};
    getrlimit(RLIMIT_NOFILE, &before);
    const int next = dup(0);
    ::close(next);
    rlimit tight{rlim_t(next), before.rlim_max};
    setrlimit(RLIMIT_NOFILE, &tight);
    StartRequest start = shell(u"exit 0"_s);
    start.logFile = log;
    const auto pid = workspace->start(start);
    setrlimit(RLIMIT_NOFILE, &before);
    ASSERT_FALSE(pid);
    EXPECT_TRUE(english(pid.failure()).contains(u"Close some programs"_s));
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
}

TEST(StartFailure, namesAnErrorThatItDoesNotKnow)
{
    EXPECT_EQ(english(startFailure(EIO, u"/x/emu"_s)),
              u"“emu” can't be started: Input/output error. Install it anew, then play again."_s);
}

struct PrintRow {
    const char *name;
    QString script;
    QByteArray ending;
};
class SessionLog : public LinuxWorkspace, public testing::WithParamInterface<PrintRow> { };
TEST_P(SessionLog, keepsTheEndWithinItsBounds)
{
    home.write(u"logs/game.log"_s, "an earlier session");
    StartRequest start = shell(GetParam().script);
    start.logFile = log;
    ASSERT_TRUE(workspace->start(start));
    qint64 largest = 0;
    EXPECT_TRUE(waitUntil([&] {
        largest = qMax(largest, QFileInfo(log).size());
        return !ends.isEmpty() && logged().endsWith(GetParam().ending);
    }));
    EXPECT_LE(largest, 512 * 1024);
    EXPECT_GE(logged().size(), 256 * 1024);
    EXPECT_FALSE(logged().contains("earlier"));
}
INSTANTIATE_TEST_SUITE_P(
    Edges, SessionLog,
    testing::Values(PrintRow{"fiftyMegabytesOfLines", u"seq 1 6500000"_s, "\n6499999\n6500000\n"},
                    PrintRow{"noLineEnds", u"head -c 5000000 /dev/zero | tr '\\0' x; printf end"_s, "xxxend"},
                    PrintRow{"errorsToo", u"seq 1 100000 >&2; echo last"_s, "\n99999\n100000\nlast\n"}),
    [](const auto &row) { return row.param.name; });

TEST_F(LinuxWorkspace, keepsEveryByteThatTheLogStillHolds)
{
    StartRequest start = shell(u"seq 1 300000"_s);
    start.logFile = log;
    ASSERT_TRUE(workspace->start(start));
    ASSERT_TRUE(waitUntil([&] { return logged().endsWith("\n300000\n"); }));
    QByteArrayList lines = logged().chopped(1).split('\n');
    for (qsizetype i = 1; i < lines.size(); ++i)
        ASSERT_EQ(lines[i].toInt(), 300000 - int(lines.size() - 1 - i));
}

TEST_F(LinuxWorkspace, startsWithoutALogThatCannotBeWritten)
{
    StartRequest start = shell(u"echo x; exit 7"_s);
    start.logFile = u"/proc/no/such.log"_s;
    EXPECT_EQ(run(start), (ProgramEnd{.exitStatus = 7}));
}

TEST_F(LinuxWorkspace, goesOnWhenVelkoIsKilledEvenWhileFrozen)
{
    QProcess velko;
    velko.setChildProcessModifier([] { setsid(); }); // so that no relative of ours keeps the game's group company
    velko.start(QString::fromUtf8(VELKO_BUILD_DIR) + u"/velko-test-starter"_s,
                {log, home.path(), u"/bin/sh"_s, u"-c"_s,
                 u"until [ -e go ]; do sleep 0.01; done; echo printed; echo x > result"_s});
    ASSERT_TRUE(waitUntil([&] { return velko.canReadLine() || velko.state() == QProcess::NotRunning; }));
    const pid_t game = velko.readLine().toInt();
    ASSERT_GT(game, 1);
    ASSERT_EQ(::kill(game, SIGSTOP), 0);
    ASSERT_TRUE(waitUntil([&] { return stateOf(game) == 'T'; }));
    velko.kill();
    velko.waitForFinished();
    home.write(u"go"_s);
    ASSERT_EQ(::kill(game, SIGCONT), 0) << "the game was ended together with Velko";
    EXPECT_TRUE(waitUntil([&] { return home.read(u"result"_s) == "x\n" && logged() == "printed\n"; }));
}

TEST_F(LinuxWorkspace, opensAddressesAndFoldersOnly)
{
    executable(u"bin/xdg-open"_s, "#!/bin/sh\nprintf '%s' \"$*\" > \"$HOME/opened\"\n");
    const QByteArray before = qgetenv("HOME");
    qputenv("HOME", home.path().toUtf8());
    EXPECT_FALSE(workspace->openAddress(QUrl(u"javascript:alert(1)"_s)));
    EXPECT_FALSE(workspace->openAddress(QUrl::fromLocalFile(home.path() + u"/bin/xdg-open"_s)));
    EXPECT_FALSE(workspace->openAddress(QUrl()));
    EXPECT_TRUE(workspace->openAddress(QUrl(u"https://example.org/a b?c=$(id)"_s)));
    qputenv("HOME", before);
    EXPECT_TRUE(waitUntil([&] { return home.read(u"opened"_s) == "https://example.org/a%20b?c=$(id)"; }));
    EXPECT_TRUE(waitUntil([&] { return waitpid(-1, nullptr, WNOHANG) == -1; }));
    EXPECT_TRUE(ends.isEmpty());
}

TEST_F(LinuxWorkspace, hasNoOpenerWithoutXdgOpen)
{
    EXPECT_FALSE(workspace->openAddress(QUrl(u"https://example.org"_s)));
}
