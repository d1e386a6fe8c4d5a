#include "ui/shots/ShotGroupModel.h"

#include "ui/shots/RowChange.h"

ShotGroupModel::ShotGroupModel(const QLocale &locale, QObject *parent)
    : QAbstractListModel(parent), m_locale(locale) { }

void ShotGroupModel::show(const QList<ScreenshotGroup> &groups)
{
    QList<Row> rows;
    for (const ScreenshotGroup &group : groups) {
        rows += {group.id, group.title, group.game};
        ShotListModel *&shots = m_shots[group.id];
        if (!shots) shots = new ShotListModel(m_locale, this);
        shots->show(group.shots, group.title);
    }
    const RowChange change = rowChange(m_rows, rows);
    const QList<Row> gone = m_rows.mid(change.first, change.removed);
    if (change.removed > 0) {
        beginRemoveRows({}, change.first, change.first + change.removed - 1);
        m_rows.remove(change.first, change.removed);
        endRemoveRows();
    }
    if (change.inserted > 0) {
        beginInsertRows({}, change.first, change.first + change.inserted - 1);
        m_rows = rows;
        endInsertRows();
    }
    for (const Row &row : gone) {
        const bool stays = std::any_of(rows.begin(), rows.end(), [&](const Row &other) { return other.id == row.id; });
        if (stays) continue;
        ShotListModel *shots = m_shots.take(row.id);
        shots->show({}, row.title);
        shots->deleteLater(); // delegates that are bound to it go a moment later
    }
}

ShotListModel *ShotGroupModel::shotsOf(const QString &groupID) const
{
    return m_shots.value(groupID);
}

int ShotGroupModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

QVariant ShotGroupModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= m_rows.size()) return {};
    const Row &row = m_rows[index.row()];
    switch (role) {
    case GroupID:
        return row.id;
    case Title:
        return row.title;
    case GameID:
        return row.game;
    case Shots:
        return QVariant::fromValue(m_shots.value(row.id));
    }
    return {};
}

QHash<int, QByteArray> ShotGroupModel::roleNames() const
{
    return {{GroupID, "groupID"}, {Title, "title"}, {GameID, "gameID"}, {Shots, "shots"}};
}
