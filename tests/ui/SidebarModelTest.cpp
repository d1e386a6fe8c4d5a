#include "ui/models/SidebarModel.h"

#include "ListHouse.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {
struct Sidebar : ListHouse {
    SidebarModel model{*store, translator, Host::linux};
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};

    QString rows() const
    {
        const QStringList texts = column(model, SidebarModel::Text);
        const QStringList counts = column(model, SidebarModel::CountText);
        QStringList rows;
        for (qsizetype i = 0; i < texts.size(); ++i)
            rows += counts[i].isEmpty() ? u"# "_s + texts[i] : texts[i] + u' ' + counts[i];
        return rows.join(u", "_s);
    }
};
}

TEST(SidebarModel, countsAndListsConsolesThatHaveGames)
{
    Sidebar house;
    EXPECT_EQ(house.rows(), u"All games 0, Favorites 0, # Status, Playing 0, To finish 0, Completed 0"_s);
    const QString ps2 = house.add(u"One"_s, u"ps2"_s);
    house.add(u"Two"_s, u"nes"_s);
    house.add(u"Three"_s, u"nes"_s);
    house.add(u"Four"_s, u"unheardOf"_s);
    house.store->setFavorite(ps2, true);
    house.store->setStatus(ps2, GameStatus::completed);
    EXPECT_EQ(
        house.rows(),
        u"All games 4, Favorites 1, # Status, Playing 0, To finish 0, Completed 1, # Consoles, Nintendo (NES) 2, PlayStation 2 1"_s);
    house.store->remove(ps2);
    EXPECT_EQ(
        house.rows(),
        u"All games 3, Favorites 0, # Status, Playing 0, To finish 0, Completed 0, # Consoles, Nintendo (NES) 2"_s);
    for (int i = 0; i < 3; ++i)
        house.store->remove(house.store->games().first().id);
    EXPECT_EQ(house.rows(), u"All games 0, Favorites 0, # Status, Playing 0, To finish 0, Completed 0"_s);
}

TEST(SidebarModel, aChangeTouchesOnlyItsRows)
{
    Sidebar house;
    const QString id = house.add(u"One"_s, u"gb"_s);
    QSignalSpy changes(&house.model, &QAbstractItemModel::dataChanged);
    QSignalSpy resets(&house.model, &QAbstractItemModel::modelReset);
    house.store->setFavorite(id, true);
    EXPECT_EQ(changes.size(), 1);
    house.store->setTitle(id, u"Other"_s);
    EXPECT_EQ(changes.size(), 1);
    EXPECT_EQ(resets.size(), 0);
}
