#include "play/ControllerInput.h"

#include "fakes/FakeGamepads.h"
#include "fakes/ManualClock.h"

#include <gtest/gtest.h>

using namespace std::chrono_literals;
using Events = std::vector<PadEvent>;

namespace {
/// A controller in hand and a surface that writes down what it gets, and when.
struct ControllerInputTest : testing::Test {
    FakeGamepads pads;
    ManualClock clock;
    ControllerInput input{pads, clock};
    Events events;
    std::vector<int> times; ///< ms
    bool active = true;

    ControllerInputTest()
    {
        pads.plugIn();
        input.isActive = [this] { return active; };
        input.onEvent = [this](PadEvent event) {
            events.push_back(event);
            times.push_back(int(clock.awake().count()));
        };
    }
    Events delivered() { return std::exchange(events, {}); }
};
} // namespace

struct ButtonRow {
    const char *name;
    PadButton button;
    std::optional<PadEvent> event;
};
class ControllerButton : public ControllerInputTest, public testing::WithParamInterface<ButtonRow> { };

TEST_P(ControllerButton, meansOneEventOnItsPressAndNothingOnItsRelease)
{
    pads.tap(GetParam().button);
    EXPECT_EQ(events, GetParam().event ? Events{*GetParam().event} : Events{});
}

INSTANTIATE_TEST_SUITE_P(
    All, ControllerButton,
    testing::Values(
        ButtonRow{"left", PadButton::dpadLeft, PadEvent::left},
        ButtonRow{"right", PadButton::dpadRight, PadEvent::right}, ButtonRow{"up", PadButton::dpadUp, PadEvent::up},
        ButtonRow{"down", PadButton::dpadDown, PadEvent::down}, ButtonRow{"A", PadButton::a, PadEvent::confirm},
        ButtonRow{"B", PadButton::b, PadEvent::back}, ButtonRow{"Y", PadButton::y, PadEvent::favorite},
        ButtonRow{"X", PadButton::x, PadEvent::details}, ButtonRow{"LB", PadButton::leftShoulder, PadEvent::prevShelf},
        ButtonRow{"RB", PadButton::rightShoulder, PadEvent::nextShelf},
        ButtonRow{"LT", PadButton::leftTrigger, PadEvent::prevGame},
        ButtonRow{"RT", PadButton::rightTrigger, PadEvent::nextGame},
        ButtonRow{"MenuAlone", PadButton::menu, PadEvent::menu}, ButtonRow{"ViewAlone", PadButton::view, std::nullopt},
        ButtonRow{"Share", PadButton::share, std::nullopt}, ButtonRow{"LeftStick", PadButton::leftStick, std::nullopt},
        ButtonRow{"RightStick", PadButton::rightStick, std::nullopt}),
    [](const auto &row) { return row.param.name; });

TEST_F(ControllerInputTest, aHeldDirectionRepeats)
{
    pads.press(PadButton::dpadDown);
    clock.advance(1s);
    pads.release(PadButton::dpadDown);
    EXPECT_EQ(times, (std::vector{0, 380, 490, 600, 710, 820, 930}));
    EXPECT_EQ(events, Events(7, PadEvent::down));
    EXPECT_EQ(clock.pending(), 0) << "nothing ticks while nothing is held";
}

TEST_F(ControllerInputTest, theSecondDirectionTakesOverWithItsOwnDelay)
{
    pads.press(PadButton::dpadLeft);
    clock.advance(450ms);
    EXPECT_EQ(delivered(), Events(2, PadEvent::left));
    pads.press(PadButton::dpadRight);
    pads.release(PadButton::dpadLeft);
    clock.advance(379ms);
    EXPECT_EQ(delivered(), Events(1, PadEvent::right));
    clock.advance(111ms);
    EXPECT_EQ(delivered(), Events(2, PadEvent::right));
    pads.release(PadButton::dpadRight);
    clock.advance(1s);
    EXPECT_EQ(delivered(), Events());
}

TEST_F(ControllerInputTest, aControllerThatIsUnpluggedStopsRepeating)
{
    pads.press(PadButton::dpadUp);
    pads.unplug(1);
    clock.advance(2s);
    EXPECT_EQ(events, Events{PadEvent::up});
}

