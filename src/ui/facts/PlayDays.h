#pragma once

#include "library/GameEntry.h"

#include <QDate>

/// One day's play time, as a bar of a chart.
struct PlayDay {
    QDate day;
    double seconds = 0;
    double share = 0; ///< of the longest day among them, 0 to 1
    bool operator==(const PlayDay &) const = default;
};

/// The last `days` days up to and including today, oldest first. `daily`: seconds by day key.
QList<PlayDay> lastDays(const QMap<QString, double> &daily, QDate today, int days);

/// Seconds by day key of all games together, since and including that day.
QMap<QString, double> dailyTotals(const QList<GameEntry> &games, QDate since);
