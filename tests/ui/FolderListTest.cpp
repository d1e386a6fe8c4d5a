#include "ui/facts/FolderList.h"

#include "ui/ListHouse.h"

#include <QAbstractItemModelTester>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

struct FolderHouse : ListHouse {
    FolderList list{places, tasks, translator};
    QAbstractItemModelTester tester{&list, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST(FolderList, listsFoldersAsPeopleCountAndNoFiles)
{
    FolderHouse house;
    for (const QString &name :
         {u"Games/disc 10/a.bin"_s, u"Games/Disc 2/a.bin"_s, u"Games/.hidden/x"_s, u"Games/b.bin"_s})
        house.home.write(name);
    house.list.open(house.home.path() + u"/Games/"_s);
    EXPECT_EQ(column(house.list, FolderList::Name), (QStringList{u"Disc 2"_s, u"disc 10"_s}));
    EXPECT_EQ(house.list.folderName(), u"~/Games"_s);
    EXPECT_EQ(house.list.parentFolder(), house.home.path());
    house.list.open(house.home.path() + u"/Games/disc 10"_s);
    house.list.open(house.list.parentFolder());
    EXPECT_EQ(house.list.startRow(), 1);
}

TEST(FolderList, listsFilesBehindFoldersAndMarksThem)
{
    FolderHouse house;
    for (const QString &name : {u"bios/b.bin"_s, u"bios/a.bin"_s, u"bios/z/x"_s})
        house.home.write(name);
    const QString folder = house.home.path() + u"/bios/"_s;
    house.list.begin(true);
    EXPECT_EQ(house.list.folder(), house.places.home);
    house.list.open(folder);
    EXPECT_EQ(column(house.list, FolderList::Name), (QStringList{u"z"_s, u"a.bin"_s, u"b.bin"_s}));
    EXPECT_EQ(column(house.list, FolderList::IsFile), (QStringList{u"false"_s, u"true"_s, u"true"_s}));
    house.list.toggle(folder + u"b.bin"_s);
    house.list.toggle(folder + u"a.bin"_s);
    EXPECT_EQ(house.list.marked(), (QStringList{folder + u"b.bin"_s, folder + u"a.bin"_s}));
    EXPECT_EQ(column(house.list, FolderList::Marked), (QStringList{u"false"_s, u"true"_s, u"true"_s}));
    house.list.toggle(folder + u"b.bin"_s);
    house.list.open(folder + u"z"_s);
    EXPECT_EQ(house.list.marked(), QStringList{folder + u"a.bin"_s}) << "marks stay while looking around";
    house.list.begin(true);
    EXPECT_EQ(house.list.marked(), QStringList());
    EXPECT_EQ(house.list.folder() + u'/', folder) << "where files were chosen last";
    house.list.begin(false);
    EXPECT_EQ(house.list.folder(), house.places.home);
}

TEST(FolderList, beginsAtHomeAndEndsAtTheTop)
{
    FolderHouse house;
    house.list.open({});
    EXPECT_EQ(house.list.folder(), house.places.home);
    house.list.open(u"/"_s);
    EXPECT_EQ(house.list.parentFolder(), QString());
    EXPECT_EQ(house.list.index(0).data(FolderList::Path).toString().count(u'/'), 1);
}

TEST(FolderList, saysWhyItIsEmpty)
{
    FolderHouse house;
    house.home.write(u"Games/a.bin"_s);
    house.list.open(house.home.path() + u"/Games"_s);
    EXPECT_EQ(house.list.emptyText(), u"No folders in here. You can add this one."_s);
    house.list.open(house.home.path() + u"/nowhere"_s);
    EXPECT_EQ(house.list.emptyText(), u"This folder can't be read. Choose another one."_s);
}

TEST(FolderList, dropsAListingThatComesTooLate)
{
    FolderHouse house;
    house.home.write(u"One/inside/x"_s);
    house.tasks.immediate = false;
    house.list.open(house.home.path() + u"/One"_s);
    house.list.open(house.home.path() + u"/One/inside"_s);
    std::swap(house.tasks.waiting[0], house.tasks.waiting[1]);
    house.tasks.finish();
    EXPECT_EQ(house.list.rowCount(), 0);
    EXPECT_FALSE(house.list.loading());
}
