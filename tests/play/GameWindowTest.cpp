#include "play/supervision/GameWindow.h"

#include "play/supervision/EmulatorHabits.h"
#include "play/supervision/PlayTarget.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {
const Monitor left{u"LEFT"_s, {0, 0, 1920, 1080}, true};
const Monitor right{u"RIGHT"_s, {1920, 0, 1920, 1080}, false};
const PlayTarget onRight{right, 1, false};

AppWindow window(quint64 id, const QRect &geometry)
{
    return {.id = id, .pid = 7, .geometry = geometry};
}
} // namespace

// probeGameWindow

struct ProbeRow {
    const char *name;
    QList<AppWindow> windows;
    quint64 game; ///< 0: none
    bool onTarget = false, fullScreenOnLinux = false, fullScreenOnMac = false;
};
class Probe : public testing::TestWithParam<ProbeRow> { };

TEST_P(Probe, findsTheGamesWindow)
{
    const auto linux = probeGameWindow(GetParam().windows, onRight, Host::linux);
    const auto mac = probeGameWindow(GetParam().windows, onRight, Host::mac);
    ASSERT_EQ(linux.has_value(), GetParam().game != 0);
    ASSERT_EQ(mac.has_value(), GetParam().game != 0);
    if (!linux) return;
    EXPECT_EQ(linux->window.id, GetParam().game);
    EXPECT_EQ(linux->onTarget, GetParam().onTarget);
    EXPECT_EQ(linux->fullScreen, GetParam().fullScreenOnLinux);
    EXPECT_EQ(mac->fullScreen, GetParam().fullScreenOnMac);
}

static AppWindow with(AppWindow window, void (*change)(AppWindow &))
{
    change(window);
    return window;
}
static constexpr auto full = [](AppWindow &window) { window.fullScreen = true; };

INSTANTIATE_TEST_SUITE_P(
    Edges, Probe,
    testing::Values(ProbeRow{"noWindow", {}, 0}, ProbeRow{"hundredWide", {window(1, {0, 0, 100, 500})}, 0},
                    ProbeRow{"hundredHigh", {window(1, {0, 0, 500, 100})}, 0},
                    ProbeRow{"justLarger", {window(1, {0, 0, 101, 101})}, 1},
                    ProbeRow{"largest", {window(1, {0, 0, 300, 300}), window(2, {0, 0, 640, 480})}, 2},
                    ProbeRow{"firstOfEquals", {window(1, {0, 0, 640, 480}), window(2, {0, 0, 480, 640})}, 1},
                    ProbeRow{"largeDialogIsNoGame",
                             {with(window(1, {0, 0, 900, 900}), [](AppWindow &w) { w.kind = WindowKind::dialog; }),
                              window(2, {0, 0, 640, 480})},
                             2},
                    ProbeRow{"partOfAnotherIsNoGame",
                             {with(window(1, {0, 0, 900, 900}), [](AppWindow &w) { w.transientFor = 2; })},
                             0},
                    ProbeRow{"splashIsNoGame",
                             {with(window(1, {0, 0, 900, 900}), [](AppWindow &w) { w.kind = WindowKind::other; })},
                             0},
                    ProbeRow{"centreJustOnTarget", {window(1, {1601, 0, 640, 480})}, 1, true},
                    ProbeRow{"centreJustBeside", {window(1, {1600, 0, 640, 480})}, 1, false},
                    ProbeRow{"fullScreen", {with(window(1, {1920, 0, 1920, 1080}), full)}, 1, true, true, true},
                    ProbeRow{"coversWithoutTheState", {window(1, {1920, 0, 1920, 1080})}, 1, true, false, true},
                    ProbeRow{"onePixelOff", {with(window(1, {1921, 1, 1918, 1078}), full)}, 1, true, true, true},
                    ProbeRow{"twoPixelsOff", {window(1, {1922, 0, 1918, 1080})}, 1, true, false, false},
                    ProbeRow{"threePixelsShort", {window(1, {1920, 0, 1917, 1080})}, 1, true, false, false},
                    ProbeRow{"stateNotCarriedOut", {with(window(1, {1920, 0, 640, 480}), full)}, 1, true, false, true}),
    [](const auto &row) { return row.param.name; });

TEST(GameWindow, isNoLoaderFrom500By300On)
{
    EXPECT_TRUE(isLoader({400, 600}, u"dolphin"_s));
    EXPECT_TRUE(isLoader({499, 300}, u"dolphin"_s));
    EXPECT_TRUE(isLoader({500, 299}, u"dolphin"_s));
    EXPECT_FALSE(isLoader({500, 300}, u"dolphin"_s));
    EXPECT_FALSE(isLoader({160, 144}, u"mgba"_s)) << "its window is as small as a Game Boy's screen";
    EXPECT_FALSE(isLoader({480, 432}, u"retroarch"_s)) << "three times a Game Boy's screen";
}

TEST(GameWindow, goesIntoTheMiddleOfADisplayNoLargerThanIt)
{
    EXPECT_EQ(placeOn(right.geometry, {640, 480}), QRect(1920 + 640, 300, 640, 480));
    EXPECT_EQ(placeOn(right.geometry, {2560, 1440}), right.geometry);
}

