#include "ui/models/GameListModel.h"

#include "app/Translator.h"
#include "base/SearchForm.h"
#include "ui/models/CoverFamily.h"
#include "ui/models/CoverSource.h"
#include "ui/models/JoinedTexts.h"
#include "ui/models/PlayTimeText.h"

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

GameListModel::GameListModel(const LibraryStore &library, const Translator &translator, Host host, QObject *parent)
    : QAbstractListModel(parent), m_library(library), m_translator(translator), m_host(host),
      m_running(library.running())
{
    connect(&library, &LibraryStore::gamesAdded, this, &GameListModel::takeIn);
    connect(&library, &LibraryStore::gameRemoved, this, &GameListModel::drop);
    connect(&library, &LibraryStore::gameChanged, this, &GameListModel::update);
    connect(&library, &LibraryStore::libraryReplaced, this, &GameListModel::rebuild);
    connect(&library, &LibraryStore::runningChanged, this, &GameListModel::announceRunning);
    rebuild();
}

int GameListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : count();
}

QVariant GameListModel::data(const QModelIndex &index, int role) const
{
    const GameEntry *game = entryAt(index.row());
    if (!game) return {};
    const Console *console = m_facts[std::size_t(m_rows[index.row()])].console;
    switch (role) {
    case GameID:
        return game->id;
    case Qt::DisplayRole:
    case Title:
        return game->title;
    case ConsoleID:
        return game->consoleID;
    case ConsoleName:
        return console ? console->name : game->consoleID;
    case ConsoleShort:
        return console ? console->shortName : game->consoleID;
    case CoverSource:
        return coverSource(*game);
    case Favorite:
        return game->favorite.value_or(false);
    case Status:
        return game->status ? m_translator.translate(title(*game->status)) : QString();
    case Running:
        return m_running.contains(game->id);
    case PlayTimeText:
        return m_translator.message(playTimeText(game->playSeconds.value_or(0)));
    case Family:
        return name(coverFamily(game->consoleID));
    case Spoken:
        return joined({game->title, data(index, ConsoleName).toString(), data(index, Status).toString()});
    case HeightRatio:
        return heightRatio(coverFamily(game->consoleID));
    }
    return {};
}

QHash<int, QByteArray> GameListModel::roleNames() const
{
    return {{GameID, "gameID"},
            {Title, "title"},
            {ConsoleID, "consoleID"},
            {ConsoleName, "consoleName"},
            {ConsoleShort, "consoleShort"},
            {CoverSource, "coverSource"},
            {Favorite, "favorite"},
            {Status, "status"},
            {Running, "running"},
            {PlayTimeText, "playTimeText"},
            {Family, "family"},
            {Spoken, "spoken"},
            {HeightRatio, "heightRatio"}};
}

QString GameListModel::countText() const
{
    return QString::number(count());
}

void GameListModel::setFilter(const QString &filter)
{
    const GameFilter wanted = gameFilterFromText(filter);
    if (wanted == m_filter) return;
    m_filter = wanted;
    refilter();
    emit filterChanged();
    emit emptyChanged();
}

void GameListModel::setSearch(const QString &search)
{
    if (search == m_search) return;
    m_search = search;
    const QStringList words = searchForm(search).split(u' ', Qt::SkipEmptyParts);
    if (words != m_words) {
        m_words = words;
        refilter();
    }
    emit searchChanged();
    emit emptyChanged();
}

void GameListModel::setSort(const QString &sort)
{
    const GameSort wanted = gameSortNamed(sort);
    if (wanted == m_sort) return;
    m_sort = wanted;
    resort();
    refilter();
    emit sortChanged();
}

QString GameListModel::sortText() const
{
    return m_translator.translate(displayText(m_sort));
}

QString GameListModel::heading() const
{
    if (m_filter.favorites) return m_translator.translate(u"Favorites"_s);
    if (m_filter.status) return m_translator.translate(title(*m_filter.status));
    if (m_filter.consoleID.isEmpty()) return m_translator.translate(u"All games"_s);
    const Console *console = consoleWithID(m_filter.consoleID, m_host);
    return console ? console->name : m_filter.consoleID;
}

