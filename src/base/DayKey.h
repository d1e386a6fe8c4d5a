#pragma once

#include <QDateTime>
#include <QString>

/// The local calendar day of a moment, written "yyyy-MM-dd" in the Gregorian calendar and ASCII digits whatever the
/// locale. The moment's own time zone decides; `Clock::now()` gives the user's.
QString dayKey(const QDateTime &moment);
