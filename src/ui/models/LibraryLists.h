#pragma once

#include "platform/Places.h"
#include "ui/models/ConsoleFacts.h"
#include "ui/models/ConsoleListModel.h"
#include "ui/models/GameListModel.h"
#include "ui/models/SidebarModel.h"

#include <QObject>
#include <QVariantList>
#include <memory>

class AppState;

/// One entry of a menu or of a row of choices.
struct Choice {
    Q_GADGET
    Q_PROPERTY(QString value MEMBER value)
    Q_PROPERTY(QString text MEMBER text)
    Q_PROPERTY(QString icon MEMBER icon)
public:
    QString value;
    QString text; ///< translated
    QString icon; ///< name of a drawing; empty: none
};

/// What the Games and Consoles screens list, made when a screen first asks for it, with the user's choice of order and
/// filter, which is kept. Remembers where the user was, so that coming back leads to the same cover or tile.
class LibraryLists : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the library")
    Q_PROPERTY(GameListModel *games READ games CONSTANT)
    Q_PROPERTY(GameListModel *consoleGames READ consoleGames CONSTANT)
    Q_PROPERTY(SidebarModel *sidebar READ sidebar CONSTANT)
    Q_PROPERTY(ConsoleListModel *consoles READ consoles CONSTANT)
    Q_PROPERTY(ConsoleFacts *console READ console CONSTANT)
    Q_PROPERTY(QVariantList sorts READ sorts CONSTANT)
    Q_PROPERTY(QVariantList groupings READ groupings CONSTANT)
    Q_PROPERTY(QString currentGame MEMBER m_currentGame NOTIFY currentGameChanged)
    Q_PROPERTY(QString currentConsoleGame MEMBER m_currentConsoleGame NOTIFY currentConsoleGameChanged)
    Q_PROPERTY(QString currentConsole MEMBER m_currentConsole NOTIFY currentConsoleChanged)
public:
    LibraryLists(LibraryStore &library, const InstalledEmulators &emulators, AppState &state, Preferences &preferences,
                 const Translator &translator, const Places &places, QObject *parent = nullptr);
    ~LibraryLists() override;

    GameListModel *games(); ///< of the Games screen; follows the search of `AppState`
    GameListModel *consoleGames(); ///< of the console whose page is open
    SidebarModel *sidebar();
    ConsoleListModel *consoles();
    ConsoleFacts *console(); ///< the console whose page is open
    QVariantList sorts() const; ///< every `GameSort` as a `Choice`
    QVariantList groupings() const; ///< by release date, by maker

    Q_INVOKABLE void toggleFavorite(const QString &gameID);
    Q_INVOKABLE void chooseFilter(const QString &filter); ///< of the Games screen, which begins at its first game
    Q_INVOKABLE void showAllGames(); ///< without filter and search
    /// Of the game whose page is open, in the list that it was opened from: -1 the one before, 1 the next. Empty: none.
    Q_INVOKABLE QString gameBeside(int by);
    Q_INVOKABLE void stepGame(int by); ///< opens that one's page

signals:
    void currentGameChanged();
    void currentConsoleGameChanged();
    void currentConsoleChanged();

private:
    void takeSearch();
    void keepSort(GameListModel *model);
    void followConsole();
    Choice choice(const QString &value, const QString &text, const QString &icon = {}) const;

    LibraryStore &m_library;
    const InstalledEmulators &m_emulators;
    AppState &m_state;
    Preferences &m_preferences;
    const Translator &m_translator;
    const Places m_places;
    std::unique_ptr<GameListModel> m_games;
    std::unique_ptr<GameListModel> m_consoleGames;
    std::unique_ptr<SidebarModel> m_sidebar;
    std::unique_ptr<ConsoleListModel> m_consoles;
    std::unique_ptr<ConsoleFacts> m_console;
    QString m_currentGame;
    QString m_currentConsoleGame;
    QString m_currentConsole;
};
