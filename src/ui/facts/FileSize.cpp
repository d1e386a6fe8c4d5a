#include "ui/facts/FileSize.h"

#include <QDirIterator>
#include <QFileInfo>

std::optional<qint64> bytesBelow(const QString &path)
{
    const QFileInfo item(path);
    if (!item.exists()) return {};
    if (!item.isDir()) return item.size();
    qint64 bytes = 0;
    QDirIterator each(path, QDir::Files | QDir::Hidden | QDir::NoSymLinks, QDirIterator::Subdirectories);
    for (int files = 0; each.hasNext() && files < 100000; ++files) {
        each.next();
        bytes += each.fileInfo().size();
    }
    return bytes;
}
