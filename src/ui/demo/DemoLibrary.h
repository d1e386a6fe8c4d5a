#pragma once

#include "library/GameEntry.h"

#include <QDateTime>

/// Made-up games on many consoles, some played, some loved; the same ones every time. Beyond the titles that there are,
/// they are numbered. Their files lie below `folder` and need not exist.
QList<GameEntry> demoGames(int count, const QDateTime &now, const QString &folder);
