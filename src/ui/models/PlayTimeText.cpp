#include "ui/models/PlayTimeText.h"

#include <algorithm>

using namespace Qt::StringLiterals;

Message playTimeText(double seconds)
{
    if (!(seconds > 0)) return {u"Never played"_s, {}};
    const qint64 minutes = std::max<qint64>(1, qint64(seconds / 60));
    if (minutes < 60) return {u"%ld min"_s, {QString::number(minutes)}};
    return {u"%ld h %@ min"_s, {QString::number(minutes / 60), u"%1"_s.arg(minutes % 60, 2, 10, QChar(u'0'))}};
}
