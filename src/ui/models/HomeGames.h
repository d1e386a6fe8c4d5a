#pragma once

#include "library/GameEntry.h"

#include <QStringList>

/// Identifiers of the games played last, the last one first.
QStringList recentlyPlayed(const QList<GameEntry> &games, int most);

/// Identifiers of the games added last, the last one first.
QStringList recentlyAdded(const QList<GameEntry> &games, int most);

/// Identifiers of the favourites, by title.
QStringList favoriteGames(const QList<GameEntry> &games, int most);
