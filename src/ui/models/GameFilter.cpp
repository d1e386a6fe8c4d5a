#include "ui/models/GameFilter.h"

using namespace Qt::StringLiterals;

static const auto consolePrefix = u"console:"_s;

static QString name(GameStatus status)
{
    switch (status) {
    case GameStatus::playing:
        return u"playing"_s;
    case GameStatus::backlog:
        return u"backlog"_s;
    case GameStatus::completed:
        return u"completed"_s;
    }
    return {};
}

GameFilter gameFilterFromText(const QString &text)
{
    if (text == "favorites"_L1) return {.favorites = true};
    for (const GameStatus status : {GameStatus::playing, GameStatus::backlog, GameStatus::completed}) {
        if (text == name(status)) return {.status = status};
    }
    if (text.startsWith(consolePrefix)) return {.consoleID = text.mid(consolePrefix.size())};
    return {};
}

QString toText(const GameFilter &filter)
{
    if (filter.favorites) return u"favorites"_s;
    if (filter.status) return name(*filter.status);
    return filter.consoleID.isEmpty() ? u"all"_s : consolePrefix + filter.consoleID;
}

bool admits(const GameFilter &filter, const GameEntry &game)
{
    if (filter.favorites && !game.favorite.value_or(false)) return false;
    if (filter.status && game.status != filter.status) return false;
    return filter.consoleID.isEmpty() || game.consoleID == filter.consoleID;
}
