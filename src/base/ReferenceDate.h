#pragma once

#include <QDateTime>

/// A moment as our files hold it: seconds since 2001-01-01 00:00:00 UTC. Kept as the number itself, so that reading a
/// file and writing it again changes no digit.
struct ReferenceDate {
    double seconds = 0;
    bool operator==(const ReferenceDate &) const = default;
    auto operator<=>(const ReferenceDate &) const = default;

    static ReferenceDate from(const QDateTime &moment) { return {(moment.toMSecsSinceEpoch() - epoch) / 1000.0}; }
    QDateTime toDateTime() const { return QDateTime::fromMSecsSinceEpoch(epoch + qint64(seconds * 1000.0)); }

private:
    static constexpr qint64 epoch = 978307200000; // 2001-01-01 in milliseconds since 1970
};
