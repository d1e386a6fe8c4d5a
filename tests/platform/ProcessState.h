#pragma once

#include "platform/linux/ProcessTable.h"

/// The state letter of a real process; 0 when there is none.
inline char stateOf(qint64 pid)
{
    const auto stat = ProcessTable().stat(pid);
    return stat ? stat->state : char(0);
}
