#include "ui/facts/ProfileFacts.h"

#include "app/Translator.h"
#include "ui/facts/PlayDayBars.h"
#include "ui/models/CoverFamily.h"
#include "ui/models/CoverSource.h"
#include "ui/models/PlayTimeText.h"

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

static constexpr int listLength = 5;

QList<MostPlayed> mostPlayed(const QList<GameEntry> &games, int length)
{
    QList<MostPlayed> played;
    for (const GameEntry &game : games) {
        if (game.playSeconds.value_or(0) > 0) played += {game.id, *game.playSeconds};
    }
    const qsizetype shown = qMin<qsizetype>(length, played.size());
    std::partial_sort(played.begin(), played.begin() + shown, played.end(),
                      [](const MostPlayed &one, const MostPlayed &other) {
                          return std::tie(other.seconds, one.gameID) < std::tie(one.seconds, other.gameID);
                      });
    played.resize(shown);
    for (MostPlayed &game : played)
        game.share = game.seconds / played.first().seconds;
    return played;
}

ProfileFacts::ProfileFacts(const LibraryStore &library, const Translator &translator, const Clock &clock,
                           QObject *parent)
    : QObject(parent), m_library(library), m_translator(translator), m_clock(clock)
{
    connect(&m_library, &LibraryStore::gamesChanged, this, &ProfileFacts::update);
    connect(&m_library, &LibraryStore::libraryReplaced, this, &ProfileFacts::update);
}

void ProfileFacts::setActive(bool active)
{
    if (active == m_active) return;
    m_active = active;
    update();
    emit activeChanged();
}

/// Whole hours once there are many.
static QString total(double seconds, const Translator &translator)
{
    constexpr double manyHours = 10 * 3600;
    if (seconds >= manyHours)
        return translator.fill(u"%@ h"_s, {localeOf(translator).toString(qint64(seconds / 3600))});
    return seconds > 0 ? translator.message(playTimeText(seconds)) : u"0 min"_s;
}

static QVariantList figuresOf(const QList<GameEntry> &games, const Translator &translator)
{
    double seconds = 0;
    qint64 sessions = 0, played = 0;
    for (const GameEntry &game : games) {
        seconds += qMax(0.0, game.playSeconds.value_or(0));
        sessions += qMax<qint64>(0, game.sessionCount.value_or(0));
        played += game.playSeconds.value_or(0) > 0;
    }
    const auto figure = [&](const QString &value, const QString &text) {
        return QVariantMap{{u"value"_s, value}, {u"text"_s, translator.translate(text)}};
    };
    const QLocale locale = localeOf(translator);
    return {figure(total(seconds, translator), u"Play time"_s), figure(locale.toString(sessions), u"Sessions"_s),
            figure(locale.toString(played), u"Games played"_s), figure(locale.toString(games.size()), u"Games"_s)};
}

static QVariantList statusesOf(const QList<GameEntry> &games, const Translator &translator)
{
    static const QList<QPair<GameStatus, QString>> dots{
        {GameStatus::playing, u"ok"_s}, {GameStatus::backlog, u"warn"_s}, {GameStatus::completed, u"info"_s}};
    QVariantList statuses;
    for (const auto &[status, dot] : dots) {
        const auto count = std::count_if(games.begin(), games.end(),
                                         [status = status](const GameEntry &game) { return game.status == status; });
        if (count == 0) continue;
        statuses += QVariantMap{{u"text"_s, translator.translate(title(status)) + u' ' + QString::number(count)},
                                {u"dot"_s, dot}};
    }
    return statuses;
}

void ProfileFacts::update()
{
    if (!m_active) return;
    const auto &games = m_library.games();
    m_figures = figuresOf(games, m_translator);
    m_statuses = statusesOf(games, m_translator);

    const QDate today = m_clock.now().date();
    const auto days = lastDays(dailyTotals(games, today.addDays(-6)), today, 7);
    m_week = playDayBars(days, today, m_translator);
    const double seconds = std::accumulate(days.begin(), days.end(), 0.0,
                                           [](double sum, const PlayDay &day) { return sum + day.seconds; });
    m_weekTime = seconds > 0 ? m_translator.message(playTimeText(seconds)) : u"0 min"_s;

    m_mostPlayed.clear();
    for (const MostPlayed &played : ::mostPlayed(games, listLength)) {
        const GameEntry *game = m_library.game(played.gameID);
        if (!game) continue;
        m_mostPlayed += QVariantMap{{u"gameID"_s, game->id},
                                    {u"title"_s, game->title},
                                    {u"cover"_s, coverSource(*game)},
                                    {u"consoleID"_s, game->consoleID},
                                    {u"ratio"_s, heightRatio(coverFamily(game->consoleID))},
                                    {u"time"_s, total(played.seconds, m_translator)},
                                    {u"share"_s, played.share}};
    }
    emit changed();
}
