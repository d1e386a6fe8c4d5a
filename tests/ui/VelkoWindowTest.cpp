#include "ui/WindowHouse.h"

#include <QAccessible>
#include <QDropEvent>
#include <QMimeData>
#include <QRandomGenerator>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(VelkoWindow, showsEveryTabWithAFocusAndWithoutAWarning)
{
    WindowHouse house(24);
    ASSERT_TRUE(house.show());
    for (int tab = 0; tab < appTabs().size(); ++tab) {
        house.press(Qt::Key(Qt::Key_1 + tab), Qt::ControlModifier);
        EXPECT_EQ(house.state.tab(), appTabs()[tab]);
        EXPECT_TRUE(house.control()) << tab;
    }
    EXPECT_EQ(warnings.join(u'\n').toStdString(), "");
}

TEST(VelkoWindow, neverLosesTheFocus)
{
    WindowHouse house(24);
    ASSERT_TRUE(house.show({1000, 640}));
    const QList<Qt::Key> keys{Qt::Key_Down,  Qt::Key_Right,  Qt::Key_Up,   Qt::Key_Left,     Qt::Key_Tab,
                              Qt::Key_Enter, Qt::Key_Escape, Qt::Key_Down, Qt::Key_PageDown, Qt::Key_Right};
    QRandomGenerator dice(11);
    for (int i = 0; i < 400; ++i) {
        if (i % 40 == 0) house.press(Qt::Key(Qt::Key_1 + i / 40 % 6), Qt::ControlModifier);
        const Qt::Key key = keys[dice.bounded(int(keys.size()))];
        house.press(key);
        ASSERT_TRUE(house.control()) << "key " << i << ": " << key;
    }
    EXPECT_EQ(warnings.join(u'\n').toStdString(), "");
}

TEST(VelkoWindow, shelvesShowTheCoverThatHasTheFocus)
{
    WindowHouse house(24);
    ASSERT_TRUE(house.show());
    for (int shelf = 0; shelf < 2; ++shelf) {
        house.press(Qt::Key_Down);
        EXPECT_FALSE(house.focusedGame().isEmpty()) << "shelf " << shelf;
    }
    house.press(Qt::Key_Return);
    EXPECT_FALSE(house.state.property("detailGame").toString().isEmpty());
}

TEST(VelkoWindow, comesBackToTheCoverThatOpenedAPage)
{
    WindowHouse house(24);
    ASSERT_TRUE(house.show());
    house.press(Qt::Key_2, Qt::ControlModifier);
    house.press(Qt::Key_Right);
    house.press(Qt::Key_Down);
    const QString game = house.focusedGame();
    ASSERT_FALSE(game.isEmpty());
    house.press(Qt::Key_Return);
    EXPECT_EQ(house.state.property("detailGame").toString(), game);
    EXPECT_NE(house.focusedGame(), game);
    house.press(Qt::Key_Escape);
    EXPECT_EQ(house.focusedGame(), game);
}

TEST(VelkoWindow, keepsTheFocusInsideAQuestion)
{
    WindowHouse house(3);
    ASSERT_TRUE(house.show());
    house.store->launch(house.store->games().first().id); // its file does not exist
    house.tasks.finish();
    house.settled();
    QQuickItem *first = house.control();
    ASSERT_TRUE(first);
    for (int i = 0; i < 3; ++i)
        house.press(Qt::Key_Tab);
    EXPECT_EQ(house.control(), first);
    house.press(Qt::Key_Escape);
    EXPECT_EQ(house.store->missingFile(), QString());
    EXPECT_EQ(house.store->count(), 3);
    EXPECT_TRUE(house.control());
}

TEST(VelkoWindow, emptyLibraryOffersOneAction)
{
    WindowHouse house(0);
    ASSERT_TRUE(house.show());
    EXPECT_EQ(house.control()->property("text").toString(), u"Add a folder of games"_s);
    house.press(Qt::Key_Return);
    EXPECT_TRUE(house.control());
    house.press(Qt::Key_Escape);
    EXPECT_EQ(house.control()->property("text").toString(), u"Add a folder of games"_s);
    EXPECT_EQ(warnings.join(u'\n').toStdString(), "");
}