QString GameListModel::emptyTitle() const
{
    if (!m_words.isEmpty()) return m_translator.fill(u"No game matches “%@”"_s, {m_search.trimmed()});
    if (m_filter.favorites) return m_translator.translate(u"No favorites yet"_s);
    if (m_filter.status) return m_translator.translate(u"No game has this status yet"_s);
    if (!m_filter.consoleID.isEmpty()) return m_translator.fill(u"No %@ games yet"_s, {heading()});
    return m_translator.translate(u"No games yet"_s);
}

QString GameListModel::emptyText() const
{
    if (!m_words.isEmpty()) {
        return m_filter == GameFilter() ? m_translator.translate(u"Try fewer letters, or the name of a console."_s)
                                        : m_translator.fill(u"Only “%@” was searched. Try all games."_s, {heading()});
    }
    if (m_filter.favorites)
        return m_translator.translate(u"Press F on a game: a heart appears on its cover, and it shows up here."_s);
    if (m_filter.status)
        return m_translator.translate(u"Choose a status on a game's page, and the game shows up here."_s);
    return m_translator.translate(u"Add a folder of games, and they will stand here."_s);
}

QString GameListModel::emptyIcon() const
{
    if (!m_words.isEmpty()) return u"search"_s;
    return m_filter.favorites ? u"heart"_s : u"shelf"_s;
}

QString GameListModel::gameAt(int row) const
{
    const GameEntry *game = entryAt(row);
    return game ? game->id : QString();
}

int GameListModel::rowOf(const QString &gameID) const
{
    const std::optional<int> index = m_library.indexOf(gameID);
    return index ? int(m_rows.indexOf(*index)) : -1;
}

const GameEntry *GameListModel::entryAt(int row) const
{
    if (row < 0 || row >= m_rows.size()) return nullptr;
    const int index = m_rows[row];
    return index < 0 || index >= m_library.games().size() ? nullptr : &m_library.games()[index];
}

GameListModel::Facts GameListModel::factsOf(const GameEntry &game) const
{
    Facts facts;
    facts.console = consoleWithID(game.consoleID, m_host);
    facts.searchText = searchForm(game.title);
    facts.titleLength = facts.searchText.size();
    facts.searchText += u' ' + searchForm(facts.console ? facts.console->name : game.consoleID);
    const int place = facts.console ? int(facts.console - consoles(m_host).constData()) : int(consoles(m_host).size());
    facts.number = sortNumber(game, m_sort, place);
    return facts;
}

bool GameListModel::before(int a, int b) const
{
    const Facts &left = m_facts[std::size_t(a)];
    const Facts &right = m_facts[std::size_t(b)];
    if (left.number != right.number) return left.number < right.number;
    const int order = compareTitles(QStringView(left.searchText).left(left.titleLength),
                                    QStringView(right.searchText).left(right.titleLength));
    return order ? order < 0 : a < b;
}

bool GameListModel::admitsGame(int index) const
{
    if (!admits(m_filter, m_library.games()[index])) return false;
    const QString &text = m_facts[std::size_t(index)].searchText;
    return std::all_of(m_words.begin(), m_words.end(), [&](const QString &word) { return text.contains(word); });
}

void GameListModel::rebuild()
{
    const int countBefore = count();
    beginResetModel();
    m_facts.clear();
    m_facts.reserve(std::size_t(m_library.count()));
    for (const GameEntry &game : m_library.games())
        m_facts.push_back(factsOf(game));
    m_order.resize(m_facts.size());
    std::iota(m_order.begin(), m_order.end(), 0);
    std::sort(m_order.begin(), m_order.end(), [this](int a, int b) { return before(a, b); });
    fillRows();
    endResetModel();
    announceCount(countBefore);
}

void GameListModel::resort()
{
    for (std::size_t i = 0; i < m_facts.size(); ++i) {
        const Console *console = m_facts[i].console;
        const int place = console ? int(console - consoles(m_host).constData()) : int(consoles(m_host).size());
        m_facts[i].number = sortNumber(m_library.games()[int(i)], m_sort, place);
    }
    std::sort(m_order.begin(), m_order.end(), [this](int a, int b) { return before(a, b); });
}

