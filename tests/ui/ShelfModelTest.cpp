#include "ui/models/ShelfModel.h"

#include "ui/ListHouse.h"

#include <QAbstractItemModelTester>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(ShelfModel, keepsRowsThatStay)
{
    ListHouse house;
    const QString a = house.add(u"A"_s, u"gba"_s), b = house.add(u"B"_s, u"snes"_s), c = house.add(u"C"_s, u"ps2"_s);
    ShelfModel model(*house.store, Host::linux);
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    model.show({a, b});
    const QPersistentModelIndex place(model.index(1)); // where a view's current item is
    model.show({c, b, a});
    EXPECT_EQ(column(model, ShelfModel::Title), (QStringList{u"C"_s, u"B"_s, u"A"_s}));
    EXPECT_EQ(place.data(ShelfModel::GameID).toString(), b);
    model.show({b});
    EXPECT_EQ(place.row(), 0);
    model.show({});
    EXPECT_FALSE(place.isValid());
    model.show({a});
    EXPECT_EQ(model.count(), 1);
}

TEST(ShelfModel, outlivesAGameThatIsRemoved)
{
    ListHouse house;
    const QString id = house.add(u"A"_s, u"gba"_s);
    ShelfModel model(*house.store, Host::linux);
    model.show({id});
    EXPECT_DOUBLE_EQ(model.index(0).data(ShelfModel::Ratio).toDouble(), 1);
    house.store->remove(id);
    EXPECT_EQ(model.index(0).data(ShelfModel::Title).toString(), QString());
}
