#pragma once

#include <QHash>
#include <QList>

/// What processes have used since they started.
struct Usage {
    double cpuSeconds = 0;
    qint64 wakeUps = 0; ///< how often one of their threads went to sleep
};

Usage usageOf(const QList<qint64> &processes);
double megabytesOf(const QList<qint64> &processes); ///< proportional: what is shared counts by its share
