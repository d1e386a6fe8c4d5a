#include "ui/shots/ShotListModel.h"

#include "ui/shots/RowChange.h"
#include "ui/shots/ShotPicture.h"

using namespace Qt::StringLiterals;

QString shotDate(const QDateTime &date, const QLocale &locale)
{
    return locale.toString(date.date(), u"d MMM yyyy"_s) + u", "_s + locale.toString(date.time(), u"HH:mm"_s);
}

ShotListModel::ShotListModel(const QLocale &locale, QObject *parent) : QAbstractListModel(parent), m_locale(locale) { }

void ShotListModel::show(const QList<Screenshot> &shots, const QString &title)
{
    m_title = title;
    const RowChange change = rowChange(m_shots, shots);
    if (change.removed > 0) {
        beginRemoveRows({}, change.first, change.first + change.removed - 1);
        m_shots.remove(change.first, change.removed);
        endRemoveRows();
    }
    if (change.inserted > 0) {
        beginInsertRows({}, change.first, change.first + change.inserted - 1);
        m_shots = shots;
        endInsertRows();
    }
    if (change.removed != change.inserted) emit countChanged();
}

int ShotListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : count();
}

QVariant ShotListModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= count()) return {};
    const Screenshot &shot = m_shots[index.row()];
    switch (role) {
    case Url:
        return shot.url;
    case Source:
        return shotSource(shot.url);
    case Title:
        return m_title;
    case DateText:
        return shotDate(shot.date, m_locale);
    }
    return {};
}

QHash<int, QByteArray> ShotListModel::roleNames() const
{
    return {{Url, "url"}, {Source, "source"}, {Title, "title"}, {DateText, "dateText"}};
}
