#include "Processes.h"

#include "Waiting.h"

#include <QDir>
#include <QFile>
#include <csignal>
#include <sys/prctl.h>
#include <sys/wait.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

void adoptOrphans()
{
    prctl(PR_SET_CHILD_SUBREAPER, 1);
}

static QByteArray content(const QString &path)
{
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

/// As the kernel names it; "Z" when there is no such program.
static char stateOf(qint64 pid)
{
    const QByteArray stat = content(u"/proc/%1/stat"_s.arg(pid));
    return stat.mid(stat.lastIndexOf(')') + 2, 1).append('Z').front();
}

bool isRunning(qint64 pid)
{
    return stateOf(pid) != 'Z' && stateOf(pid) != 'X';
}

bool isStopped(qint64 pid)
{
    return stateOf(pid) == 'T';
}

QString commandLine(qint64 pid)
{
    return QString::fromUtf8(content(u"/proc/%1/cmdline"_s.arg(pid)).replace('\0', ' ')).trimmed();
}

static QList<qint64> children(qint64 pid)
{
    QList<qint64> found;
    const QDir tasks(u"/proc/%1/task"_s.arg(pid));
    for (const QString &task : tasks.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        for (const QByteArray &child : content(tasks.filePath(task) + u"/children"_s).simplified().split(' '))
            if (const qint64 id = child.toLongLong(); id > 0 && isRunning(id)) found += id;
    }
    return found;
}

QList<qint64> descendants(qint64 pid)
{
    QList<qint64> all = children(pid);
    for (qsizetype i = 0; i < all.size(); ++i)
        all += children(all[i]);
    return all;
}

void killTree(qint64 pid)
{
    if (pid <= 0) return; // 0 would mean this program and all that was started with it
    const QList<qint64> all = QList<qint64>{pid} + descendants(pid);
    for (const qint64 one : all)
        kill(pid_t(one), SIGKILL);
    waitFor(10s, [&] { return std::ranges::none_of(all, isRunning); });
    for (const qint64 one : all)
        waitpid(pid_t(one), nullptr, WNOHANG);
}
