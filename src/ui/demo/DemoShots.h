#pragma once

#include "library/GameEntry.h"

/// Writes made-up screenshots of some of the games into the folder.
void writeDemoShots(const QList<GameEntry> &games, const QDateTime &now, const QString &folder);
