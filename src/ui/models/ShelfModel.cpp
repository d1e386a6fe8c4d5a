#include "ui/models/ShelfModel.h"

#include "catalog/Console.h"
#include "ui/models/CoverFamily.h"
#include "ui/models/CoverSource.h"

ShelfModel::ShelfModel(const LibraryStore &library, Host host, QObject *parent)
    : QAbstractListModel(parent), m_library(library), m_host(host)
{ }

void ShelfModel::show(const QStringList &gameIDs)
{
    const int before = count();
    if (before == 0) { // nothing to keep the place of
        beginResetModel();
        m_ids = gameIDs;
        endResetModel();
    }
    for (int row = 0; row < gameIDs.size(); ++row)
        place(gameIDs[row], row);
    if (m_ids.size() > gameIDs.size()) {
        beginRemoveRows({}, int(gameIDs.size()), count() - 1);
        m_ids.resize(gameIDs.size());
        endRemoveRows();
    }
    if (count() > 0) emit dataChanged(index(0), index(count() - 1));
    if (count() != before) emit countChanged();
}

void ShelfModel::place(const QString &id, int row)
{
    const int from = int(m_ids.indexOf(id));
    if (from == row) return;
    if (from > row) {
        beginMoveRows({}, from, from, {}, row);
        m_ids.move(from, row);
        endMoveRows();
    } else {
        beginInsertRows({}, row, row);
        m_ids.insert(row, id);
        endInsertRows();
    }
}

int ShelfModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : count();
}

QVariant ShelfModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid()) return {};
    const QString &id = m_ids[index.row()];
    // A row may outlive its game for a moment, until the next list is shown.
    const GameEntry *game = m_library.game(id);
    static const GameEntry none;
    if (!game) game = &none;
    const Console *console = consoleWithID(game->consoleID, m_host);
    switch (role) {
    case GameID:
        return id;
    case Title:
        return game->title;
    case ConsoleID:
        return game->consoleID;
    case ConsoleName:
        return console ? console->name : game->consoleID;
    case Cover:
        return coverSource(*game);
    case Ratio:
        return heightRatio(coverFamily(game->consoleID));
    case Favorite:
        return game->favorite.value_or(false);
    case Playing:
        return m_library.running().contains(id);
    }
    return {};
}

QHash<int, QByteArray> ShelfModel::roleNames() const
{
    return {{GameID, "gameID"}, {Title, "title"}, {ConsoleID, "consoleID"}, {ConsoleName, "consoleName"},
            {Cover, "cover"},   {Ratio, "ratio"}, {Favorite, "favorite"},   {Playing, "playing"}};
}
