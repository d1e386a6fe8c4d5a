#include "ui/WindowHouse.h"
#include "ui/facts/FolderList.h"

#include <QCursor>
#include <QGuiApplication>
#include <QRandomGenerator>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

/// What the hint bar lists.
static std::string hints(const WindowHouse &house)
{
    QStringList list;
    const auto *pad = house.window()->findChild<QObject *>(u"padNavigation"_s);
    for (const QVariant &hint : pad->property("hints").toList())
        list += hint.toMap()[u"glyphs"_s].toStringList().join(u'+') + u' ' + hint.toMap()[u"text"_s].toString();
    return list.join(u", "_s).toStdString();
}

TEST(PadWindow, neverLosesTheFocus)
{
    WindowHouse house(24);
    ASSERT_TRUE(house.show({1000, 640}));
    const QList<PadButton> buttons{PadButton::dpadDown,
                                   PadButton::dpadRight,
                                   PadButton::dpadUp,
                                   PadButton::dpadLeft,
                                   PadButton::a,
                                   PadButton::leftShoulder,
                                   PadButton::rightShoulder,
                                   PadButton::b,
                                   PadButton::dpadDown,
                                   PadButton::dpadRight,
                                   PadButton::a,
                                   PadButton::menu,
                                   PadButton::y,
                                   PadButton::x,
                                   PadButton::leftTrigger,
                                   PadButton::rightTrigger};
    QRandomGenerator dice(5);
    for (int i = 0; i < 400; ++i) {
        const PadButton button = buttons[dice.bounded(int(buttons.size()))];
        if (house.control()->property("text") == u"Quit Velko"_s) house.press(PadButton::b);
        house.press(button);
        ASSERT_TRUE(house.control()) << "press " << i << ": " << int(button);
    }
    warnings.removeIf(
        [](const QString &text) { return text.startsWith("DelegateModel::cancel"_L1); }); // Qt 6.4: harmless
    EXPECT_EQ(warnings.join(u'\n').toStdString(), "");
}

TEST(PadWindow, saysWhatTheButtonsDoNow)
{
    WindowHouse house(24);
    ASSERT_TRUE(house.show());
    EXPECT_EQ(hints(house), "") << "no controller is in use";
    house.press(PadButton::rightShoulder);
    EXPECT_EQ(house.state.tab(), AppTab::games);
    EXPECT_EQ(hints(house),
              "dpad Move with the D-pad, a Set up and play, y Favorite, lb+rb Previous / next tab, menu Menu");
    house.press(PadButton::y);
    EXPECT_EQ(
        hints(house),
        "dpad Move with the D-pad, a Set up and play, y Remove from favorites, lb+rb Previous / next tab, menu Menu");
    house.press(PadButton::a);
    EXPECT_EQ(hints(house),
              "dpad Move with the D-pad, a Choose, y Remove from favorites, lt+rt Previous / next game, b Back");
    house.store->setFavorite(house.state.property("detailGame").toString(), false);
    EXPECT_TRUE(QTest::qWaitFor([&] { return hints(house).find("y Favorite,") != std::string::npos; }))
        << "also when something else changed it";
    house.press(PadButton::b);
    house.press(PadButton::menu);
    EXPECT_EQ(hints(house), "dpad Move with the D-pad, a Choose, b Close") << "what lies below has no buttons";
    house.press(PadButton::rightShoulder);
    EXPECT_EQ(house.state.tab(), AppTab::games);
    house.press(PadButton::b);
    house.press(Qt::Key_Down);
    EXPECT_EQ(hints(house), "") << "the keyboard is in use now";
    EXPECT_EQ(warnings.join(u'\n').toStdString(), "");
}

TEST(PadWindow, goesFromGameToGameAndComesBackToTheLast)
{
    WindowHouse house(24);
    ASSERT_TRUE(house.show());
    house.press(PadButton::rightShoulder);
    house.press(PadButton::leftTrigger);
    const QString first = house.focusedGame();
    ASSERT_FALSE(first.isEmpty());
    house.press(PadButton::a);
    house.press(PadButton::leftTrigger);
    EXPECT_EQ(house.state.property("detailGame").toString(), first) << "there is none before";
    house.press(PadButton::rightTrigger);
    const QString second = house.state.property("detailGame").toString();
    EXPECT_NE(second, first);
    house.press(PadButton::y);
    EXPECT_TRUE(house.store->game(second)->favorite.value_or(false));
    house.press(PadButton::b);
    EXPECT_EQ(house.focusedGame(), second);
    house.press(PadButton::dpadLeft);
    EXPECT_EQ(house.focusedGame(), first);
}

