#include "app/GameChoice.h"

#include "base/SearchForm.h"

using namespace Qt::StringLiterals;

template <class Fits>
static QList<const GameEntry *> gamesThat(const QList<GameEntry> &games, Fits fits)
{
    QList<const GameEntry *> found;
    for (const GameEntry &game : games) {
        if (fits(game)) found += &game;
    }
    return found;
}

static Message severalFit(const QString &word, const QList<const GameEntry *> &found)
{
    QStringList lines;
    for (const GameEntry *game : found.first(qMin(found.size(), 10)))
        lines += u"  %1  %2 (%3)"_s.arg(game->id, game->title, game->consoleID);
    return {u"Several games fit “%@”. Give the identifier of one:\n%@"_s, {word, lines.join(u'\n')}};
}

Result<QString> chooseGame(const QList<GameEntry> &games, const QString &word)
{
    const QString wanted = searchForm(word);
    auto found = gamesThat(games, [&](const GameEntry &game) { return game.id == word.toUpper(); });
    if (found.isEmpty()) found = gamesThat(games, [&](const GameEntry &game) { return game.title == word; });
    if (found.isEmpty() && !wanted.isEmpty()) {
        found = gamesThat(games, [&](const GameEntry &game) { return searchForm(game.title) == wanted; });
        if (found.isEmpty())
            found = gamesThat(games, [&](const GameEntry &game) { return searchForm(game.title).contains(wanted); });
    }
    if (found.isEmpty())
        return Message{u"There is no game “%@” in the library. “velko list” shows the games, “velko add” adds one."_s,
                       {word}};
    if (found.size() > 1) return severalFit(word, found);
    return found.first()->id;
}
