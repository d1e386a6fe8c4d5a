#pragma once

#include "library/LibraryFile.h"

/// A library of games whose files aren't there, of several consoles, some of them played.
inline QByteArray manyGames(int count)
{
    static const QStringList consoles{QStringLiteral("gb"),  QStringLiteral("snes"), QStringLiteral("ps2"),
                                      QStringLiteral("n64"), QStringLiteral("gc"),   QStringLiteral("psp")};
    QList<GameEntry> list;
    for (int i = 0; i < count; ++i) {
        GameEntry game{.id = newGameID(),
                       .title = QStringLiteral("Game number %1").arg(i),
                       .consoleID = consoles[i % consoles.size()],
                       .path = QStringLiteral("/games/%1/Game number %2.rom").arg(i % 7).arg(i),
                       .addedAt = {double(700000000 + i)}};
        if (i % 10 == 0) {
            game.playSeconds = i;
            game.lastPlayed = ReferenceDate{double(790000000 + i)};
        }
        list += game;
    }
    return encodeLibrary(list);
}
