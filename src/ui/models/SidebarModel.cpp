#include "ui/models/SidebarModel.h"

#include "app/Translator.h"
#include "ui/models/GameFilter.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {
/// How many games each row has.
struct Counts {
    int all = 0;
    int favorites = 0;
    std::array<int, 3> byStatus{}; ///< by `GameStatus`
    QHash<QString, int> byConsole;
};

Counts counted(const QList<GameEntry> &games)
{
    Counts counts;
    counts.all = int(games.size());
    for (const GameEntry &game : games) {
        counts.favorites += game.favorite.value_or(false);
        if (game.status) ++counts.byStatus[std::size_t(*game.status)];
        ++counts.byConsole[game.consoleID];
    }
    return counts;
}
}

SidebarModel::SidebarModel(const LibraryStore &library, const Translator &translator, Host host, QObject *parent)
    : QAbstractListModel(parent), m_library(library), m_translator(translator), m_host(host)
{
    const auto statusRow = [](GameStatus status, const QString &dot) {
        return Row{.filter = toText(GameFilter{.status = status}), .text = title(status), .dot = dot};
    };
    m_rows = {{.filter = toText({}), .text = u"All games"_s, .icon = u"grid"_s},
              {.filter = toText({.favorites = true}), .text = u"Favorites"_s, .icon = u"heart"_s},
              {.heading = true, .text = u"Status"_s},
              statusRow(GameStatus::playing, u"ok"_s),
              statusRow(GameStatus::backlog, u"warn"_s),
              statusRow(GameStatus::completed, u"info"_s)};
    connect(&library, &LibraryStore::gamesChanged, this, &SidebarModel::recount);
    recount();
}

int SidebarModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

QVariant SidebarModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= m_rows.size()) return {};
    const Row &row = m_rows[index.row()];
    switch (role) {
    case Heading:
        return row.heading;
    case Filter:
        return row.filter;
    case Qt::DisplayRole:
    case Text:
        return row.shortName.isEmpty() ? m_translator.translate(row.text) : row.text;
    case CountText:
        return row.heading ? QString() : QString::number(row.count);
    case Icon:
        return row.icon;
    case Dot:
        return row.dot;
    case ShortName:
        return row.shortName;
    }
    return {};
}

QHash<int, QByteArray> SidebarModel::roleNames() const
{
    return {{Heading, "heading"}, {Filter, "filter"}, {Text, "text"},          {CountText, "countText"},
            {Icon, "icon"},       {Dot, "dot"},       {ShortName, "shortName"}};
}

int SidebarModel::rowOf(const QString &filter) const
{
    const auto row = std::find_if(m_rows.begin(), m_rows.end(), [&](const Row &row) { return row.filter == filter; });
    return row == m_rows.end() || filter.isEmpty() ? -1 : int(row - m_rows.begin());
}

QString SidebarModel::filterAt(int row) const
{
    return row < 0 || row >= m_rows.size() ? QString() : m_rows[row].filter;
}

int SidebarModel::nextRow(int row, int direction) const
{
    for (int next = row + direction; next >= 0 && next < m_rows.size(); next += direction) {
        if (!m_rows[next].heading) return next;
    }
    return row;
}

SidebarModel::Row SidebarModel::consoleRow(const Console &console, int count) const
{
    return {.filter = toText({.consoleID = console.id}),
            .text = console.name,
            .shortName = console.shortName,
            .count = count};
}

void SidebarModel::recount()
{
    const Counts counts = counted(m_library.games());
    setCount(0, counts.all);
    setCount(1, counts.favorites);
    for (int status = 0; status < 3; ++status)
        setCount(3 + status, counts.byStatus[std::size_t(status)]);

    constexpr int fixedRows = 6;
    int row = fixedRows; // of the heading, which is there when a console is
    const bool headed = m_rows.size() > fixedRows;
    const auto has = [&](const Console &console) { return counts.byConsole.value(console.id) > 0; };
    const bool any = std::any_of(consoles(m_host).begin(), consoles(m_host).end(), has);
    if (any && !headed) {
        beginInsertRows({}, row, row);
        m_rows.append({.heading = true, .text = u"Consoles"_s});
        endInsertRows();
    }
    if (any || headed) ++row;
    for (const Console &console : consoles(m_host)) {
        const int count = counts.byConsole.value(console.id);
        const bool shown = row < m_rows.size() && m_rows[row].filter == toText({.consoleID = console.id});
        if (count > 0 && !shown) {
            beginInsertRows({}, row, row);
            m_rows.insert(row, consoleRow(console, count));
            endInsertRows();
        } else if (count == 0 && shown) {
            beginRemoveRows({}, row, row);
            m_rows.removeAt(row);
            endRemoveRows();
        }
        if (count > 0) setCount(row++, count);
    }
    if (!any && headed) {
        beginRemoveRows({}, fixedRows, fixedRows);
        m_rows.removeAt(fixedRows);
        endRemoveRows();
    }
}

void SidebarModel::setCount(int row, int count)
{
    if (m_rows[row].count == count) return;
    m_rows[row].count = count;
    emit dataChanged(index(row), index(row), {CountText});
}
