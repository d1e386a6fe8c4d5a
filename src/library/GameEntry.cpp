#include "library/GameEntry.h"

#include "base/DayKey.h"

#include <QUuid>

QString newGameID()
{
    return QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
}

static bool isHex(QChar c)
{
    return (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'F') || (c >= u'a' && c <= u'f');
}

std::optional<QString> gameID(QStringView text)
{
    if (text.size() != 36) return {};
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool dash = i == 8 || i == 13 || i == 18 || i == 23;
        if (dash ? text[i] != u'-' : !isHex(text[i])) return {};
    }
    return text.toString().toUpper();
}

void addPlayTime(GameEntry &game, double seconds, const QDateTime &moment)
{
    if (!(seconds > 0)) return;
    game.playSeconds = game.playSeconds.value_or(0) + seconds;
    if (!game.daily) game.daily.emplace();
    (*game.daily)[dayKey(moment)] += seconds;
}
