#include "ui/models/ConsoleListModel.h"

#include "ListHouse.h"

#include <QAbstractItemModelTester>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {
struct Consoles : ListHouse {
    ConsoleListModel model{*store, emulators, preferences, translator, Host::linux};
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};

    QStringList shown() const { return column(model, ConsoleListModel::ConsoleID); }
    QString of(const QString &console, int role) const
    {
        return model.index(model.rowOf(console)).data(role).toString();
    }
};
}

TEST(ConsoleListModel, listsTheCatalogInItsOrder)
{
    Consoles house;
    EXPECT_EQ(house.model.countText(), u"38 consoles"_s);
    EXPECT_EQ(house.shown().first(), u"a2600"_s);
    EXPECT_EQ(house.shown().last(), u"native"_s);
    EXPECT_EQ(house.of(u"snes"_s, ConsoleListModel::Detail), u"Nintendo, 1990"_s);
    EXPECT_EQ(house.of(u"native"_s, ConsoleListModel::Detail), u"Linux, 2026"_s);
}

TEST(ConsoleListModel, filtersByEra)
{
    Consoles house;
    EXPECT_EQ(house.model.eraTexts(), (QStringList{u"All"_s, u"1970s–80s"_s, u"1990s"_s, u"2000s"_s, u"2010s"_s}));
    house.model.setEra(1);
    EXPECT_EQ(house.shown().last(), u"lynx"_s);
    house.model.setEra(2);
    EXPECT_EQ(house.shown().first(), u"snes"_s);
    house.model.setEra(4);
    EXPECT_EQ(house.shown(), (QStringList{u"3ds"_s, u"wiiu"_s, u"ps4"_s, u"switch"_s, u"switch2"_s, u"native"_s}));
    house.model.setEra(99);
    EXPECT_EQ(house.model.era(), 4);
}

TEST(ConsoleListModel, searchesInOneRun)
{
    Consoles house;
    struct Row {
        QString query;
        QStringList found;
    };
    for (const Row &row :
         {Row{u"sony 2006"_s, {u"ps3"_s}}, Row{u"2006 sony"_s, {}}, Row{u"  MEGA--drive "_s, {u"genesis"_s}},
          Row{u"tg cd"_s, {u"tgcd"_s}}, Row{u"linux"_s, {}}}) {
        house.model.setQuery(row.query);
        EXPECT_EQ(house.shown(), row.found) << qPrintable(row.query);
    }
    house.model.setQuery(u"zzz"_s);
    EXPECT_EQ(house.model.noMatchText(), u"No console matches “zzz”"_s);
}

TEST(ConsoleListModel, groupsByMakerInItsOrderAndRemembersIt)
{
    Consoles house;
    house.model.setColumns(4);
    house.model.setByMaker(true);
    EXPECT_EQ(house.model.groupTitles(),
              (QStringList{u"Nintendo"_s, u"Sony"_s, u"Sega"_s, u"Microsoft"_s, u"Atari"_s, u"NEC"_s, u"Philips"_s,
                           u"Linux"_s}));
    EXPECT_EQ(house.shown().first(), u"nes"_s);
    int tiles = 0;
    for (const int size : house.model.groupSizes())
        tiles += size;
    EXPECT_EQ(tiles, 38);
    const int ps1 = house.model.rowOf(u"ps1"_s);
    EXPECT_EQ(house.model.index(ps1).data(ConsoleListModel::Column).toInt(), 0) << "a group begins its own line";
    EXPECT_EQ(house.model.index(ps1).data(ConsoleListModel::Group).toInt(), 1);
    EXPECT_EQ(house.model.index(ps1).data(ConsoleListModel::Line).toInt(), house.model.groupLines()[1]);
    EXPECT_TRUE(Preferences(house.places.preferencesFile()).get(preference::consolesGroupByMaker));
    EXPECT_TRUE(
        ConsoleListModel(*house.store, house.emulators, house.preferences, house.translator, Host::linux).byMaker());
}

TEST(ConsoleListModel, followsTheLibrary)
{
    Consoles house;
    house.model.setOnlyMine(true);
    EXPECT_EQ(house.model.count(), 0);
    const QString game = house.add(u"One"_s, u"ps2"_s);
    EXPECT_EQ(house.shown(), (QStringList{u"ps2"_s}));
    house.add(u"Two"_s, u"ps2"_s);
    EXPECT_EQ(house.of(u"ps2"_s, ConsoleListModel::GamesText), u"2"_s);
    house.store->remove(game);
    house.store->remove(house.store->games().first().id);
    EXPECT_EQ(house.model.count(), 0);
    EXPECT_TRUE(house.preferences.get(preference::consolesOnlyMine));
}

TEST(ConsoleListModel, saysNothingAboutEmulatorsBeforeALook)
{
    Consoles house;
    EXPECT_EQ(house.of(u"gba"_s, ConsoleListModel::StatusText), QString());
    EXPECT_EQ(house.of(u"cdi"_s, ConsoleListModel::StatusText), u"Not available yet"_s);
    EXPECT_EQ(house.of(u"switch"_s, ConsoleListModel::StatusText), u"Native"_s);
    EXPECT_EQ(house.of(u"native"_s, ConsoleListModel::StatusText), u"Native games"_s);

    QFile::setPermissions(house.home.write(u"bin/mgba-qt"_s, "#!/bin/sh\n"),
                          QFile::ReadOwner | QFile::ExeOwner | QFile::WriteOwner);
    house.emulators.refresh();
    EXPECT_EQ(house.of(u"gba"_s, ConsoleListModel::StatusText), u"Ready"_s);
    EXPECT_EQ(house.of(u"gba"_s, ConsoleListModel::StatusDot), u"ok"_s);
    EXPECT_EQ(house.of(u"ps2"_s, ConsoleListModel::StatusText), u"Emulator needed"_s);
}