// Questions

struct QuestionRow {
    const char *name;
    AccessibleWindow::Role role;
    QSize size;
    bool button, question;
};
class Question : public testing::TestWithParam<QuestionRow> { };

TEST_P(Question, isASmallWindowOrADialogWithAButton)
{
    const AccessibleWindow window{GetParam().role, {}, GetParam().size, GetParam().button};
    EXPECT_EQ(isQuestion(window, {1920, 1080}), GetParam().question);
}

using Role = AccessibleWindow::Role;
INSTANTIATE_TEST_SUITE_P(Edges, Question,
                         testing::Values(QuestionRow{"dialogWithOK", Role::dialog, {300, 200}, true, true},
                                         QuestionRow{"smallWindowWithOK", Role::frame, {300, 200}, true, true},
                                         QuestionRow{"smallWindowWithoutButton", Role::frame, {300, 200}, false, false},
                                         QuestionRow{"gameWithButtons", Role::frame, {1280, 720}, true, false},
                                         QuestionRow{"largeDialog", Role::dialog, {1280, 720}, true, true},
                                         QuestionRow{"largeAlert", Role::alert, {1280, 720}, true, true},
                                         QuestionRow{"dialogWithoutButton", Role::dialog, {300, 200}, false, false},
                                         QuestionRow{"tooHigh", Role::frame, {300, 340}, true, false},
                                         QuestionRow{"highest", Role::frame, {300, 339}, true, true},
                                         QuestionRow{"tooNarrow", Role::frame, {80, 200}, true, false},
                                         QuestionRow{"tooLow", Role::frame, {300, 60}, true, false},
                                         QuestionRow{"areaOfAThird", Role::frame, {1836, 339}, true, false}),
                         [](const auto &row) { return row.param.name; });

// PlayTarget

struct ChoiceRow {
    const char *name;
    QList<Monitor> displays;
    const char *preferred;
    QRect active;
    const char *chosen;
    bool mainDisplay;
    int index;
};
class Choice : public testing::TestWithParam<ChoiceRow> { };

TEST_P(Choice, isTheUsersThenWhereTheUserLooksThenThePrimary)
{
    const ChoiceRow &row = GetParam();
    const QString name = chooseDisplay(row.displays, QString::fromLatin1(row.preferred), row.active);
    EXPECT_EQ(name.toStdString(), row.chosen);
    const PlayTarget target = playTarget(row.displays, name);
    EXPECT_EQ(target.mainDisplay, row.mainDisplay);
    EXPECT_EQ(target.index, row.index);
}

INSTANTIATE_TEST_SUITE_P(
    Edges, Choice,
    testing::Values(ChoiceRow{"noDisplay", {}, "RIGHT", {}, "", true, 0},
                    ChoiceRow{"oneDisplay", {left}, "", {}, "LEFT", true, 0},
                    ChoiceRow{"oneDisplayAndAnotherWanted", {left}, "RIGHT", {}, "LEFT", true, 0},
                    ChoiceRow{"theUsersChoice", {left, right}, "RIGHT", {0, 0, 500, 500}, "RIGHT", false, 1},
                    ChoiceRow{"choiceMissing", {left, right}, "TV", {2000, 0, 500, 500}, "RIGHT", false, 1},
                    ChoiceRow{"noChoiceAndNoWindow", {left, right}, "", {}, "LEFT", false, 0},
                    ChoiceRow{"windowBetweenDisplays", {left, right}, "", {0, 2000, 50, 50}, "LEFT", false, 0}),
    [](const auto &row) { return row.param.name; });

TEST(PlayTarget, isTheMainDisplayWhenItsOwnWasUnplugged)
{
    const Monitor third{u"THIRD"_s, {3840, 0, 1280, 720}, false};
    EXPECT_EQ(playTarget({left, third}, u"RIGHT"_s), (PlayTarget{left, 0, true}));
}

// Habits

TEST(FullScreenEntry, isALeafThatCanBePressedTheBestTitleFirst)
{
    const auto entry = [](const char *title, bool pressable = true, bool enabled = true) {
        return MenuEntry{QString::fromLatin1(title), {}, enabled, pressable, {}};
    };
    const auto title = [](const QList<MenuEntry> &menu) {
        const auto found = fullScreenEntry(menu);
        return found ? found->title.toStdString() : std::string();
    };
    EXPECT_EQ(title({entry("Fullscreen"), entry("Toggle fullscreen")}), "Toggle fullscreen");
    EXPECT_EQ(title({entry("Toggle Full Screen"), entry("Enter Full Screen")}), "Enter Full Screen");
    EXPECT_EQ(title({entry("Toggle Fullscreen", false), entry("Toggle Fullscreen", true, false)}), "");
    EXPECT_EQ(title({entry("Start in fullscreen"), entry("Fullscreen UI")}), "");
    EXPECT_EQ(title({entry("Full screen")}), "Full screen");
}
