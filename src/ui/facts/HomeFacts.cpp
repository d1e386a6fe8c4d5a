#include "ui/facts/HomeFacts.h"

#include "app/Translator.h"
#include "ui/CopyText.h"
#include "ui/facts/PlayDayBars.h"
#include "ui/models/HomeGames.h"
#include "ui/models/PlayTimeText.h"

#include <numeric>

using namespace Qt::StringLiterals;

static constexpr int shelfLength = 24;

HomeFacts::HomeFacts(const GameFacts::Sources &sources, const Places &places, QObject *parent)
    : QObject(parent), m_places(places), m_library(sources.library), m_translator(sources.translator),
      m_clock(sources.clock), m_hero(sources), m_recent(sources.library, sources.host),
      m_favorites(sources.library, sources.host)
{
    connect(&m_library, &LibraryStore::gamesChanged, this, &HomeFacts::update);
    connect(&m_library, &LibraryStore::libraryReplaced, this, &HomeFacts::update);
    connect(&m_library, &LibraryStore::runningChanged, this, &HomeFacts::update);
    connect(&m_library, &LibraryStore::romFoldersChanged, this, &HomeFacts::foldersChanged);
}

void HomeFacts::setActive(bool active)
{
    if (active == m_active) return;
    m_active = active;
    update();
    emit activeChanged();
}

QString HomeFacts::folders() const
{
    QStringList lines;
    for (const QString &folder : m_library.romFolders())
        lines += fromHome(folder, m_places);
    return lines.join(u'\n');
}

void HomeFacts::update()
{
    if (!m_active) return;
    const auto &games = m_library.games();
    const QStringList played = recentlyPlayed(games, shelfLength + 1);
    // The only game that was ever played leaves the shelf to the others.
    const bool showsPlayed = played.size() > 1;
    QStringList shelf = showsPlayed ? played : recentlyAdded(games, shelfLength + 1);
    const QString hero = played.isEmpty() ? shelf.value(0) : played.first();
    m_hero.setGameID(hero);
    shelf.removeOne(hero); // it stands above the shelf already
    m_recent.show(shelf.first(qMin<qsizetype>(shelf.size(), shelfLength)));
    m_recentTitle = m_translator.translate(showsPlayed ? u"Recently played"_s : u"Recently added"_s);
    m_favorites.show(favoriteGames(games, shelfLength));

    const QDate today = m_clock.now().date();
    const auto days = lastDays(dailyTotals(games, today.addDays(-6)), today, 7);
    m_week = playDayBars(days, today, m_translator);
    const double seconds = std::accumulate(days.begin(), days.end(), 0.0,
                                           [](double sum, const PlayDay &day) { return sum + day.seconds; });
    m_weekTime = seconds > 0 ? m_translator.message(playTimeText(seconds)) : u"0 min"_s;
    emit changed();
}
