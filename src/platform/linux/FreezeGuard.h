#pragma once

#include "platform/linux/Descriptor.h"
#include "platform/linux/freezeguard/FrozenProcess.h"

#include <QHash>
#include <sys/types.h>

/// Our side of `velko-freeze-guard`, which runs from the first process that is stopped, or earlier, to our end. One
/// that was ended is started again; without the program nothing is guarded. Not to be used from two threads at once.
class FreezeGuard {
public:
    FreezeGuard() = default;
    ~FreezeGuard();
    FreezeGuard(const FreezeGuard &) = delete;

    void prepare(); ///< starts it ahead of the first process that is stopped
    void aboutToStop(qint64 pid, quint64 started); ///< before it is stopped, so that no moment is unguarded
    void hasContinued(qint64 pid);
    pid_t process() const { return m_process; } ///< 0: not started

private:
    void tell(const FrozenProcess &process);
    bool send(const FrozenProcess &process) const;
    bool start();
    void reap();

    QHash<qint64, FrozenProcess> m_frozen; ///< to tell a new guard
    Descriptor m_channel;
    pid_t m_process = 0;
};
