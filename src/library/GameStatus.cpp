#include "library/GameStatus.h"

using namespace Qt::StringLiterals;

QString title(GameStatus status)
{
    switch (status) {
    case GameStatus::playing:
        return u"Playing"_s;
    case GameStatus::backlog:
        return u"To finish"_s;
    case GameStatus::completed:
        return u"Completed"_s;
    }
    Q_UNREACHABLE();
}

std::optional<GameStatus> gameStatusTitled(const QString &text)
{
    for (const GameStatus status : {GameStatus::playing, GameStatus::backlog, GameStatus::completed}) {
        if (title(status) == text) return status;
    }
    return {};
}
