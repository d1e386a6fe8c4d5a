#include "ui/window/WindowShell.h"

#include "ui/window/StartBlocks.h"
#include "ui/WindowHouse.h"

#include <gtest/gtest.h>

/// Every shown item made from the QML file of that name.
static void collect(QQuickItem *item, const QByteArray &type, QList<QQuickItem *> &found)
{
    if (!item->isVisible()) return;
    if (QByteArray(item->metaObject()->className()).startsWith(type + "_QML")) found += item;
    for (QQuickItem *child : item->childItems())
        collect(child, type, found);
}

static bool hasBlock(const QList<StartBlock> &blocks, const QRectF &place)
{
    return std::ranges::any_of(blocks, [place](const StartBlock &block) {
        return std::abs(block.place.x() - place.x()) < 2 && std::abs(block.place.y() - place.y()) < 2
            && std::abs(block.place.width() - place.width()) < 2 && std::abs(block.place.height() - place.height()) < 2;
    });
}

TEST(WindowShell, blocksStandWhereHomeComes)
{
    for (const QSize size : {QSize(1440, 900), QSize(1920, 1080), QSize(1000, 640), QSize(2560, 1440)}) {
        WindowHouse house(24);
        ASSERT_TRUE(house.show(size));
        const QList<StartBlock> blocks = startBlocks(size, true);
        for (const char *type : {"Hero", "WeekCard", "AddCard", "ShelfCover"}) {
            QList<QQuickItem *> items;
            collect(house.window()->contentItem(), type, items);
            if (items.isEmpty() && qstrcmp(type, "AddCard") == 0) continue; // there is no room for it
            ASSERT_FALSE(items.isEmpty()) << type;
            QRectF place = items.first()->mapRectToScene(items.first()->boundingRect());
            if (qstrcmp(type, "ShelfCover") == 0) place.setHeight(place.width() * 4 / 3);
            EXPECT_TRUE(hasBlock(blocks, place)) << type << " in " << size.width() << ": " << place.x() << ' '
                                                 << place.y() << ' ' << place.width() << ' ' << place.height();
        }
    }
}

TEST(WindowShell, contentTakesThePlaceOfTheBlocksAndFollowsTheWindow)
{
    WindowShell shell;
    shell.setWindowStates(Qt::WindowNoState); // the test's screen is small, so that it would be maximised
    shell.showBlocks(WindowShell::Waiting::forGames);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&shell));
    EXPECT_EQ(shell.contentItem()->childItems().size(), 1);
    QQuickItem content;
    shell.setContent(&content);
    EXPECT_EQ(shell.contentItem()->childItems(), QList<QQuickItem *>{&content});
    shell.resize(1000, 700);
    EXPECT_TRUE(QTest::qWaitFor([&] { return content.size() == QSizeF(1000, 700); }));
}
