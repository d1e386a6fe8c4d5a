#include "platform/linux/ProcessTable.h"
#include "platform/linux/Descriptor.h"

#include <QFile>
#include <QMultiHash>
#include <algorithm>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

/// Plain system calls: a look at a thousand processes opens a thousand files.
static std::optional<QByteArray> contentOf(const QByteArray &path)
{
    const Descriptor file(open(path.constData(), O_RDONLY | O_CLOEXEC));
    if (!file) return {};
    QByteArray content;
    char part[4096];
    while (true) {
        const ssize_t length = read(file.number(), part, sizeof part);
        if (length < 0 && errno == EINTR) continue;
        if (length <= 0) return content;
        content.append(part, length);
    }
}

/// The entries of a folder that are numbers; nothing when there is no such folder.
static std::optional<QList<qint64>> numbersIn(const QByteArray &path)
{
    const std::unique_ptr<DIR, int (*)(DIR *)> folder(opendir(path.constData()), closedir);
    if (!folder) return {};
    QList<qint64> numbers;
    while (const dirent *each = readdir(folder.get())) {
        bool isNumber = false;
        const qint64 number = QByteArrayView(each->d_name).toLongLong(&isNumber);
        if (isNumber) numbers += number;
    }
    std::sort(numbers.begin(), numbers.end());
    return numbers;
}

// The name stands in parentheses and may itself hold parentheses, blanks and line ends: the last one closes it.
std::optional<ProcessStat> parseProcessStat(const QByteArray &line)
{
    const qsizetype begin = line.indexOf('('), end = line.lastIndexOf(')');
    if (begin < 0 || end < begin) return {};
    const QByteArrayList fields = line.sliced(end + 1).simplified().split(' ');
    if (fields.size() < 20 || fields[0].size() != 1) return {};
    return ProcessStat{.name = line.sliced(begin + 1, end - begin - 1),
                       .state = fields[0][0],
                       .parent = fields[1].toLongLong(),
                       .threads = fields[17].toInt(),
                       .started = fields[19].toULongLong()};
}

QByteArray ProcessTable::entry(qint64 pid, const char *name) const
{
    return m_folder + '/' + QByteArray::number(pid) + '/' + name;
}

QList<qint64> ProcessTable::all() const
{
    return numbersIn(m_folder).value_or(QList<qint64>());
}

std::optional<ProcessStat> ProcessTable::stat(qint64 pid) const
{
    const auto line = contentOf(entry(pid, "stat"));
    return line ? parseProcessStat(*line) : std::nullopt;
}

bool ProcessTable::isAlive(qint64 pid) const
{
    const auto present = stat(pid);
    return present && present->isAlive();
}

QList<qint64> ProcessTable::tree(qint64 pid) const
{
    if (!isAlive(pid)) return {};
    const auto listed = treeByChildren(pid);
    return listed ? *listed : treeByParents(pid);
}

/// Nothing when the kernel keeps no lists of children (it is built without CONFIG_PROC_CHILDREN).
std::optional<QList<qint64>> ProcessTable::listedChildren(qint64 pid) const
{
    QList<qint64> children;
    const QByteArray tasks = entry(pid, "task");
    for (const qint64 task : numbersIn(tasks).value_or(QList<qint64>())) {
        const auto list = contentOf(tasks + '/' + QByteArray::number(task) + "/children");
        if (!list) return {};
        for (const QByteArray &child : list->simplified().split(' ')) {
            if (!child.isEmpty()) children += child.toLongLong();
        }
    }
    return children;
}

std::optional<QList<qint64>> ProcessTable::treeByChildren(qint64 pid) const
{
    QList<qint64> all{pid};
    for (qsizetype i = 0; i < all.size(); ++i) {
        const auto children = listedChildren(all[i]);
        if (!children) return {};
        for (const qint64 child : *children) {
            if (!all.contains(child) && isAlive(child)) all += child;
        }
    }
    return all;
}

QList<qint64> ProcessTable::treeByParents(qint64 pid) const
{
    QMultiHash<qint64, qint64> children;
    for (const qint64 each : this->all()) {
        const auto present = stat(each);
        if (present && present->isAlive()) children.insert(present->parent, each);
    }
    QList<qint64> all{pid};
    for (qsizetype i = 0; i < all.size(); ++i) {
        QList<qint64> next = children.values(all[i]);
        std::sort(next.begin(), next.end());
        for (const qint64 child : next) {
            if (!all.contains(child)) all += child;
        }
    }
    return all;
}

QString ProcessTable::program(qint64 pid) const
{
    char target[4096];
    const ssize_t length = readlink(entry(pid, "exe").constData(), target, sizeof target);
    QByteArray path = length > 0 ? QByteArray(target, length) : contentOf(entry(pid, "cmdline")).value_or(QByteArray());
    if (path.contains('\0')) path.truncate(path.indexOf('\0'));
    if (path.endsWith(" (deleted)")) path.chop(10); // replaced by an update while it runs
    return QFile::decodeName(path.sliced(path.lastIndexOf('/') + 1));
}

std::optional<uid_t> ProcessTable::owner(qint64 pid) const
{
    struct stat folder { };
    if (::stat(entry(pid, "").constData(), &folder) != 0) return {};
    return folder.st_uid;
}

qint64 ProcessTable::bytesWritten(qint64 pid) const
{
    const QByteArray content = contentOf(entry(pid, "io")).value_or(QByteArray());
    for (const QByteArray &line : content.split('\n')) {
        if (line.startsWith("write_bytes: ")) return line.sliced(13).trimmed().toLongLong();
    }
    return 0;
}
