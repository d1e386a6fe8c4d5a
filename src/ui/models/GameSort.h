#pragma once

#include "library/GameEntry.h"

#include <QList>
#include <QStringView>

/// The order of the games on the Games screen and on a console's page. Kept by its name in the preference `gameSort`.
enum class GameSort { lastPlayed, title, added, playTime, console };

const QList<GameSort> &gameSorts(); ///< in the order of the menu
QString name(GameSort sort);
QString displayText(GameSort sort); ///< in English
GameSort gameSortNamed(const QString &name); ///< `lastPlayed` for anything unknown

/// What games are compared by before their titles; the smaller number comes first. `consoleIndex` is the console's
/// place in the catalog.
double sortNumber(const GameEntry &game, GameSort sort, int consoleIndex);

/// Compares two titles in their search form as people order them: "part 2" before "part 10". Negative: `a` is first.
int compareTitles(QStringView a, QStringView b);
