#include "platform/linux/FreezeGuard.h"
#include "platform/linux/ChildProcess.h"

#include <QFile>
#include <poll.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/wait.h>

using namespace Qt::StringLiterals;

static constexpr int patience = 200; // milliseconds, for the guard to leave

FreezeGuard::~FreezeGuard()
{
    m_channel = Descriptor();
    reap();
}

void FreezeGuard::prepare()
{
    if (!m_channel) start();
}

void FreezeGuard::aboutToStop(qint64 pid, quint64 started)
{
    const FrozenProcess process{pid, started, 1};
    m_frozen[pid] = process;
    tell(process);
}

void FreezeGuard::hasContinued(qint64 pid)
{
    if (m_frozen.remove(pid)) tell({pid, 0, 0});
}

void FreezeGuard::tell(const FrozenProcess &process)
{
    if (m_channel && send(process)) return;
    if (m_frozen.isEmpty() || !start()) return;
    for (const FrozenProcess &each : m_frozen)
        send(each);
}

// Never waits: a guard that somebody has stopped must not stop us.
bool FreezeGuard::send(const FrozenProcess &process) const
{
    ssize_t sent = -1;
    do {
        sent = ::send(m_channel.number(), &process, sizeof process, MSG_NOSIGNAL | MSG_DONTWAIT);
    } while (sent < 0 && errno == EINTR);
    return sent >= 0 || errno == EAGAIN;
}

bool FreezeGuard::start()
{
    m_channel = Descriptor();
    reap();
    const QString program = companionProgram(u"velko-freeze-guard"_s);
    int ends[2] = {-1, -1};
    if (program.isEmpty() || socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends) != 0) return false;
    Descriptor ours(ends[0]);
    const Descriptor its = aboveStreams(ends[1]);
    const ChildProcess guard{.program = QFile::encodeName(program),
                             .arguments = {"velko-freeze-guard"},
                             .folder = "/",
                             .input = its.number()};
    if (!its || spawn(guard, m_process) != 0) return false;
    m_channel = std::move(ours);
    return true;
}

/// It leaves when it sees the end of its channel. One that does not is left to the system.
void FreezeGuard::reap()
{
    const pid_t process = std::exchange(m_process, 0);
    if (process == 0) return;
    const Descriptor descriptor(int(syscall(SYS_pidfd_open, process, 0)));
    pollfd ended{descriptor.number(), POLLIN, 0};
    while (descriptor && poll(&ended, 1, patience) < 0 && errno == EINTR) { }
    while (waitpid(process, nullptr, WNOHANG) < 0 && errno == EINTR) { }
}
