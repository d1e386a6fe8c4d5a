#include "ui/models/ConsoleListModel.h"

#include "app/Translator.h"
#include "base/SearchForm.h"
#include "emulators/finding/InstalledEmulators.h"
#include "library/LibraryStore.h"
#include "platform/Preferences.h"
#include "ui/models/EngineStatus.h"
#include "ui/models/JoinedTexts.h"

#include <algorithm>

using namespace Qt::StringLiterals;

static QHash<QString, int> gamesByConsole(const QList<GameEntry> &games)
{
    QHash<QString, int> counts;
    for (const GameEntry &game : games)
        ++counts[game.consoleID];
    return counts;
}

static QString searchText(const Console &console)
{
    return searchForm(console.name + u' ' + console.shortName + u' ' + displayName(console.maker) + u' '
                      + QString::number(console.year));
}

ConsoleListModel::ConsoleListModel(const LibraryStore &library, const InstalledEmulators &emulators,
                                   Preferences &preferences, const Translator &translator, Host host, QObject *parent)
    : QAbstractListModel(parent), m_library(library), m_emulators(emulators), m_preferences(preferences),
      m_translator(translator), m_host(host), m_onlyMine(preferences.get(preference::consolesOnlyMine)),
      m_byMaker(preferences.get(preference::consolesGroupByMaker)), m_games(gamesByConsole(library.games()))
{
    connect(&library, &LibraryStore::gamesChanged, this, &ConsoleListModel::recount);
    connect(&emulators, &InstalledEmulators::changed, this, &ConsoleListModel::restate);
    relist();
}

int ConsoleListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : count();
}

QVariant ConsoleListModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= count()) return {};
    const Console &console = *m_rows[index.row()];
    const auto status = [&] {
        return engineStatus(console, m_emulators.known(), m_emulators.forConsole(console.id).has_value());
    };
    const int games = m_games.value(console.id);
    switch (role) {
    case ConsoleID:
        return console.id;
    case Qt::DisplayRole:
    case Name:
        return m_translator.translate(console.name);
    case ShortName:
        return console.shortName;
    case Detail:
        return m_translator.fill(u"%@, %ld"_s,
                                 {m_translator.translate(displayName(console.maker)), QString::number(console.year)});
    case GamesText:
        return games > 0 ? QString::number(games) : QString();
    case StatusText:
        return m_translator.translate(displayText(status()));
    case StatusDot:
        return dotName(status());
    case Spoken:
        return joined({data(index, Name).toString(), data(index, Detail).toString(),
                       console.handheld ? m_translator.translate(u"Handheld"_s) : QString(),
                       data(index, StatusText).toString()});
    case Faded:
        return console.engine == Engine::unavailable;
    case Handheld:
        return console.handheld;
    case Column:
        return placeOf(m_layout, index.row()).column;
    case Line:
        return placeOf(m_layout, index.row()).line;
    case Group:
        return placeOf(m_layout, index.row()).group;
    }
    return {};
}

QHash<int, QByteArray> ConsoleListModel::roleNames() const
{
    return {{ConsoleID, "consoleID"}, {Name, "name"},           {ShortName, "shortName"},
            {Detail, "detail"},       {GamesText, "gamesText"}, {StatusText, "statusText"},
            {StatusDot, "statusDot"}, {Faded, "faded"},         {Spoken, "spoken"},
            {Handheld, "handheld"},   {Column, "column"},       {Line, "line"},
            {Group, "group"}};
}

QString ConsoleListModel::countText() const
{
    return m_translator.fill(u"%ld consoles"_s, {QString::number(count())});
}

QString ConsoleListModel::noMatchText() const
{
    if (!searchForm(m_query).isEmpty()) return m_translator.fill(u"No console matches “%@”"_s, {m_query.trimmed()});
    return m_translator.translate(u"No console of these years has games yet"_s);
}

QStringList ConsoleListModel::eraTexts() const
{
    QStringList texts;
    for (const Era era : eras())
        texts += m_translator.translate(displayText(era));
    return texts;
}

int ConsoleListModel::era() const
{
    return int(eras().indexOf(m_era));
}

