#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTimer>

/// Lets events happen until the condition holds; false when it does not within two seconds.
template <class Condition>
bool waitUntil(Condition condition, std::chrono::milliseconds limit = std::chrono::seconds(2))
{
    const QDeadlineTimer deadline(limit);
    QTimer look;
    look.start(std::chrono::milliseconds(2));
    while (!condition()) {
        if (deadline.hasExpired()) return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}