TEST_F(ControllerInputTest, viewAndMenuAreOneChordInEitherOrder)
{
    int guides = 0;
    int shares = 0;
    input.onGuide = [&] { ++guides; };
    input.onShare = [&] { ++shares; };
    input.onAnyInput = [&] { FAIL() << "the chord and Share are no input for others"; };
    pads.press(PadButton::view);
    clock.advance(1min);
    pads.press(PadButton::menu);
    pads.release(PadButton::view);
    pads.release(PadButton::menu);
    EXPECT_EQ(guides, 1);
    pads.tap(PadButton::share);
    EXPECT_EQ(shares, 1);
    EXPECT_EQ(delivered(), Events());

    input.onAnyInput = nullptr;
    pads.press(PadButton::menu);
    pads.tap(PadButton::view);
    pads.release(PadButton::menu);
    EXPECT_EQ(guides, 2);
    EXPECT_EQ(delivered(), Events{PadEvent::menu}) << "Menu came first and alone";

    pads.plugIn();
    pads.press(PadButton::view, 2);
    pads.tap(PadButton::menu, 1);
    EXPECT_EQ(guides, 2) << "two controllers make no chord";
}

TEST_F(ControllerInputTest, eachEventHasOneReceiver)
{
    Events overlay;
    bool starting = true;
    int any = 0;
    input.onAnyInput = [&] { ++any; };
    input.onCancelLaunch = [&] { return std::exchange(starting, false); };
    input.overlayHandler = [&](PadEvent event) { overlay.push_back(event); };
    pads.tap(PadButton::b);
    EXPECT_EQ(overlay, Events()) << "the launch was cancelled with it";
    pads.tap(PadButton::b);
    pads.tap(PadButton::a);
    EXPECT_EQ(overlay, (Events{PadEvent::back, PadEvent::confirm}));
    EXPECT_EQ(delivered(), Events());
    EXPECT_EQ(any, 3);

    input.overlayHandler = [&](PadEvent) { input.overlayHandler = nullptr; };
    pads.tap(PadButton::a);
    pads.tap(PadButton::x);
    EXPECT_EQ(delivered(), Events{PadEvent::details}) << "a handler may clear itself";
}

TEST_F(ControllerInputTest, inTheBackgroundOnlyWhatIsWanted)
{
    int guides = 0;
    input.onGuide = [&] { ++guides; };
    input.activate = [this] { active = true; };
    active = false;
    pads.tap(PadButton::a);
    input.acceptsInBackground = [] { return false; };
    pads.tap(PadButton::a);
    EXPECT_EQ(delivered(), Events());
    EXPECT_FALSE(active);
    pads.press(PadButton::view);
    pads.tap(PadButton::menu);
    EXPECT_EQ(guides, 1);
    input.acceptsInBackground = [] { return true; };
    pads.tap(PadButton::a);
    EXPECT_TRUE(active);
    EXPECT_EQ(delivered(), Events{PadEvent::confirm});
}

TEST_F(ControllerInputTest, hidesThePointerOnlyInFrontAndWhenAsked)
{
    int hidden = 0;
    input.hidePointer = [&] { ++hidden; };
    pads.tap(PadButton::a);
    EXPECT_EQ(hidden, 0);
    input.hidesCursor = true;
    pads.tap(PadButton::a);
    pads.press(PadButton::view);
    pads.tap(PadButton::menu);
    EXPECT_EQ(hidden, 2) << "the chord too";
    active = false;
    pads.tap(PadButton::a);
    EXPECT_EQ(hidden, 2);
}

TEST(ControllerName, followsWhatIsConnected)
{
    FakeGamepads pads;
    ManualClock clock;
    pads.plugIn("First");
    ControllerInput input(pads, clock);
    EXPECT_EQ(input.controllerName(), "First") << "it was there before";
    int events = 0;
    input.isActive = [] { return true; };
    input.onEvent = [&](PadEvent) { ++events; };
    pads.plugIn("Wheel", false);
    EXPECT_EQ(input.controllerName(), "Wheel");
    pads.tap(PadButton::a, 2);
    EXPECT_EQ(events, 0) << "named, but its buttons are unknown";
    pads.plugIn("");
    EXPECT_EQ(input.controllerName(), "Controller");
    pads.unplug(3);
    EXPECT_EQ(input.controllerName(), "First");
    pads.tap(PadButton::a, 1);
    EXPECT_EQ(events, 1) << "several drive one input";
    pads.unplug(1);
    EXPECT_EQ(input.controllerName(), "Wheel");
    pads.unplug(2);
    EXPECT_EQ(input.controllerName(), "");
}
