#include "ui/facts/PlayDays.h"

#include "base/DayKey.h"

#include <algorithm>

static QString keyOf(QDate day)
{
    return dayKey(day.startOfDay());
}

QList<PlayDay> lastDays(const QMap<QString, double> &daily, QDate today, int days)
{
    QList<PlayDay> bars;
    double longest = 0;
    for (int ago = days - 1; ago >= 0; --ago) {
        const QDate day = today.addDays(-ago);
        bars += {day, qMax(0.0, daily.value(keyOf(day)))};
        longest = qMax(longest, bars.last().seconds);
    }
    for (PlayDay &bar : bars)
        bar.share = longest > 0 ? bar.seconds / longest : 0;
    return bars;
}

QMap<QString, double> dailyTotals(const QList<GameEntry> &games, QDate since)
{
    QMap<QString, double> totals;
    const QString first = keyOf(since);
    for (const GameEntry &game : games) {
        if (!game.daily) continue;
        for (auto day = game.daily->lowerBound(first); day != game.daily->end(); ++day)
            totals[day.key()] += day.value();
    }
    return totals;
}