void GameListModel::refilter()
{
    const int countBefore = count();
    beginResetModel();
    fillRows();
    endResetModel();
    announceCount(countBefore);
}

void GameListModel::fillRows()
{
    m_rows.clear();
    m_rows.reserve(qsizetype(m_order.size()));
    for (const int index : m_order) {
        if (admitsGame(index)) m_rows.append(index);
    }
}

void GameListModel::takeIn(int first, int count)
{
    if (first != int(m_facts.size())) return rebuild();
    const auto inOrder = [this](int a, int b) { return before(a, b); };
    QList<int> shown;
    for (int index = first; index < first + count; ++index) {
        m_facts.push_back(factsOf(m_library.games()[index]));
        m_order.push_back(index);
        if (admitsGame(index)) shown += index;
    }
    std::sort(m_order.begin() + first, m_order.end(), inOrder);
    std::inplace_merge(m_order.begin(), m_order.begin() + first, m_order.end(), inOrder);
    // Each insertion makes the view lay out again; a whole folder that lands all over the list is one change to it.
    constexpr int manyPlaces = 40;
    if (shown.size() > manyPlaces) return refilter();
    for (const int index : shown)
        insertRow(index);
}

void GameListModel::drop(int index)
{
    m_facts.erase(m_facts.begin() + index);
    std::erase(m_order, index);
    const int row = int(m_rows.indexOf(index));
    if (row >= 0) m_rows[row] = -1;
    const auto moveUp = [index](int &other) { other -= other > index; };
    std::for_each(m_order.begin(), m_order.end(), moveUp);
    std::for_each(m_rows.begin(), m_rows.end(), moveUp);
    if (row >= 0) removeRow(row);
}

void GameListModel::update(int index)
{
    const auto inOrder = [this](int a, int b) { return before(a, b); };
    std::erase(m_order, index);
    m_facts[std::size_t(index)] = factsOf(m_library.games()[index]);
    m_order.insert(std::lower_bound(m_order.begin(), m_order.end(), index, inOrder), index);
    const int row = int(m_rows.indexOf(index));
    const bool shown = admitsGame(index);
    if (row < 0 && shown) insertRow(index);
    if (row >= 0 && !shown) removeRow(row);
    if (row >= 0 && shown) placeRow(row);
}

void GameListModel::insertRow(int index)
{
    const auto inOrder = [this](int a, int b) { return before(a, b); };
    const int row = int(std::lower_bound(m_rows.cbegin(), m_rows.cend(), index, inOrder) - m_rows.cbegin());
    const int countBefore = count();
    beginInsertRows({}, row, row);
    m_rows.insert(row, index);
    endInsertRows();
    announceCount(countBefore);
}

void GameListModel::removeRow(int row)
{
    const int countBefore = count();
    beginRemoveRows({}, row, row);
    m_rows.removeAt(row);
    endRemoveRows();
    announceCount(countBefore);
}

void GameListModel::placeRow(int row)
{
    const auto inOrder = [this](int a, int b) { return before(a, b); };
    const int index = m_rows[row];
    // The rows before and after it are in order; its own place is in one of these two parts, or between them.
    const auto here = m_rows.cbegin() + row;
    auto place = std::lower_bound(m_rows.cbegin(), here, index, inOrder);
    if (place == here) place = std::lower_bound(here + 1, m_rows.cend(), index, inOrder);
    const int target = int(place - m_rows.cbegin()); // it goes before the row that is there now
    int newRow = row;
    if (target != row && target != row + 1) {
        beginMoveRows({}, row, row, {}, target);
        newRow = target > row ? target - 1 : target;
        m_rows.move(row, newRow);
        endMoveRows();
    }
    emit dataChanged(this->index(newRow), this->index(newRow));
}

void GameListModel::announceRunning()
{
    const QSet<QString> changed = (m_running - m_library.running()) + (m_library.running() - m_running);
    m_running = m_library.running();
    for (const QString &id : changed) {
        const int row = rowOf(id);
        if (row >= 0) emit dataChanged(index(row), index(row), {Running});
    }
}

void GameListModel::announceCount(int before)
{
    if (before != count()) emit countChanged();
}
