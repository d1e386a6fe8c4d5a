#include "ui/DroppedItems.h"

#include "fakes/TemporaryHome.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(DroppedItems, areWhatLiesOnThisComputer)
{
    const TemporaryHome home;
    const QString file = home.write(u"roms/a b #1 100%.gba"_s);
    const QString folder = home.path() + u"/roms"_s;
    const auto items =
        droppedItems({QUrl::fromLocalFile(file), QUrl::fromLocalFile(folder + u'/'), QUrl::fromLocalFile(folder),
                      QUrl(u"https://example.org/a.gba"_s), QUrl::fromLocalFile(home.path() + u"/gone.gba"_s), QUrl()});
    EXPECT_EQ(items, (DroppedItems{{folder}, {file}}));
}
