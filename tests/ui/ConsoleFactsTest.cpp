#include "ui/models/ConsoleFacts.h"

#include "ListHouse.h"

#include <QAbstractItemModelTester>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {
struct Facts : ListHouse {
    ConsoleFacts facts{*store, emulators, translator, places};
    QAbstractItemModelTester tester{facts.emulators(), QAbstractItemModelTester::FailureReportingMode::Fatal};
};
}

TEST(ConsoleFacts, tellWhatTheCatalogKnows)
{
    Facts house;
    house.facts.setConsoleID(u"ps2"_s);
    EXPECT_EQ(house.facts.name(), u"PlayStation 2"_s);
    EXPECT_EQ(house.facts.maker(), u"Sony"_s);
    EXPECT_EQ(house.facts.year(), u"2000"_s);
    EXPECT_EQ(house.facts.gamesTitle(), u"Your PlayStation 2 games"_s);
    EXPECT_EQ(house.facts.extensions(), u"iso, chd, cso, bin, gz"_s);

    EXPECT_EQ(house.facts.gamesText(), u"0 games"_s);
    house.add(u"One"_s, u"ps2"_s);
    house.add(u"Other"_s, u"gb"_s);
    EXPECT_EQ(house.facts.gamesText(), u"1 game"_s);

    house.facts.setConsoleID(u"cdi"_s);
    EXPECT_FALSE(house.facts.takesGames());
    EXPECT_FALSE(house.facts.hasEmulators());
    EXPECT_EQ(house.facts.note(), u"No simple CD-i emulator yet."_s);
    house.facts.setConsoleID(u"nonsense"_s);
    EXPECT_EQ(house.facts.name(), QString());
}

TEST(ConsoleFacts, listEveryCopyOfItsEmulators)
{
    Facts house;
    house.facts.setConsoleID(u"gba"_s);
    EXPECT_EQ(house.facts.emulators()->count(), 0) << "nobody has looked yet";
    EXPECT_EQ(house.facts.statusText(), QString());
    house.emulators.refresh();
    EXPECT_EQ(column(*house.facts.emulators(), EmulatorCopiesModel::Detail),
              (QStringList{u"Not installed"_s, u"Not installed"_s}));
    EXPECT_EQ(house.facts.statusText(), u"Emulator needed"_s);
    EXPECT_EQ(house.facts.emulatorHint(), u"Install one of these, and the games can be played."_s);

    QFile::setPermissions(house.home.write(u"bin/mgba-qt"_s, "#!/bin/sh\n"),
                          QFile::ReadOwner | QFile::ExeOwner | QFile::WriteOwner);
    house.emulators.refresh();
    EXPECT_EQ(column(*house.facts.emulators(), EmulatorCopiesModel::Name), (QStringList{u"mGBA"_s, u"RetroArch"_s}));
    EXPECT_EQ(column(*house.facts.emulators(), EmulatorCopiesModel::Path),
              (QStringList{u"~/bin/mgba-qt"_s, QString()}));
    EXPECT_EQ(column(*house.facts.emulators(), EmulatorCopiesModel::InUse), (QStringList{u"true"_s, u"false"_s}));
    EXPECT_EQ(house.facts.statusText(), u"Ready"_s);
    EXPECT_EQ(house.facts.emulatorHint(), QString());
}
