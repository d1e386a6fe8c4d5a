#include "platform/linux/FreezeGuard.h"
#include "platform/linux/LinuxServices.h"
#include "platform/linux/ProcessTable.h"

#include <QDeadlineTimer>
#include <QHash>
#include <QSet>
#include <csignal>
#include <limits>
#include <mutex>
#include <poll.h>

using namespace std::chrono_literals;

namespace {

class LinuxProcessControl final : public ProcessControl {
public:
    ~LinuxProcessControl() override;
    QList<RunningProcess> running() const override;
    QList<qint64> tree(qint64 pid) const override { return pid > 0 ? m_table.tree(pid) : QList<qint64>(); }
    bool isAlive(qint64 pid) const override { return pid > 0 && m_table.isAlive(pid); }
    qint64 bytesWritten(qint64 pid) const override;
    void prepareToFreeze() override;
    bool freeze(qint64 pid) override;
    bool thaw(qint64 pid) override;
    bool askToQuit(qint64 pid) override { return send(pid, SIGTERM); }
    bool kill(qint64 pid) override { return send(pid, SIGKILL); }

private:
    using Started = QHash<qint64, quint64>; // when each process was started

    bool send(qint64 pid, int signal) const;
    bool holdsVelko(qint64 pid) const;
    bool stopGuarded(qint64 pid, quint64 started);
    bool stopMore(qint64 pid, Started &stopped);

    ProcessTable m_table;
    std::mutex m_lock; // for the two below
    QHash<qint64, Started> m_frozen; // what was stopped, by the process that was asked for
    FreezeGuard m_guard;
};

}

/// A stopped sound or display server would take the whole desktop with it; some emulators start one of their own.
static bool isServer(const QByteArray &name)
{
    static const QSet<QByteArray> servers{"pulseaudio", "pipewire", "pipewire-pulse", "wireplumber", "jackd",
                                          "Xorg",       "Xwayland", "Xephyr",         "Xvfb",        "gamescope"};
    return servers.contains(name);
}

LinuxProcessControl::~LinuxProcessControl()
{
    for (const qint64 pid : m_frozen.keys())
        thaw(pid);
}

QList<RunningProcess> LinuxProcessControl::running() const
{
    QList<RunningProcess> all;
    const uid_t user = getuid();
    for (const qint64 pid : m_table.all()) {
        if (m_table.owner(pid) != user) continue;
        const auto present = m_table.stat(pid);
        if (!present || !present->isAlive()) continue;
        const QString program = m_table.program(pid);
        if (!program.isEmpty()) all += {pid, present->parent, program}; // without a program: a part of the kernel
    }
    return all;
}

qint64 LinuxProcessControl::bytesWritten(qint64 pid) const
{
    qint64 sum = 0;
    for (const qint64 each : tree(pid))
        sum += m_table.bytesWritten(each);
    return sum;
}

// Identifiers up to 1 mean groups of processes, everything of ours, or the first process.
bool LinuxProcessControl::send(qint64 pid, int signal) const
{
    if (pid <= 1 || pid > std::numeric_limits<pid_t>::max() || pid == getpid()) return false;
    return m_table.isAlive(pid) && ::kill(pid_t(pid), signal) == 0;
}

bool LinuxProcessControl::holdsVelko(qint64 pid) const
{
    qint64 ancestor = getpid();
    while (ancestor > 1 && ancestor != pid) {
        const auto present = m_table.stat(ancestor);
        ancestor = present ? present->parent : 0;
    }
    return ancestor == pid;
}

bool LinuxProcessControl::stopGuarded(qint64 pid, quint64 started)
{
    const std::scoped_lock lock(m_lock);
    m_guard.aboutToStop(pid, started);
    if (send(pid, SIGSTOP)) return true;
    m_guard.hasContinued(pid);
    return false;
}

/// Stops what is not stopped yet in a tree, since a stop reaches no children; parents first. True when there may be
/// more: something was new, or has not come to its stop yet and may still be about to start a child.
bool LinuxProcessControl::stopMore(qint64 pid, Started &stopped)
{
    bool more = false;
    for (const qint64 each : m_table.tree(pid)) {
        const auto present = m_table.stat(each);
        if (!present || isServer(present->name)) continue;
        if (!stopped.contains(each) && stopGuarded(each, present->started)) stopped.insert(each, present->started);
        more = more || !present->isHalted();
    }
    return more;
}

void LinuxProcessControl::prepareToFreeze()
{
    const std::scoped_lock lock(m_lock);
    m_guard.prepare();
}

bool LinuxProcessControl::freeze(qint64 pid)
{
    if (holdsVelko(pid) || !send(pid, 0)) return false;
    Started stopped;
    // A stop can't be refused, but it takes effect at the process's next turn, which on a busy machine is long in
    // coming: the processor is left to it. One that waits for a dead disk stops when that answers; until then it does
    // nothing either.
    const QDeadlineTimer deadline(500ms);
    while (stopMore(pid, stopped) && !deadline.hasExpired())
        poll(nullptr, 0, deadline.remainingTime() > 498 ? 0 : 1);
    const std::scoped_lock lock(m_lock);
    m_frozen[pid].insert(stopped);
    return true;
}

// What was stopped is continued even where it left the tree, because its parent was ended meanwhile.
bool LinuxProcessControl::thaw(qint64 pid)
{
    Started stopped;
    {
        const std::scoped_lock lock(m_lock);
        stopped = m_frozen.take(pid);
    }
    QList<qint64> tree = this->tree(pid);
    for (auto each = stopped.begin(); each != stopped.end(); ++each) {
        const auto present = m_table.stat(each.key());
        if (present && present->started == each.value() && !tree.contains(each.key())) tree += each.key();
    }
    bool reached = false;
    for (auto each = tree.rbegin(); each != tree.rend(); ++each) {
        const bool sent = send(*each, SIGCONT);
        if (*each == pid) reached = sent;
    }
    const std::scoped_lock lock(m_lock);
    for (auto each = stopped.begin(); each != stopped.end(); ++each)
        m_guard.hasContinued(each.key());
    return reached;
}

std::unique_ptr<ProcessControl> makeProcessControl()
{
    return std::make_unique<LinuxProcessControl>();
}
