// velko-session-log: keeps the end of what a program prints. Reads standard input until its end and keeps the last
// 256 KiB at least and 512 KiB at most in the file that is its standard output. A process of its own, so that a game
// never finds its pipe broken or full, whatever becomes of Velko.

#include <cerrno>
#include <csignal>
#include <cstring>
#include <initializer_list>
#include <unistd.h>

static constexpr size_t most = 512 * 1024;
static constexpr size_t least = 256 * 1024;

static char content[most]; // what the file holds
static size_t used = 0;
static char chunk[64 * 1024];

/// Gives up quietly on a full disk: the game matters more than its log.
static void writeAt(size_t offset, size_t length)
{
    while (length > 0) {
        const ssize_t written = pwrite(STDOUT_FILENO, content + offset, length, off_t(offset));
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return;
        offset += size_t(written);
        length -= size_t(written);
    }
}

static void append(size_t length)
{
    size_t from = used;
    if (used + length > most) {
        const size_t kept = least - length;
        memmove(content, content + used - kept, kept);
        used = kept;
        from = 0;
    }
    memcpy(content + used, chunk, length);
    used += length;
    writeAt(from, used - from);
    if (from == 0 && ftruncate(STDOUT_FILENO, off_t(used)) != 0) return;
}

int main()
{
    for (const int each : {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGPIPE})
        signal(each, SIG_IGN);
    while (true) {
        const ssize_t length = read(STDIN_FILENO, chunk, sizeof chunk);
        if (length < 0 && errno == EINTR) continue;
        if (length <= 0) return 0;
        append(size_t(length));
    }
}
