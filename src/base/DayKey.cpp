#include "base/DayKey.h"

QString dayKey(const QDateTime &moment)
{
    return moment.date().toString(Qt::ISODate);
}
