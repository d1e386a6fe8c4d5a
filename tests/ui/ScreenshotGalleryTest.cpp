#include "ui/shots/ScreenshotGallery.h"

#include "fakes/FakeTrash.h"
#include "ui/ListHouse.h"
#include "ui/shots/ShotPicture.h"

#include <QAbstractItemModelTester>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

struct ScreenshotGalleryTest : testing::Test {
    ListHouse house;
    FakeTrash trash;
    ScreenshotStore store{house.places, house.tasks, trash, *house.store};
    ScreenshotGallery gallery{store, house.workspace, house.places, QLocale(u"en_GB"_s)};
    QAbstractItemModelTester tester{gallery.groups(), QAbstractItemModelTester::FailureReportingMode::Warning};

    QString put(const QString &title, int minute)
    {
        const QString folder = screenshotFolder(house.places.pictures);
        QDir().mkpath(folder);
        const QString file = folder + u"/%1 2026-11-09 21.%2.00.png"_s.arg(title, QString::number(100 + minute).mid(1));
        QImage picture(64, 36, QImage::Format_RGB32);
        picture.fill(minute % 2 ? Qt::red : Qt::blue);
        picture.save(file);
        return file;
    }
    QStringList titles() { return column(*gallery.groups(), ShotGroupModel::Title); }
};

TEST_F(ScreenshotGalleryTest, readsTheFolderWhenItIsShown)
{
    put(u"Lanterns"_s, 5);
    store.load();
    EXPECT_TRUE(titles().isEmpty());
    gallery.setActive(true);
    EXPECT_EQ(titles(), QStringList{u"Lanterns"_s});
    store.add(put(u"Comet"_s, 9));
    store.add(put(u"Lanterns"_s, 7));
    EXPECT_EQ(titles(), (QStringList{u"Comet"_s, u"Lanterns"_s})) << "that of the newest picture first";
    EXPECT_EQ(gallery.groups()->shotsOf(u"Lanterns"_s)->count(), 2);
}

TEST_F(ScreenshotGalleryTest, theViewerStaysWithinItsGame)
{
    for (int minute : {1, 2, 3})
        put(u"Lanterns"_s, minute);
    put(u"Comet"_s, 4);
    gallery.setActive(true);
    gallery.view(u"Nobody"_s, 0);
    gallery.view(u"Lanterns"_s, 3);
    EXPECT_FALSE(gallery.viewing());
    gallery.view(u"Lanterns"_s, 2);
    EXPECT_EQ(gallery.dateText(), u"9 Nov 2026, 21:01"_s);
    gallery.setIndex(3);
    gallery.setIndex(-1);
    EXPECT_EQ(gallery.index(), 2);
    gallery.setIndex(1);
    EXPECT_EQ(gallery.dateText(), u"9 Nov 2026, 21:02"_s);
    store.add(put(u"Lanterns"_s, 9));
    EXPECT_EQ(gallery.dateText(), u"9 Nov 2026, 21:02"_s) << "a new one pushes nothing away";
    gallery.close();
    EXPECT_FALSE(gallery.viewing());
    EXPECT_EQ(gallery.source(), QString());
}

TEST_F(ScreenshotGalleryTest, removesAfterTheQuestionAndShowsTheNeighbour)
{
    for (int minute : {1, 2})
        put(u"Lanterns"_s, minute);
    gallery.setActive(true);
    gallery.view(u"Lanterns"_s, 1);
    gallery.askForShown();
    EXPECT_TRUE(gallery.asking());
    gallery.answer(false);
    EXPECT_EQ(store.count(), 2);
    gallery.askForShown();
    gallery.answer(true);
    ASSERT_EQ(trash.moved.size(), 1);
    EXPECT_TRUE(trash.moved.first().endsWith(u"21.01.00.png"_s));
    EXPECT_EQ(gallery.index(), 0);
    gallery.askForShown();
    gallery.answer(true);
    EXPECT_FALSE(gallery.viewing()) << "nothing left to view";
    EXPECT_TRUE(titles().isEmpty());
}

TEST(ShotPicture, readsAddressesOfItsOwnFolderOnly)
{
    EXPECT_EQ(shotRequest(u"A%20b.png/288x162/12"_s), (ShotRequest{u"A b.png"_s, {288, 162}, false, 12}));
    EXPECT_EQ(shotRequest(u"A.png/whole/1920x1080"_s), (ShotRequest{u"A.png"_s, {1920, 1080}, true, 0}));
    const QString odd = u"/p/.a 100% #1? ü.png"_s;
    EXPECT_EQ(shotRequest(shotSource(odd) + u"/whole/8x8"_s)->name, u".a 100% #1? ü.png"_s);
    for (const QString &wrong : {u"..%2Fsecret.png/288x162/12"_s, u"../secret.png/whole/9x9"_s, u"../whole/9x9"_s,
                                 u"A.png/0x9/1"_s, u"A.png/whole/9999x9"_s, u"A.png"_s, u""_s})
        EXPECT_FALSE(shotRequest(wrong)) << qPrintable(wrong);
}

TEST(ShotPicture, smallOnesAreKeptUntilTheirOriginalChanges)
{
    const TemporaryHome home;
    const QString cache = home.path() + u"/cache"_s;
    const QString file = home.path() + u"/a.png"_s;
    const auto write = [&](QColor color, QSize size) {
        QImage picture(size, QImage::Format_RGB32);
        picture.fill(color);
        picture.save(file);
    };
    const auto centre = [&](const ShotRequest &request) {
        const QImage picture = shotPicture(file, request, cache);
        return picture.isNull() ? QColor() : picture.pixelColor(picture.rect().center());
    };
    const ShotRequest small{u"a.png"_s, {32, 18}, false, 4};
    EXPECT_FALSE(centre(small).isValid()) << "no such file";
    write(Qt::red, {640, 480});
    EXPECT_GT(centre(small).red(), 240);
    EXPECT_EQ(shotPicture(file, small, cache).size(), QSize(32, 18));
    EXPECT_EQ(shotPicture(file, small, cache).pixelColor(0, 0).alpha(), 0) << "round corners";
    EXPECT_EQ(QDir(cache).entryList(QDir::Files).size(), 1);
    write(Qt::blue, {320, 240});
    EXPECT_GT(centre(small).blue(), 240);

    EXPECT_EQ(shotPicture(file, {u"a.png"_s, {160, 160}, true, 0}, cache).size(), QSize(160, 120)) << "all of it";
    EXPECT_EQ(shotPicture(file, {u"a.png"_s, {999, 999}, true, 0}, cache).size(), QSize(320, 240)) << "not enlarged";
    home.write(u"a.png"_s, "no picture");
    EXPECT_FALSE(centre(small).isValid());
}
