#include "ui/DroppedItems.h"

#include <QDir>
#include <QFileInfo>

DroppedItems droppedItems(const QList<QUrl> &addresses)
{
    DroppedItems items;
    for (const QUrl &address : addresses) {
        if (!address.isLocalFile()) continue;
        const QFileInfo item(QDir::cleanPath(address.toLocalFile()));
        if (!item.exists()) continue;
        QStringList &list = item.isDir() ? items.folders : items.files;
        if (!list.contains(item.filePath())) list += item.filePath();
    }
    return items;
}
