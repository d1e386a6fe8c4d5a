#include "DemoGame.h"
#include "Library.h"
#include "Program.h"
#include "Waiting.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

static std::optional<DesktopWindow> windowOf(VirtualDisplay &display, qint64 pid)
{
    std::optional<DesktopWindow> found;
    waitFor(15s, [&] {
        for (const DesktopWindow &window : display.desktop().windows())
            if (window.pid == pid) found = window;
        return found.has_value();
    });
    return found;
}

TEST(OneInstance, answersForLaterCalls)
{
    VirtualDisplay display;
    ASSERT_TRUE(display.isReady());
    Program velko(display, {});
    const auto window = windowOf(display, velko.pid());
    ASSERT_TRUE(window) << velko.errors().constData();

    ASSERT_TRUE(installDemoGame(display)); // through the running one
    Program list(display, {u"list"_s, u"--json"_s});
    ASSERT_TRUE(list.ends(10s));
    EXPECT_EQ(list.status(), 0) << list.errors().constData();
    const auto games = gamesOf(list.output());
    ASSERT_TRUE(games);
    EXPECT_EQ(games->size(), 1);

    Program wrong(display, {u"play"_s, u"No such game"_s});
    ASSERT_TRUE(wrong.ends(10s));
    EXPECT_EQ(wrong.status(), 1);
    EXPECT_EQ(wrong.errors().count('\n'), 1) << wrong.errors().constData();

    Program second(display, {}); // only brings the window to the front
    ASSERT_TRUE(second.ends(10s));
    EXPECT_EQ(second.status(), 0);
    EXPECT_EQ(display.desktop().windows().size(), 1);
    EXPECT_TRUE(velko.isRunning());

    display.desktop().close(window->id);
    EXPECT_TRUE(velko.ends(5s));
    EXPECT_EQ(velko.status(), 0) << velko.errors().constData();
    EXPECT_TRUE(display.programs().isEmpty());
}

TEST(OneInstance, playsForLaterCalls)
{
    VirtualDisplay display;
    ASSERT_TRUE(display.isReady());
    Program velko(display, {});
    ASSERT_TRUE(windowOf(display, velko.pid())) << velko.errors().constData();
    ASSERT_TRUE(installDemoGame(display));

    Program play(display, {u"play"_s, demoGameTitle});
    const auto game = waitForDemoGame(display, 15s);
    ASSERT_TRUE(game) << play.errors().constData();
    EXPECT_TRUE(play.isRunning());
    Program list(display, {u"list"_s});
    ASSERT_TRUE(list.ends(10s));
    EXPECT_TRUE(list.output().contains("Lanterns"));

    waitFor(3500ms, [&] { return !play.isRunning(); }); // shorter sessions count as closed at once
    display.desktop().close(game->id);
    EXPECT_TRUE(play.ends(5s));
    EXPECT_EQ(play.status(), 0) << play.errors().constData();
    EXPECT_TRUE(velko.isRunning());
}
