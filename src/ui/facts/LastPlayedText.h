#pragma once

#include "base/Message.h"

#include <QDateTime>
#include <QLocale>

/// "Last played yesterday, 52 min": today, yesterday, a weekday within the week, else a date. `session` is the last
/// session's length as text, empty when it is not known.
Message lastPlayedText(const QDateTime &played, const QDateTime &now, const QLocale &locale, const QString &session);

/// "8 Nov", with its year when that is another than today's.
QString shortDate(QDate date, QDate today, const QLocale &locale);
