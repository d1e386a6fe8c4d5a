#include "play/shots/Screenshots.h"
#include "play/shots/ScreenshotStore.h"

#include "fakes/FakeScreenCapture.h"
#include "fakes/FakeTrash.h"
#include "fakes/FakeWindows.h"
#include "library/LibraryHouse.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

static QByteArray png(int width, int height)
{
    QByteArray head("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16);
    for (const int number : {width, height})
        for (int shift = 24; shift >= 0; shift -= 8)
            head += char(number >> shift);
    return head + "rest";
}

struct ScreenshotsTest : testing::Test {
    LibraryHouse house;
    FakeWindows windows;
    FakeScreenCapture capture;
    FakeTrash trash;
    LibraryStore &library = house.open();
    Screenshots screenshots{house.places, house.clock, house.tasks, windows, capture, house.processes};
    ScreenshotStore store{house.places, house.tasks, trash, library};
    RunningGame game{u"A"_s, u"A/B: C"_s, 10, u"mgba"_s, u"mGBA"_s, {}};
    QString toast, symbol;
    QStringList notices;

    ScreenshotsTest()
    {
        house.clock.present = QDateTime(QDate(2025, 3, 3), QTime(21, 5, 9));
        house.processes.processes = {{10, {10, 1, u"flatpak"_s}}, {11, {11, 10, u"mgba-qt"_s}}};
        windows.windows = {{.id = 1, .pid = 11, .geometry = {0, 0, 800, 600}},
                           {.id = 2, .pid = 11, .geometry = {0, 0, 1900, 1000}, .kind = WindowKind::dialog},
                           {.id = 3, .pid = 99, .geometry = {0, 0, 1920, 1080}}};
        capture.windows = {{1, painted(Qt::red)}, {2, painted(Qt::blue)}, {3, painted(Qt::green)}};
        QObject::connect(&screenshots, &Screenshots::finished, [this](const Message &text, const QString &sign) {
            toast = english(text);
            symbol = sign;
        });
        QObject::connect(&screenshots, &Screenshots::taken, [this](const Message &text) { notices += english(text); });
        QObject::connect(&screenshots, &Screenshots::saved, &store, &ScreenshotStore::add);
        store.load();
    }
    static QImage painted(Qt::GlobalColor color)
    {
        QImage picture(4, 3, QImage::Format_RGB32);
        picture.fill(color);
        return picture;
    }
    QStringList files() const { return QDir(house.places.pictures + u"/Velko"_s).entryList(QDir::Files, QDir::Name); }
    void put(const QString &name, const QByteArray &content = png(4, 3)) const
    {
        house.home.write(u"Pictures/Velko/"_s + name, content);
    }
};

TEST_F(ScreenshotsTest, theWindowOfTheGameIsInThePicture)
{
    screenshots.take(game, false);
    EXPECT_EQ(toast, u"Screenshot saved · in your Profile"_s);
    EXPECT_EQ(notices, QStringList{u"Taking a screenshot…"_s});
    ASSERT_EQ(files(), QStringList{u"A-B- C 2025-03-03 21.05.09.png"_s});
    ASSERT_EQ(store.count(), 1);
    const QImage picture(store.all().first().url);
    EXPECT_EQ(picture.pixelColor(0, 0), QColor(Qt::red));
    EXPECT_EQ(store.all().first().date, house.clock.present);
}

TEST_F(ScreenshotsTest, aSecondPictureOfTheSameSecondIsKeptBeside)
{
    for (int i = 0; i < 3; ++i)
        screenshots.take(game, false);
    EXPECT_EQ(files(),
              (QStringList{u"A-B- C 2025-03-03 21.05.09 2.png"_s, u"A-B- C 2025-03-03 21.05.09 3.png"_s,
                           u"A-B- C 2025-03-03 21.05.09.png"_s}));
    ASSERT_EQ(store.count(), 3);
    EXPECT_EQ(store.all().first().number, 3) << "the newest first";
    EXPECT_EQ(store.groups().size(), 1);
}

TEST_F(ScreenshotsTest, theOverlayLeavesThePictureFirst)
{
    screenshots.take(game, true);
    house.clock.advance(249ms);
    EXPECT_TRUE(notices.isEmpty());
    screenshots.take(game, true); // while one is under way
    house.clock.advance(1ms);
    EXPECT_EQ(notices.size(), 1);
    house.clock.advance(1s);
    EXPECT_EQ(files().size(), 1);
}

TEST_F(ScreenshotsTest, withoutAWindowTheMainDisplayIsTaken)
{
    windows.windows.clear();
    capture.picture = QImage(1920, 1080, QImage::Format_RGB32);
    screenshots.take(game, false);
    ASSERT_EQ(store.count(), 1);
    EXPECT_EQ(store.all().first().size, QSize(1920, 1080));
}

TEST_F(ScreenshotsTest, failuresSayWhatToDo)
{
    screenshots.take({}, false);
    EXPECT_EQ(toast, u"Start a game, then press Share to capture it"_s);
    capture.windows.clear();
    screenshots.take(game, false);
    EXPECT_EQ(toast, u"macOS blocked the screenshot: allow Velko in Privacy & Security → Screen Recording."_s);
    EXPECT_EQ(symbol, u"exclamationmark.triangle.fill"_s);
    capture.windows = {{1, painted(Qt::red)}};
    house.home.write(u"Pictures"_s, "a file in the folder's place");
    screenshots.take(game, false);
    EXPECT_TRUE(toast.startsWith(u"The screenshot can't be written"_s)) << qPrintable(toast);
    EXPECT_TRUE(notices.size() == 1 && store.count() == 0);
}

TEST_F(ScreenshotsTest, theEarlierFolderIsTakenOver)
{
    house.home.write(u"Pictures/VelkoEmu/Old 2024-01-02 03.04.05.png"_s, png(4, 3));
    screenshots.take(game, false);
    EXPECT_EQ(files().size(), 2);
    EXPECT_FALSE(QFileInfo::exists(house.places.pictures + u"/VelkoEmu"_s));
    house.home.write(u"Pictures/VelkoEmu/Late 2024-01-02 03.04.05.png"_s, png(4, 3));
    screenshots.take(game, false);
    EXPECT_EQ(files().size(), 3) << "not while there is a new one";
}

TEST_F(ScreenshotsTest, onlyPicturesAreListed)
{
    put(u"Lanterns 2025-03-03 21.05.09.png"_s);
    put(u"Lanterns 2025-03-04 00.00.00.PNG"_s);
    put(u"No date.png"_s);
    put(u"notes.txt"_s);
    put(u"Text 2025-03-03 21.05.09.png"_s, "not a picture");
    put(u"Short 2025-03-03 21.05.09.png"_s, png(4, 3).first(20));
    put(u"Bomb 2025-03-03 21.05.09.png"_s, png(60000, 60000));
    put(u"Negative 2025-03-03 21.05.09.png"_s, png(-4, 3));
    put(u"Folder.png/inside.txt"_s);
    const QString secret = house.home.write(u"secret.png"_s, png(4, 3));
    QFile::link(secret, house.places.pictures + u"/Velko/Link 2025-03-03 21.05.09.png"_s);
    store.load();
    QStringList titles;
    for (const Screenshot &shot : store.all())
        titles += shot.title;
    EXPECT_EQ(titles, (QStringList{u"No date"_s, u"Lanterns"_s, u"Lanterns"_s}))
        << "changed today, then by their dates";
}

TEST_F(ScreenshotsTest, groupsKnowTheirGame)
{
    GameEntry entry = existingGame(house, u"Lanterns"_s);
    entry.title = u"Lanterns: of Oro"_s;
    library.add({entry});
    put(u"Other 2025-03-03 21.05.09.png"_s);
    put(u"Lanterns- of Oro 2025-03-04 21.05.09.png"_s);
    put(u"Lanterns- of Oro 2024-03-04 21.05.09.png"_s);
    store.load();
    const auto groups = store.groups();
    ASSERT_EQ(groups.size(), 2);
    EXPECT_EQ(groups[0].title, u"Lanterns: of Oro"_s);
    EXPECT_EQ(groups[0].game, entry.id);
    EXPECT_EQ(groups[0].shots.size(), 2);
    EXPECT_EQ(groups[1].game, QString());
}

TEST_F(ScreenshotsTest, removedOnesGoToTheTrash)
{
    put(u"Lanterns 2025-03-03 21.05.09.png"_s);
    store.load();
    const QString url = store.all().first().url;
    QString failure;
    QObject::connect(&store, &ScreenshotStore::removeFailed, [&](const Message &why) { failure = english(why); });
    trash.refuses = true;
    store.remove(url);
    EXPECT_EQ(store.count(), 1);
    EXPECT_EQ(failure, u"refused"_s);
    trash.refuses = false;
    store.remove(url);
    EXPECT_EQ(store.count(), 0);
    EXPECT_EQ(trash.moved, QStringList{url});
}

struct NameRow {
    const char *name;
    QString file;
    const char *title;
    const char *date; ///< empty: that of the last change
    int number;
};
class ScreenshotName : public testing::TestWithParam<NameRow> { };
TEST_P(ScreenshotName, tellsTitleAndMoment)
{
    const QDateTime changed(QDate(2020, 1, 1), QTime(1, 1, 1));
    const Screenshot shot = parsedScreenshot(u"/p/"_s + GetParam().file, changed);
    EXPECT_EQ(shot.title, QString::fromUtf8(GetParam().title));
    const QString date = QString::fromUtf8(GetParam().date);
    EXPECT_EQ(shot.date, date.isEmpty() ? changed : QDateTime::fromString(date, Qt::ISODate));
    EXPECT_EQ(shot.number, GetParam().number);
}
INSTANTIATE_TEST_SUITE_P(
    Edges, ScreenshotName,
    testing::Values(NameRow{"usual", u"A-B- C 2025-03-03 21.05.09.png"_s, "A-B- C", "2025-03-03T21:05:09", 1},
                    NameRow{"second", u"A 2025-03-03 21.05.09 2.png"_s, "A", "2025-03-03T21:05:09", 2},
                    NameRow{"datesInTheTitle", u"A 2024-01-01 00.00.00 2025-03-03 21.05.09.png"_s,
                            "A 2024-01-01 00.00.00", "2025-03-03T21:05:09", 1},
                    NameRow{"noSuchDay", u"A 2025-02-30 21.05.09.png"_s, "A 2025-02-30 21.05.09", "", 1},
                    NameRow{"none", u"Holiday.png"_s, "Holiday", "", 1},
                    NameRow{"emptyTitle", u" 2025-03-03 21.05.09.png"_s, "", "2025-03-03T21:05:09", 1}),
    [](const auto &row) { return row.param.name; });

TEST(ScreenshotFiles, everyTitleMakesAName)
{
    EXPECT_EQ(fileTitle(u"A/B: C"_s), u"A-B- C"_s);
    EXPECT_EQ(fileTitle(u"two\nlines"_s), u"two lines"_s);
    const QString title = fileTitle(QString(300, u'\u00e9') + u"\U0001F3AE"_s);
    EXPECT_LE(title.toUtf8().size(), 220);
    EXPECT_LE(fileTitle(QString(u"\U0001F3AE"_s).repeated(100)).toUtf8().size(), 220);
    EXPECT_TRUE(fileTitle(QString(u"\U0001F3AE"_s).repeated(100)).isValidUtf16());
}
