#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <optional>
#include <sys/types.h>

/// What the kernel tells about a process in one line.
struct ProcessStat {
    QByteArray name; ///< at most 15 bytes, and the program may choose it
    char state = 0; ///< 'R' running, 'S' sleeping, 'T' stopped, 'Z' zombie …
    qint64 parent = 0;
    int threads = 0;
    quint64 started = 0; ///< ticks since the machine started: tells apart two processes with the same identifier
    bool operator==(const ProcessStat &) const = default;

    /// A zombie has ended, unless it is only the first thread that ended before the others.
    bool isAlive() const { return (state != 'Z' && state != 'X') || (state == 'Z' && threads > 1); }
    /// Stopped, or waiting in the kernel, where a stop waits with it: for a disk, or for a stopped child of its own.
    bool isHalted() const { return state == 'T' || state == 't' || state == 'D'; }
};

/// The content of /proc/PID/stat; nothing when it has not the shape of one.
std::optional<ProcessStat> parseProcessStat(const QByteArray &line);

/// The processes below a folder of the shape of /proc. Everything may be gone or new at the next look; what is gone
/// reads as empty. Safe from any thread.
class ProcessTable {
public:
    explicit ProcessTable(QByteArray folder = "/proc") : m_folder(std::move(folder)) { }

    QList<qint64> all() const;
    std::optional<ProcessStat> stat(qint64 pid) const;
    bool isAlive(qint64 pid) const;
    /// The living process and its living descendants, parents before children; empty when it has ended.
    QList<qint64> tree(qint64 pid) const;
    QString program(qint64 pid) const; ///< file name of its program, else argv[0] without folder
    std::optional<uid_t> owner(qint64 pid) const;
    qint64 bytesWritten(qint64 pid) const; ///< that went to a disk; 0 when another user's

private:
    QByteArray entry(qint64 pid, const char *name) const;
    std::optional<QList<qint64>> listedChildren(qint64 pid) const;
    std::optional<QList<qint64>> treeByChildren(qint64 pid) const;
    QList<qint64> treeByParents(qint64 pid) const;

    QByteArray m_folder;
};
