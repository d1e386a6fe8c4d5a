#include "Usage.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

static QByteArray content(const QString &path)
{
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

/// Of a file with lines like "Pss:  120 kB".
static qint64 number(const QByteArray &text, const QByteArray &key)
{
    for (const QByteArray &line : text.split('\n'))
        if (line.startsWith(key)) return line.mid(key.size()).simplified().split(' ').first().toLongLong();
    return 0;
}

Usage usageOf(const QList<qint64> &processes)
{
    Usage usage;
    for (const qint64 pid : processes) {
        const QDir threads(u"/proc/%1/task"_s.arg(pid));
        for (const QString &thread : threads.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
            usage.cpuSeconds += content(threads.filePath(thread + u"/schedstat"_s)).split(' ').first().toDouble() / 1e9;
            usage.wakeUps += number(content(threads.filePath(thread + u"/status"_s)), "voluntary_ctxt_switches:");
        }
    }
    return usage;
}

double megabytesOf(const QList<qint64> &processes)
{
    double kilobytes = 0;
    for (const qint64 pid : processes)
        kilobytes += double(number(content(u"/proc/%1/smaps_rollup"_s.arg(pid)), "Pss:"));
    return kilobytes / 1024;
}