void ConsoleListModel::setEra(int era)
{
    if (era < 0 || era >= eras().size() || eras()[era] == m_era) return;
    m_era = eras()[era];
    relist();
    emit eraChanged();
}

void ConsoleListModel::setQuery(const QString &query)
{
    if (query == m_query) return;
    m_query = query;
    relist();
    emit queryChanged();
    emit listChanged(); // the sentence about no match names it
}

void ConsoleListModel::setOnlyMine(bool only)
{
    if (only == m_onlyMine) return;
    m_onlyMine = only;
    m_preferences.set(preference::consolesOnlyMine, only);
    relist();
    emit onlyMineChanged();
}

void ConsoleListModel::setByMaker(bool grouped)
{
    if (grouped == m_byMaker) return;
    m_byMaker = grouped;
    m_preferences.set(preference::consolesGroupByMaker, grouped);
    relist();
    emit byMakerChanged();
}

void ConsoleListModel::setColumns(int columns)
{
    if (columns < 1 || columns == m_layout.columns) return;
    m_layout.columns = columns;
    if (count() > 0) emit dataChanged(index(0), index(count() - 1), {Column, Line, Group});
    emit columnsChanged();
    emit listChanged();
}

QStringList ConsoleListModel::groupTitles() const
{
    QStringList titles;
    if (!m_byMaker) return titles;
    int first = 0;
    for (const int size : m_layout.groups) {
        titles += m_translator.translate(displayName(m_rows[first]->maker));
        first += size;
    }
    return titles;
}

QList<int> ConsoleListModel::groupLines() const
{
    QList<int> lines;
    int first = 0;
    for (const int size : m_layout.groups) {
        lines += placeOf(m_layout, first).line;
        first += size;
    }
    return lines;
}

void ConsoleListModel::showAll()
{
    setQuery({});
    setEra(0);
    setOnlyMine(false);
}

QString ConsoleListModel::consoleAt(int row) const
{
    return row < 0 || row >= count() ? QString() : m_rows[row]->id;
}

int ConsoleListModel::rowOf(const QString &consoleID) const
{
    const auto row =
        std::find_if(m_rows.begin(), m_rows.end(), [&](auto *console) { return console->id == consoleID; });
    return row == m_rows.end() ? -1 : int(row - m_rows.begin());
}

bool ConsoleListModel::isShown(const Console &console) const
{
    if (!admits(m_era, console.year)) return false;
    if (m_onlyMine && m_games.value(console.id) == 0) return false;
    const QString query = searchForm(m_query);
    return query.isEmpty() || searchText(console).contains(query);
}

void ConsoleListModel::relist()
{
    QList<const Console *> rows;
    for (const Console &console : consoles(m_host)) {
        if (isShown(console)) rows += &console;
    }
    if (m_byMaker) {
        std::stable_sort(rows.begin(), rows.end(),
                         [](auto *a, auto *b) { return makers().indexOf(a->maker) < makers().indexOf(b->maker); });
    }
    beginResetModel();
    m_rows = rows;
    regroup();
    endResetModel();
    emit listChanged();
}

void ConsoleListModel::regroup()
{
    m_layout.groups.clear();
    for (qsizetype row = 0; row < m_rows.size(); ++row) {
        const bool begins = row == 0 || (m_byMaker && m_rows[row]->maker != m_rows[row - 1]->maker);
        if (begins)
            m_layout.groups += 1;
        else
            ++m_layout.groups.last();
    }
}

void ConsoleListModel::recount()
{
    const QHash<QString, int> games = gamesByConsole(m_library.games());
    if (games == m_games) return;
    const bool others =
        m_onlyMine && std::any_of(consoles(m_host).begin(), consoles(m_host).end(), [&](const Console &console) {
            return (games.value(console.id) > 0) != (m_games.value(console.id) > 0);
        });
    m_games = games;
    if (others) return relist();
    if (count() > 0) emit dataChanged(index(0), index(count() - 1), {GamesText});
}

void ConsoleListModel::restate()
{
    if (count() > 0) emit dataChanged(index(0), index(count() - 1), {StatusText, StatusDot});
}
