#pragma once

#include <cstdint>

/// What Velko tells `velko-freeze-guard`, one message each: it is about to stop a process, or has continued it.
struct FrozenProcess {
    int64_t pid = 0;
    uint64_t started = 0; ///< field 22 of its stat: another process with the same identifier is left alone
    int64_t frozen = 0; ///< 0: it runs again
};
