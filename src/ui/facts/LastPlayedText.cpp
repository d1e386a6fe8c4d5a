#include "ui/facts/LastPlayedText.h"

#include <QTimeZone>

using namespace Qt::StringLiterals;

QString shortDate(QDate date, QDate today, const QLocale &locale)
{
    return locale.toString(date, date.year() == today.year() ? u"d MMM"_s : u"d MMM yyyy"_s);
}

Message lastPlayedText(const QDateTime &played, const QDateTime &now, const QLocale &locale, const QString &session)
{
    const QDate day = played.toTimeZone(now.timeZone()).date();
    const qint64 ago = day.daysTo(now.date());
    QStringList arguments;
    QString text;
    // A day that lies ahead comes from a clock that was wrong: its date says what is known.
    if (ago == 0) {
        text = session.isEmpty() ? u"Last played today"_s : u"Last played today, %@"_s;
    } else if (ago == 1) {
        text = session.isEmpty() ? u"Last played yesterday"_s : u"Last played yesterday, %@"_s;
    } else {
        text = session.isEmpty() ? u"Last played %@"_s : u"Last played %@, %@"_s;
        const bool thisWeek = ago > 1 && ago < 7;
        arguments += thisWeek ? locale.standaloneDayName(day.dayOfWeek()) : shortDate(day, now.date(), locale);
    }
    if (!session.isEmpty()) arguments += session;
    return {text, arguments};
}