TEST(PadWindow, backLeadsUpInTheFolderPickerAndThenOutOfIt)
{
    WindowHouse house(0);
    house.home.write(u"Games/SNES/readme.txt"_s);
    ASSERT_TRUE(house.show());
    // The folder is read in the background.
    const auto reading = [&] {
        const QVariant model = house.control() ? house.control()->property("model") : QVariant();
        return model.value<FolderList *>() && model.value<FolderList *>()->loading();
    };
    const auto press = [&](PadButton button) {
        house.press(button);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !reading(); }));
        house.settled();
    };
    const QString welcome = house.control()->property("text").toString();
    press(PadButton::a);
    EXPECT_EQ(hints(house), "dpad Move with the D-pad, a Open, b Close");
    press(PadButton::a);
    press(PadButton::a);
    EXPECT_EQ(hints(house), "dpad Move with the D-pad, b Up one folder") << "nothing to open in an empty folder";
    press(PadButton::b);
    EXPECT_EQ(hints(house), "dpad Move with the D-pad, a Open, b Up one folder");
    press(PadButton::b);
    EXPECT_EQ(hints(house), "dpad Move with the D-pad, a Open, b Close");
    press(PadButton::b);
    EXPECT_EQ(house.control()->property("text").toString(), welcome);
}

TEST(PadWindow, aPageWithoutAControlLeavesTheFocusAtItsTab)
{
    WindowHouse house(24);
    ASSERT_TRUE(house.show());
    for (const auto button : {PadButton::rightShoulder, PadButton::dpadRight, PadButton::dpadRight,
                              PadButton::rightShoulder, PadButton::rightShoulder})
        house.press(button);
    EXPECT_EQ(house.control()->property("text").toString(), u"Essentials"_s);
}

TEST(PadWindow, upLeadsToTheCurrentTabAndDownBackToWhereOneWas)
{
    WindowHouse house(24);
    ASSERT_TRUE(house.show());
    house.press(PadButton::rightShoulder);
    for (int i = 0; i < 3; ++i)
        house.press(PadButton::dpadRight);
    const QString game = house.focusedGame();
    const auto tab = [&] { return house.control()->property("text").toString(); };
    house.press(PadButton::dpadUp); // to the choice of an order
    house.press(PadButton::dpadUp);
    EXPECT_EQ(tab(), u"Games"_s);
    for (int i = 0; i < 9; ++i)
        house.press(PadButton::dpadRight);
    EXPECT_EQ(house.control()->property("name").toString(), u"Menu"_s) << "the last of the bar";
    house.press(PadButton::dpadDown);
    house.press(PadButton::dpadDown);
    EXPECT_EQ(house.focusedGame(), game);
    house.press(PadButton::rightShoulder);
    house.press(PadButton::leftShoulder);
    EXPECT_EQ(house.focusedGame(), game) << "each tab remembers";
}

TEST(PadWindow, upAndDownLeadToTheTabThatAGamesPageShows)
{
    WindowHouse house(4);
    ASSERT_TRUE(house.show());
    const auto text = [&] { return house.control()->property("text").toString(); };
    house.press(PadButton::rightShoulder);
    house.press(PadButton::a);
    house.press(PadButton::dpadDown);
    EXPECT_EQ(text(), u"Play"_s);
    for (int i = 0; i < 3; ++i)
        house.press(PadButton::dpadRight);
    house.press(PadButton::a);
    house.press(PadButton::dpadUp);
    EXPECT_EQ(text(), u"Play"_s) << "the button, though the window's bar is straight above";
    house.press(PadButton::dpadDown);
    EXPECT_EQ(text(), u"Info & files"_s) << "though another one is nearer";
}

TEST(PadWindow, aConsoleWithoutGamesBeginsWhereTheyAreAdded)
{
    WindowHouse house(4);
    ASSERT_TRUE(house.show());
    house.state.setTab(AppTab::consoles);
    house.state.setProperty("selectedConsole", u"gb"_s);
    house.settled();
    EXPECT_EQ(house.control()->property("name").toString(), u"Add games"_s);
}

TEST(PadWindow, thePointerIsGoneUntilTheMouseMoves)
{
    WindowHouse house(3);
    ASSERT_TRUE(house.show());
    QTest::mouseMove(house.window(), {200, 200});
    house.controller.hidePointer = [&] { house.velko->hidePointer(); };
    house.controller.hidesCursor = true;
    house.press(PadButton::dpadDown);
    house.press(PadButton::dpadUp);
    ASSERT_TRUE(QGuiApplication::overrideCursor());
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::BlankCursor);
    QTest::mouseMove(house.window(), {240, 200});
    house.settled();
    EXPECT_FALSE(QGuiApplication::overrideCursor());
    EXPECT_EQ(hints(house), "") << "and the pointer is in use again";
}
