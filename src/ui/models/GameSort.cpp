#include "ui/models/GameSort.h"

using namespace Qt::StringLiterals;

const QList<GameSort> &gameSorts()
{
    static const QList<GameSort> sorts{GameSort::lastPlayed, GameSort::title, GameSort::added, GameSort::playTime,
                                       GameSort::console};
    return sorts;
}

QString name(GameSort sort)
{
    switch (sort) {
    case GameSort::lastPlayed:
        return u"lastPlayed"_s;
    case GameSort::title:
        return u"title"_s;
    case GameSort::added:
        return u"added"_s;
    case GameSort::playTime:
        return u"playTime"_s;
    case GameSort::console:
        return u"console"_s;
    }
    return {};
}

QString displayText(GameSort sort)
{
    switch (sort) {
    case GameSort::lastPlayed:
        return u"Last played"_s;
    case GameSort::title:
        return u"Title"_s;
    case GameSort::added:
        return u"Date added"_s;
    case GameSort::playTime:
        return u"Play time"_s;
    case GameSort::console:
        return u"Console"_s;
    }
    return {};
}

GameSort gameSortNamed(const QString &name)
{
    for (const GameSort sort : gameSorts()) {
        if (::name(sort) == name) return sort;
    }
    return GameSort::lastPlayed;
}

double sortNumber(const GameEntry &game, GameSort sort, int consoleIndex)
{
    // Games that were never played come after all others, the newest first.
    constexpr double afterEverything = 1e12;
    switch (sort) {
    case GameSort::lastPlayed:
        return game.lastPlayed ? -game.lastPlayed->seconds : afterEverything - game.addedAt.seconds;
    case GameSort::added:
        return -game.addedAt.seconds;
    case GameSort::playTime:
        return -game.playSeconds.value_or(0);
    case GameSort::console:
        return consoleIndex;
    case GameSort::title:
        return 0;
    }
    return 0;
}

/// The run of digits that begins at `from`, without leading zeros.
static QStringView digitsAt(QStringView text, qsizetype from)
{
    qsizetype end = from;
    while (end < text.size() && text[end].isDigit())
        ++end;
    while (from + 1 < end && text[from] == u'0')
        ++from;
    return text.mid(from, end - from);
}

static qsizetype endOf(QStringView part, QStringView whole)
{
    return part.end() - whole.begin();
}

int compareTitles(QStringView a, QStringView b)
{
    qsizetype i = 0;
    qsizetype j = 0;
    while (i < a.size() && j < b.size()) {
        if (a[i].isDigit() && b[j].isDigit()) {
            const QStringView left = digitsAt(a, i);
            const QStringView right = digitsAt(b, j);
            if (left.size() != right.size()) return left.size() < right.size() ? -1 : 1;
            if (const int order = left.compare(right)) return order;
            i = endOf(left, a);
            j = endOf(right, b);
        } else {
            if (a[i] != b[j]) return a[i] < b[j] ? -1 : 1;
            ++i;
            ++j;
        }
    }
    return int(a.size() - i) - int(b.size() - j);
}
