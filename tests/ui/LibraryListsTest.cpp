#include "ui/models/LibraryLists.h"

#include "ListHouse.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(LibraryLists, keepTheUsersChoices)
{
    ListHouse house;
    house.add(u"One"_s, u"ps2"_s);
    {
        LibraryLists lists(*house.store, house.emulators, house.state, house.preferences, house.translator,
                           house.places);
        lists.games()->setSort(u"title"_s);
        lists.games()->setFilter(u"console:ps2"_s);
        EXPECT_EQ(lists.consoleGames()->sort(), u"title"_s) << "one order for both screens";
    }
    LibraryLists lists(*house.store, house.emulators, house.state, house.preferences, house.translator, house.places);
    EXPECT_EQ(lists.games()->sort(), u"title"_s);
    EXPECT_EQ(lists.games()->filter(), u"console:ps2"_s);
    EXPECT_EQ(lists.games()->heading(), u"PlayStation 2"_s);
}

TEST(LibraryLists, followSearchAndSelectedConsole)
{
    ListHouse house;
    const QString one = house.add(u"One"_s, u"ps2"_s);
    house.add(u"Two"_s, u"gb"_s);
    LibraryLists lists(*house.store, house.emulators, house.state, house.preferences, house.translator, house.places);
    house.state.setProperty("search", u"two"_s);
    EXPECT_EQ(lists.games()->count(), 1);
    EXPECT_EQ(lists.consoleGames()->count(), 2);
    house.state.setProperty("selectedConsole", u"ps2"_s);
    EXPECT_EQ(column(*lists.consoleGames(), GameListModel::GameID), (QStringList{one}));
    EXPECT_EQ(lists.console()->name(), u"PlayStation 2"_s);
    lists.toggleFavorite(one);
    EXPECT_EQ(house.store->game(one)->favorite, true);
    lists.toggleFavorite(one);
    EXPECT_EQ(house.store->game(one)->favorite, false);
    lists.toggleFavorite(u"nonsense"_s);
}
