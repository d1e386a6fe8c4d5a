#include "ui/models/HomeGames.h"

#include <algorithm>

/// Of the games that `admits` lets in, the first `most` in the order of `before`.
template <class Admits, class Before>
static QStringList first(const QList<GameEntry> &games, int most, Admits admits, Before before)
{
    QList<const GameEntry *> chosen;
    for (const GameEntry &game : games) {
        if (admits(game)) chosen += &game;
    }
    const auto end = chosen.begin() + std::min<qsizetype>(most, chosen.size());
    std::partial_sort(chosen.begin(), end, chosen.end(),
                      [before](const GameEntry *a, const GameEntry *b) { return before(*a, *b); });
    QStringList ids;
    for (auto game = chosen.begin(); game != end; ++game)
        ids += (*game)->id;
    return ids;
}

QStringList recentlyPlayed(const QList<GameEntry> &games, int most)
{
    return first(
        games, most, [](const GameEntry &game) { return game.lastPlayed.has_value(); },
        [](const GameEntry &a, const GameEntry &b) { return *a.lastPlayed > *b.lastPlayed; });
}

QStringList recentlyAdded(const QList<GameEntry> &games, int most)
{
    return first(
        games, most, [](const GameEntry &) { return true; },
        [](const GameEntry &a, const GameEntry &b) { return a.addedAt > b.addedAt; });
}

QStringList favoriteGames(const QList<GameEntry> &games, int most)
{
    return first(
        games, most, [](const GameEntry &game) { return game.favorite.value_or(false); },
        [](const GameEntry &a, const GameEntry &b) { return a.title.compare(b.title, Qt::CaseInsensitive) < 0; });
}
