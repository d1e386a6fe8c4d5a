#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

/// Looks at `condition` after every event and every 20 ms until it holds or the time is over; answers whether it holds.
template <typename Condition>
bool waitFor(std::chrono::milliseconds limit, Condition condition)
{
    const QDeadlineTimer deadline(limit);
    QTimer tick;
    tick.start(20);
    while (!condition()) {
        if (deadline.hasExpired()) return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}
