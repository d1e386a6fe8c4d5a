#include "ui/demo/DemoLibrary.h"

#include "base/DayKey.h"

#include <QRandomGenerator>

using namespace Qt::StringLiterals;

struct DemoTitle {
    const char16_t *title;
    const char16_t *consoleID;
};

static const DemoTitle titles[] = {
    {u"Lanterns of Oro", u"ps2"},
    {u"Kestrel Valley", u"ps2"},
    {u"The Clockmaker's Garden", u"snes"},
    {u"Nine Moons Rally", u"ps2"},
    {u"Velvet Static", u"dc"},
    {u"Saltmarsh Courier", u"gc"},
    {u"Dune Cartographer", u"ps3"},
    {u"Paper Meridian", u"gba"},
    {u"Mothlamp Hotel", u"ps2"},
    {u"Tin Parade", u"ps2"},
    {u"Little Thunder", u"nes"},
    {u"Polar Drift 99", u"n64"},
    {u"Glasswing Harbor", u"gc"},
    {u"Quiet Orbit", u"ps1"},
    {u"Comet Ferry", u"ps1"},
    {u"Radish", u"gb"},
    {u"Night Bus to Varga", u"ps2"},
    {u"Gravel Hearts", u"ps3"},
    {u"Origami Fleet", u"nds"},
    {u"Wicker City", u"n64"},
    {u"Brass Orchard", u"wii"},
    {u"Marrow & Moss", u"ps2"},
    {u"Amaranth Line", u"ps2"},
    {u"Lull", u"gba"},
    {u"Hushwater", u"dc"},
    {u"Sparrow Protocol", u"psp"},
    {u"Cinder Postman", u"ps1"},
    {u"A Short Walk Beyond the Edge of the Known Cartography, Part Two: The Return of the Surveyor's Daughter", u"ps1"},
    {u"Bramble Knights", u"snes"},
    {u"Copper Lighthouse", u"saturn"},
    {u"Driftwood Detective", u"nds"},
    {u"Echo Bakery", u"gbc"},
    {u"Fathom Racers", u"dc"},
    {u"Gilded Turnip", u"gb"},
    {u"Halcyon Drill", u"genesis"},
    {u"Iron Kite", u"genesis"},
    {u"Juniper Signal", u"psp"},
    {u"Kiln & Kettle", u"wii"},
    {u"Lost Umbrella Office", u"gba"},
    {u"Mercury Tram", u"sms"},
    {u"North of Tomorrow", u"xbox"},
    {u"Ostrich Express", u"n64"},
    {u"Pocket Tides", u"gg"},
    {u"Quartz Ballroom", u"ps1"},
    {u"Rookwood Relay", u"gc"},
    {u"Snowdrop Siege", u"snes"},
    {u"Tangerine Dynamo", u"tg16"},
    {u"Under the Blue Silo", u"ps2"},
    {u"Violet Excavator", u"nes"},
    {u"Windup Archipelago", u"3ds"},
    {u"Yellow Telegram", u"gbc"},
    {u"Zephyr Locksmith", u"gba"},
    {u"Acorn Regatta", u"wiiu"},
    {u"Bellwether Blues", u"psp"},
    {u"Cloud Ledger", u"lynx"},
    {u"Dovetail", u"vb"},
    {u"Emberline", u"ps3"},
    {u"Foxglove Junction", u"3ds"},
    {u"Gingham Starship", u"a7800"},
    {u"Harvest Radio", u"snes"},
    {u"Inkwell Sonata", u"nds"},
    {u"Jigsaw Monsoon", u"saturn"},
    {u"Kelp Forest Patrol", u"jaguar"},
    {u"Lamplighter's Union", u"segacd"},
};

static double seconds(const QDateTime &moment)
{
    return ReferenceDate::from(moment).seconds;
}

/// Spreads play time over days of the last weeks.
static void play(GameEntry &game, const QDateTime &now, QRandomGenerator &dice)
{
    QMap<QString, double> daily;
    const int sessions = 1 + int(dice.bounded(8));
    int daysAgo = 1 + int(dice.bounded(game.favorite ? 6 : 30));
    double all = 0;
    for (int i = 0; i < sessions; ++i) {
        const double length = 120 + dice.bounded(4000);
        const QDateTime moment = now.addDays(-daysAgo).addSecs(-qint64(dice.bounded(5000)));
        if (i == 0) {
            game.lastPlayed = ReferenceDate{seconds(moment)};
            game.lastSessionSeconds = length;
        }
        daily[dayKey(moment)] += length;
        all += length;
        daysAgo += 1 + int(dice.bounded(3));
    }
    game.playSeconds = all;
    game.sessionCount = sessions;
    game.daily = daily;
}

static GameEntry demoGame(int index, const QDateTime &now, const QString &folder, QRandomGenerator &dice)
{
    const int known = int(std::size(titles));
    const DemoTitle &source = titles[index % known];
    GameEntry game;
    game.id = u"00000000-0000-4000-8000-%1"_s.arg(index, 12, 16, QLatin1Char('0')).toUpper();
    game.title = QString::fromUtf16(source.title);
    if (index >= known) game.title += u' ' + QString::number(index / known + 1);
    game.consoleID = QString::fromUtf16(source.consoleID);
    game.path = folder + u'/' + game.consoleID + u'/' + game.title + u".bin"_s;
    game.sourceFolder = folder;
    game.addedAt = ReferenceDate{seconds(now.addDays(-40).addSecs(index * 60))};
    if (dice.bounded(9) == 0) game.favorite = true;
    if (dice.bounded(3) == 0) game.status = GameStatus(dice.bounded(3));
    if (index < 12 || dice.bounded(4) == 0) play(game, now, dice);
    return game;
}

QList<GameEntry> demoGames(int count, const QDateTime &now, const QString &folder)
{
    QRandomGenerator dice(7);
    QList<GameEntry> games;
    games.reserve(count);
    for (int i = 0; i < count; ++i)
        games += demoGame(i, now, folder, dice);
    if (count > 0) {
        GameEntry &hero = games.first();
        play(hero, now, dice);
        hero.status = GameStatus::playing;
        hero.lastPlayed = ReferenceDate{seconds(now.addSecs(-3 * 3600))};
        (*hero.daily)[dayKey(now)] += 3120;
        hero.statePath = folder + u"/ps2/state.p2s"_s;
        hero.stateSavedAt = hero.lastPlayed;
    }
    return games;
}
