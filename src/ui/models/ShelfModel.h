#pragma once

#include "library/LibraryStore.h"

#include <QAbstractListModel>
#include <qqmlregistration.h>

/// Some games of the library side by side, in an order that is handed in. The library outlives it.
class ShelfModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the library")
    Q_PROPERTY(int count READ count NOTIFY countChanged)
public:
    enum Role { GameID = Qt::UserRole + 1, Title, ConsoleID, ConsoleName, Cover, Ratio, Favorite, Playing };

    ShelfModel(const LibraryStore &library, Host host, QObject *parent = nullptr);

    /// Rows that stay are moved, so that a view keeps its place; all are announced as changed.
    void show(const QStringList &gameIDs);

    int count() const { return int(m_ids.size()); }
    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

signals:
    void countChanged();

private:
    void place(const QString &id, int row);

    const LibraryStore &m_library;
    const Host m_host;
    QStringList m_ids;
};
