#pragma once

#include <QList>
#include <QStringList>
#include <QUrl>

/// What was dropped onto the window, as far as it lies on this computer.
struct DroppedItems {
    QStringList folders;
    QStringList files;
    bool operator==(const DroppedItems &) const = default;
};

/// Each item once, in their order. Web addresses and what does not exist are left out.
DroppedItems droppedItems(const QList<QUrl> &addresses);
