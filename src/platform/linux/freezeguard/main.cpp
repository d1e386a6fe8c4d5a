// velko-freeze-guard: continues what Velko has stopped once Velko is gone, in whatever way. Its standard input is a
// socket to Velko, whose end is the end of Velko. A process of its own, since nothing of a killed program runs on.

#include "platform/linux/freezeguard/FrozenProcess.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>
#include <vector>

/// 0 when there is no such process.
static uint64_t startOf(int64_t pid)
{
    char path[64], line[1024];
    snprintf(path, sizeof path, "/proc/%lld/stat", static_cast<long long>(pid));
    const int file = open(path, O_RDONLY | O_CLOEXEC);
    if (file < 0) return 0;
    const ssize_t length = read(file, line, sizeof line - 1);
    close(file);
    if (length <= 0) return 0;
    line[length] = 0;
    const char *field = strrchr(line, ')'); // of the name, which may hold blanks and parentheses: field 2
    for (int number = 2; field && number < 22; ++number)
        field = strchr(field + 1, ' ');
    return field ? strtoull(field, nullptr, 10) : 0;
}

static void note(std::vector<FrozenProcess> &frozen, const FrozenProcess &told)
{
    std::erase_if(frozen, [&](const FrozenProcess &each) { return each.pid == told.pid; });
    if (told.frozen && told.pid > 1) frozen.push_back(told);
}

int main()
{
    for (const int each : {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGPIPE})
        signal(each, SIG_IGN);
    std::vector<FrozenProcess> frozen;
    while (true) {
        FrozenProcess told;
        const ssize_t length = recv(STDIN_FILENO, &told, sizeof told, 0);
        if (length < 0 && errno == EINTR) continue;
        if (length <= 0) break;
        if (length == sizeof told) note(frozen, told);
    }
    // Children first: a parent that goes on might look after a child that still stands.
    for (auto each = frozen.rbegin(); each != frozen.rend(); ++each) {
        if (startOf(each->pid) == each->started) kill(pid_t(each->pid), SIGCONT);
    }
    return 0;
}
