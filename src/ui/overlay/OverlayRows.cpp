#include "ui/overlay/OverlayRows.h"

using namespace Qt::StringLiterals;

void OverlayRows::set(const QList<OverlayRow> &rows)
{
    if (rows.size() != m_rows.size()) {
        beginResetModel();
        m_rows = rows;
        endResetModel();
        return;
    }
    for (int i = 0; i < rows.size(); ++i) {
        if (m_rows[i] == rows[i]) continue;
        m_rows[i] = rows[i];
        emit dataChanged(index(i), index(i));
    }
}

static QString kindName(OverlayRow::Kind kind)
{
    switch (kind) {
    case OverlayRow::Kind::action:
        return u"action"_s;
    case OverlayRow::Kind::choice:
        return u"choice"_s;
    case OverlayRow::Kind::toggle:
        return u"toggle"_s;
    case OverlayRow::Kind::fact:
        return u"fact"_s;
    }
    return {};
}

QVariant OverlayRows::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const OverlayRow &row = m_rows[index.row()];
    switch (role) {
    case Kind:
        return kindName(row.kind);
    case Icon:
        return row.icon;
    case Title:
        return row.title;
    case Detail:
        return row.detail;
    case Value:
        return row.value;
    case On:
        return row.on;
    case Available:
        return row.available;
    case Grave:
        return row.grave;
    default:
        return {};
    }
}

QHash<int, QByteArray> OverlayRows::roleNames() const
{
    return {{Kind, "kind"},   {Icon, "icon"}, {Title, "title"},         {Detail, "detail"},
            {Value, "value"}, {On, "on"},     {Available, "available"}, {Grave, "grave"}};
}
