#pragma once

#include "app/AppState.h"
#include "app/Translator.h"
#include "catalog/Console.h"
#include "emulators/finding/InstalledEmulators.h"

#include "library/LibraryHouse.h"

#include <QAbstractItemModel>

/// What the lists of games and consoles are made from: a library with made-up games, emulators, the user's choices.
struct ListHouse : LibraryHouse {
    AppState state;
    Translator translator{AppLanguage::english, Host::linux};
    InstalledEmulators emulators{places, workspace, index, preferences, tasks};
    int added = 0;

    ListHouse() { open(); }

    /// The identifier of a new game. Later ones were added later.
    QString add(const QString &title, const QString &consoleID, std::optional<double> lastPlayed = {})
    {
        store->add({game(title, consoleID, lastPlayed)});
        return store->games().last().id;
    }
    GameEntry game(const QString &title, const QString &consoleID, std::optional<double> lastPlayed = {})
    {
        GameEntry game;
        game.id = newGameID();
        game.title = title;
        game.consoleID = consoleID;
        game.path = QStringLiteral("/roms/%1/%2").arg(++added).arg(title);
        game.addedAt = {double(added)};
        if (lastPlayed) game.lastPlayed = ReferenceDate{*lastPlayed};
        return game;
    }
};

inline QStringList column(const QAbstractItemModel &model, int role)
{
    QStringList values;
    for (int row = 0; row < model.rowCount(); ++row)
        values += model.index(row, 0).data(role).toString();
    return values;
}
