#include "ui/facts/PlayDayBars.h"

#include "app/Translator.h"
#include "ui/facts/LastPlayedText.h"
#include "ui/models/PlayTimeText.h"

using namespace Qt::StringLiterals;

QLocale localeOf(const Translator &translator)
{
    // Dates read "8 Nov" in English whatever the country.
    const QString language = code(translator.language());
    return QLocale(language == u"en" ? u"en_GB"_s : language);
}

QVariantList playDayBars(const QList<PlayDay> &days, QDate today, const Translator &translator)
{
    const QLocale locale = localeOf(translator);
    QVariantList bars;
    for (const PlayDay &day : days) {
        const bool isToday = day.day == today;
        const int weekday = day.day.dayOfWeek();
        bars += QVariantMap{
            {u"label"_s,
             isToday ? translator.translate(u"Today"_s) : locale.standaloneDayName(weekday, QLocale::ShortFormat)},
            {u"name"_s, shortDate(day.day, today, locale)},
            {u"time"_s, day.seconds > 0 ? translator.message(playTimeText(day.seconds)) : u"0 min"_s},
            {u"share"_s, day.share},
            {u"today"_s, isToday}};
    }
    return bars;
}