TEST(VelkoWindow, looksThroughScreenshotsAndAsksBeforeOneGoes)
{
    WindowHouse house(3);
    for (int minute = 10; minute < 14; ++minute) {
        QImage picture(64, 36, QImage::Format_RGB32);
        picture.fill(Qt::darkGreen);
        const QString file = screenshotFolder(house.places.pictures) + u"/Game 1 2026-11-09 21.%1.00.png"_s;
        QDir().mkpath(screenshotFolder(house.places.pictures));
        picture.save(file.arg(minute));
    }
    ASSERT_TRUE(house.show());
    house.press(Qt::Key_5, Qt::ControlModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return house.screenshots.count() == 4; }));
    house.settled();
    const auto name = [&] { return QAccessible::queryAccessibleInterface(house.control())->text(QAccessible::Name); };
    EXPECT_EQ(name(), u"Screenshots, Game 1"_s) << "the first focus of the page";

    house.press(Qt::Key_Right);
    house.press(Qt::Key_Return);
    house.press(Qt::Key_Right);
    EXPECT_EQ(name(), u"Screenshots"_s) << "in the viewer";
    house.press(Qt::Key_Delete);
    EXPECT_EQ(name(), u"Cancel"_s) << "what destroys is never the first answer";
    house.press(Qt::Key_Escape);
    EXPECT_EQ(name(), u"Screenshots"_s);
    house.press(Qt::Key_Delete);
    house.press(Qt::Key_Right);
    house.press(Qt::Key_Return);
    ASSERT_TRUE(QTest::qWaitFor([&] { return house.screenshots.count() == 3; }));
    EXPECT_TRUE(house.trash.moved.value(0).endsWith(u"21.11.00.png"_s)) << "the third of the newest first";
    house.press(Qt::Key_Escape);
    EXPECT_EQ(name(), u"Screenshots, Game 1"_s);
    EXPECT_EQ(warnings.join(u'\n').toStdString(), "");
}

TEST(VelkoWindow, drawsNothingWhileNothingHappens)
{
    WindowHouse house(24);
    ASSERT_TRUE(house.show());
    house.press(Qt::Key_Down);
    QTest::qWait(700); // the last transition and the pictures
    int frames = 0;
    QObject::connect(house.window(), &QQuickWindow::afterRendering, house.window(), [&frames] { ++frames; });
    QTest::qWait(500);
    EXPECT_EQ(frames, 0);
    house.press(Qt::Key_Right);
    EXPECT_TRUE(QTest::qWaitFor([&frames] { return frames > 0; }));
}

static QQuickItem *itemNamed(QQuickItem *item, const QString &name)
{
    if (item->isVisible() && item->property("name").toString() == name) return item;
    for (QQuickItem *child : item->childItems()) {
        if (QQuickItem *found = itemNamed(child, name)) return found;
    }
    return nullptr;
}

static void dropOnto(QQuickWindow *window, QPoint place, const QString &file)
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(file)});
    const QPoint edge(4, window->height() / 2);
    QDragEnterEvent enter(edge, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window, &enter);
    QDragMoveEvent move(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window, &move);
    QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window, &drop);
}

TEST(VelkoWindow, systemFilesAreDroppedOnTheirCardAndGamesBesideIt)
{
    WindowHouse house(4);
    house.tasks.immediate = true;
    house.state.setTab(AppTab::consoles);
    house.state.setProperty("selectedConsole", u"lynx"_s);
    ASSERT_TRUE(house.show({1920, 1080}));
    const QString file = house.home.write(u"Downloads/lynxboot.img"_s, QByteArray(512, 'x'));
    QQuickItem *slot = itemNamed(house.window()->contentItem(), u"Choose the files"_s);
    ASSERT_TRUE(slot);
    dropOnto(house.window(), slot->mapToScene({20, 20}).toPoint(), file);
    EXPECT_EQ(house.bios.reports(u"lynx"_s).size(), 1);
    EXPECT_EQ(house.store->count(), 4);
    dropOnto(house.window(), {300, 900}, house.home.write(u"Downloads/Game.lnx"_s));
    EXPECT_EQ(house.store->count(), 5);
    EXPECT_EQ(warnings.join(u'\n').toStdString(), "");
}

TEST(VelkoWindow, asksAboutTheControllerBeforeTheGameStarts)
{
    WindowHouse house(4);
    ASSERT_TRUE(house.show());
    const QString file = house.home.write(u"game.gba"_s);
    GameEntry game = house.game(u"Real"_s, u"gba"_s);
    game.path = file;
    house.store->add({game});
    house.launcher.toSetUp = u"dolphin"_s;
    house.store->launch(game.id);
    house.settled();
    EXPECT_EQ(house.control()->property("text").toString(), u"Show the steps"_s);
    house.press(Qt::Key_Right);
    house.press(Qt::Key_Right);
    house.press(Qt::Key_Return); // and don't ask again
    EXPECT_EQ(house.launcher.requests.size(), 1);
    EXPECT_TRUE(house.preferences.get(preference::hideControllerNotice(u"dolphin"_s)));
    house.store->cancelLaunch();
    house.store->launch(game.id);
    house.settled();
    house.press(Qt::Key_Return); // the steps
    EXPECT_EQ(house.launcher.requests.size(), 1);
    ASSERT_TRUE(house.control());
    EXPECT_EQ(house.control()->property("text").toString(), u"Dolphin isn't installed"_s);
    house.press(Qt::Key_Escape);
    EXPECT_TRUE(house.control());
    EXPECT_EQ(warnings.join(u'\n').toStdString(), "");
}
