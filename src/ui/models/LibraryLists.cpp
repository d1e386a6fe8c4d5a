#include "ui/models/LibraryLists.h"

#include "app/AppState.h"
#include "app/Translator.h"
#include "emulators/finding/InstalledEmulators.h"
#include "platform/Preferences.h"

#include <QVariant>

using namespace Qt::StringLiterals;

LibraryLists::LibraryLists(LibraryStore &library, const InstalledEmulators &emulators, AppState &state,
                           Preferences &preferences, const Translator &translator, const Places &places,
                           QObject *parent)
    : QObject(parent), m_library(library), m_emulators(emulators), m_state(state), m_preferences(preferences),
      m_translator(translator), m_places(places)
{
    connect(&state, &AppState::selectedConsoleChanged, this, &LibraryLists::followConsole);
}

LibraryLists::~LibraryLists() = default;

GameListModel *LibraryLists::games()
{
    if (m_games) return m_games.get();
    m_games = std::make_unique<GameListModel>(m_library, m_translator, m_places.host);
    GameListModel *model = m_games.get();
    keepSort(model);
    model->setFilter(m_preferences.get(preference::librarySidebarFilter));
    model->setSearch(m_state.property("search").toString());
    connect(model, &GameListModel::filterChanged, this,
            [this, model] { m_preferences.set(preference::librarySidebarFilter, model->filter()); });
    connect(&m_state, &AppState::searchChanged, this, &LibraryLists::takeSearch);
    return model;
}

GameListModel *LibraryLists::consoleGames()
{
    if (m_consoleGames) return m_consoleGames.get();
    m_consoleGames = std::make_unique<GameListModel>(m_library, m_translator, m_places.host);
    keepSort(m_consoleGames.get());
    followConsole();
    return m_consoleGames.get();
}

SidebarModel *LibraryLists::sidebar()
{
    if (!m_sidebar) m_sidebar = std::make_unique<SidebarModel>(m_library, m_translator, m_places.host);
    return m_sidebar.get();
}

ConsoleListModel *LibraryLists::consoles()
{
    if (!m_consoles) {
        m_consoles =
            std::make_unique<ConsoleListModel>(m_library, m_emulators, m_preferences, m_translator, m_places.host);
    }
    return m_consoles.get();
}

ConsoleFacts *LibraryLists::console()
{
    if (!m_console) {
        m_console = std::make_unique<ConsoleFacts>(m_library, m_emulators, m_translator, m_places);
        followConsole();
    }
    return m_console.get();
}

QVariantList LibraryLists::sorts() const
{
    QVariantList choices;
    for (const GameSort sort : gameSorts())
        choices += QVariant::fromValue(choice(name(sort), displayText(sort)));
    return choices;
}

QVariantList LibraryLists::groupings() const
{
    return {QVariant::fromValue(choice(u"date"_s, u"By release date"_s, u"calendar"_s)),
            QVariant::fromValue(choice(u"maker"_s, u"By maker"_s, u"maker"_s))};
}

Choice LibraryLists::choice(const QString &value, const QString &text, const QString &icon) const
{
    return {value, m_translator.translate(text), icon};
}

void LibraryLists::toggleFavorite(const QString &gameID)
{
    if (const GameEntry *game = m_library.game(gameID)) m_library.setFavorite(gameID, !game->favorite.value_or(false));
}

void LibraryLists::chooseFilter(const QString &filter)
{
    if (filter == games()->filter()) return;
    setProperty("currentGame", QString());
    games()->setFilter(filter);
}

void LibraryLists::showAllGames()
{
    chooseFilter(toText(GameFilter()));
    m_state.setProperty("search", QString());
}

/// What is found begins with the first game, whatever was in focus before.
void LibraryLists::takeSearch()
{
    setProperty("currentGame", QString());
    m_games->setSearch(m_state.property("search").toString());
}

void LibraryLists::keepSort(GameListModel *model)
{
    model->setSort(m_preferences.get(preference::gameSort));
    connect(model, &GameListModel::sortChanged, this,
            [this, model] { m_preferences.set(preference::gameSort, model->sort()); });
    connect(&m_preferences, &Preferences::changed, model, [this, model](const QString &key) {
        if (key == preference::gameSort.name) model->setSort(m_preferences.get(preference::gameSort));
    });
}

void LibraryLists::followConsole()
{
    const QString id = m_state.property("selectedConsole").toString();
    if (id.isEmpty()) return; // the page that closes keeps its content
    if (m_console) m_console->setConsoleID(id);
    if (m_consoleGames) m_consoleGames->setFilter(toText(GameFilter{.consoleID = id}));
}

QString LibraryLists::gameBeside(int by)
{
    const GameListModel *shown = m_state.tab() == AppTab::consoles ? consoleGames() : games();
    const int row = shown->rowOf(m_state.property("detailGame").toString());
    return row < 0 ? QString() : shown->gameAt(row + by);
}

void LibraryLists::stepGame(int by)
{
    const QString gameID = gameBeside(by);
    if (gameID.isEmpty()) return;
    setProperty(m_state.tab() == AppTab::consoles ? "currentConsoleGame" : "currentGame", gameID);
    m_state.setProperty("detailGame", gameID);
}
