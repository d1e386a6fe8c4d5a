#include "ui/WindowHouse.h"

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

TEST(PadWindow, theFolderPickerIsLeftUpwards)
{
    WindowHouse house(0);
    ASSERT_TRUE(house.show());
    house.press(PadButton::a);
    house.tasks.finish();
    house.settled();
    EXPECT_EQ(hints(house), "dpad Move with the D-pad, b Up one folder");
    const auto depth = house.places.home.count(u'/');
    for (int i = 0; i <= depth; ++i) {
        EXPECT_NE(house.control()->property("text").toString(), u"Add a folder of games"_s) << i;
        house.press(PadButton::b);
        house.tasks.finish();
        house.settled();
    }
    EXPECT_EQ(house.control()->property("text").toString(), u"Add a folder of games"_s);
}
