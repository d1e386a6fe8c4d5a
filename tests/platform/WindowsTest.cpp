#include "platform/Windows.h"
#include "fakes/FakeWindows.h"
#include "platform/WaitUntil.h"
#include "platform/XServer.h"
#include "platform/XTestWindow.h"
#include "platform/linux/LinuxServices.h"

#include <QDeadlineTimer>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using Look = XTestWindow::Look;

namespace {
/// A display with windows on it, and the service that sees them.
struct Screen {
    virtual ~Screen() = default;
    virtual Windows &windows() = 0;
    virtual qint64 pid() const = 0;
    virtual quint64 open(const Look &look) = 0; ///< and waits until it is shown
    std::optional<AppWindow> find(quint64 window)
    {
        for (const AppWindow &each : windows().windowsOf({pid()})) {
            if (each.id == window) return each;
        }
        return {};
    }
};

struct FakeScreen final : Screen {
    FakeWindows fake;
    FakeScreen() { fake.connected = {{u"screen"_s, {0, 0, 1280, 720}, true}}; }
    Windows &windows() override { return fake; }
    qint64 pid() const override { return 42; }
    quint64 open(const Look &look) override
    {
        const bool dialog = look.types.value(0) == u"_NET_WM_WINDOW_TYPE_DIALOG"_s;
        const quint64 id = 100 + quint64(fake.windows.size());
        fake.windows += AppWindow{.id = id,
                                  .pid = pid(),
                                  .title = look.title,
                                  .geometry = look.geometry,
                                  .kind = dialog ? WindowKind::dialog : WindowKind::normal,
                                  .transientFor = look.transientFor,
                                  .modal = look.modal};
        fake.becomeActive(id);
        return id;
    }
};

struct RealScreen final : Screen {
    XServer server;
    std::unique_ptr<Windows> real;
    std::vector<std::unique_ptr<XTestWindow>> shown;

    explicit RealScreen(XServer::Kind kind = XServer::Kind::oneOutput, const QString &manager = u"openbox"_s)
        : server(kind, manager), real(makeWindows(server.display()))
    { }
    Windows &windows() override { return *real; }
    qint64 pid() const override { return QCoreApplication::applicationPid(); }
    quint64 open(const Look &look) override
    {
        shown.push_back(std::make_unique<XTestWindow>(server.display(), look));
        const quint64 id = shown.back()->id();
        return waitUntil([&] { return find(id).has_value(); }, std::chrono::seconds(20)) ? id : 0;
    }
};

struct ScreenRow {
    const char *name;
    std::unique_ptr<Screen> (*make)();
};
}

class AnyWindows : public testing::TestWithParam<ScreenRow> {
protected:
    std::unique_ptr<Screen> screen = GetParam().make();
    Windows &windows = screen->windows();
};
INSTANTIATE_TEST_SUITE_P(
    Both, AnyWindows,
    testing::Values(ScreenRow{"fake", [] { return std::unique_ptr<Screen>(std::make_unique<FakeScreen>()); }},
                    ScreenRow{"x11", [] { return std::unique_ptr<Screen>(std::make_unique<RealScreen>()); }}),
    [](const auto &row) { return row.param.name; });

TEST_P(AnyWindows, tellsWhatAWindowIs)
{
    ASSERT_TRUE(windows.isAvailable());
    const quint64 game = screen->open({.title = u"Lanterns – «1»"_s});
    const quint64 question = screen->open({.title = u"Confirm"_s,
                                           .geometry = {300, 300, 318, 85},
                                           .types = {u"_NET_WM_WINDOW_TYPE_DIALOG"_s, u"_NET_WM_WINDOW_TYPE_NORMAL"_s},
                                           .transientFor = xcb_window_t(game),
                                           .modal = true});
    const QList<AppWindow> all = windows.windowsOf({screen->pid()});
    ASSERT_EQ(all.size(), 2);
    EXPECT_EQ(all[0].id, game);
    EXPECT_EQ(all[0].title, u"Lanterns – «1»"_s);
    EXPECT_EQ(all[0].kind, WindowKind::normal);
    EXPECT_EQ(all[0].geometry.size(), QSize(640, 480));
    EXPECT_EQ(all[1].id, question);
    EXPECT_EQ(all[1].kind, WindowKind::dialog);
    EXPECT_EQ(all[1].transientFor, game);
    EXPECT_TRUE(all[1].modal);
    EXPECT_EQ(windows.windowsOf({1, 2}), QList<AppWindow>());
    EXPECT_EQ(windows.windowsOf({}), QList<AppWindow>());
}

TEST_P(AnyWindows, movesOutOfFullScreen)
{
    const quint64 game = screen->open({});
    windows.setFullScreen(game, true, 0);
    ASSERT_TRUE(waitUntil([&] {
        const auto now = screen->find(game);
        return now && now->fullScreen && now->geometry == windows.displays()[0].geometry;
    }));
    const QRect place(200, 150, 800, 500);
    windows.move(game, place);
    EXPECT_TRUE(waitUntil([&] {
        const auto now = screen->find(game);
        return now && !now->fullScreen && now->geometry.size() == place.size();
    }));
}

TEST_P(AnyWindows, tellsWhoHasTheKeyboard)
{
    int changes = 0;
    QObject::connect(&windows, &Windows::activeChanged, &windows, [&] { ++changes; });
    const auto isActive = [&](quint64 id) { return windows.activeWindow().value_or(AppWindow()).id == id; };
    const quint64 first = screen->open({.title = u"First"_s}), second = screen->open({.title = u"Second"_s});
    windows.activate(second);
    ASSERT_TRUE(waitUntil([&] { return isActive(second); }));
    waitUntil([&] { return changes > 0; });
    changes = 0;
    windows.activate(first);
    EXPECT_TRUE(waitUntil([&] { return changes > 0 && isActive(first); }));
    EXPECT_EQ(windows.activeWindow()->pid, screen->pid());
}

TEST_P(AnyWindows, asksToCloseAndForgetsWhatIsGone)
{
    const quint64 game = screen->open({});
    windows.requestClose(game);
    EXPECT_TRUE(waitUntil([&] { return !screen->find(game); }));
    windows.requestClose(game);
    windows.activate(game);
    windows.move(game, {0, 0, 100, 100});
    windows.setFullScreen(game, true, 5);
    EXPECT_TRUE(windows.isAvailable());
    EXPECT_EQ(windows.windowsOf({screen->pid()}), QList<AppWindow>());
}

struct KindRow {
    const char *name;
    QStringList types;
    WindowKind kind;
};
class WindowTypes : public testing::TestWithParam<KindRow> {
protected:
    // One server for all rows.
    static void SetUpTestSuite() { screen = std::make_unique<RealScreen>(); }
    static void TearDownTestSuite() { screen.reset(); }
    static inline std::unique_ptr<RealScreen> screen;
};
TEST_P(WindowTypes, goByTheFirst)
{
    const quint64 window = screen->open({.types = GetParam().types});
    ASSERT_NE(window, 0u);
    EXPECT_EQ(screen->find(window)->kind, GetParam().kind);
}
INSTANTIATE_TEST_SUITE_P(Edges, WindowTypes,
                         testing::Values(KindRow{"noneIsNormal", {}, WindowKind::normal},
                                         KindRow{"normalComesSecond",
                                                 {u"_NET_WM_WINDOW_TYPE_DIALOG"_s, u"_NET_WM_WINDOW_TYPE_NORMAL"_s},
                                                 WindowKind::dialog},
                                         KindRow{"splashIsOther",
                                                 {u"_NET_WM_WINDOW_TYPE_SPLASH"_s, u"_NET_WM_WINDOW_TYPE_NORMAL"_s},
                                                 WindowKind::other},
                                         KindRow{
                                             "ownTypesArePassedOver",
                                             {u"_KDE_NET_WM_WINDOW_TYPE_OVERRIDE"_s, u"_NET_WM_WINDOW_TYPE_DIALOG"_s},
                                             WindowKind::dialog}),
                         [](const auto &row) { return row.param.name; });

// In a sandbox a program numbers its process otherwise, mostly 1 or 2.
TEST(LinuxWindows, believesTheServerBeforeTheProgram)
{
    RealScreen screen;
    const quint64 window = screen.open({.toldPid = 1});
    EXPECT_EQ(screen.find(window)->pid, QCoreApplication::applicationPid());
    EXPECT_EQ(screen.real->windowsOf({1}), QList<AppWindow>());
}

TEST(LinuxWindows, outlivesTheServer)
{
    RealScreen screen;
    const quint64 window = screen.open({});
    screen.shown.clear();
    screen.server.kill();
    screen.real->move(window, {0, 0, 100, 100});
    EXPECT_TRUE(waitUntil([&] { return !screen.real->isAvailable(); }));
    EXPECT_EQ(screen.real->displays(), QList<Monitor>());
    EXPECT_EQ(screen.real->windowsOf({screen.pid()}), QList<AppWindow>());
    EXPECT_EQ(screen.real->activeWindow(), std::nullopt);
    for (int round = 0; round < 3; ++round) {
        screen.real->setFullScreen(window, true, 0);
        screen.real->activate(window);
    }
    EXPECT_FALSE(makeWindows(":9999")->isAvailable());
}

// Two outputs of a real server, which only an administrator can start; the frame buffer of the other tests has one.
struct TwoOutputs : testing::Test {
    std::unique_ptr<RealScreen> screen;
    const QRect left{0, 0, 1920, 1080}, right{1920, 0, 1920, 1080};

    void SetUp() override
    {
        if (geteuid() != 0) GTEST_SKIP() << "needs an administrator";
        screen = std::make_unique<RealScreen>(XServer::Kind::twoOutputs);
        ASSERT_TRUE(screen->server.isReady());
    }
    bool becomesFull(quint64 window, const QRect &where)
    {
        return waitUntil(
            [&] {
                const auto now = screen->find(window);
                return now && now->fullScreen && now->geometry == where;
            },
            std::chrono::seconds(10));
    }
};

TEST_F(TwoOutputs, areKnownByNameThePrimaryFirst)
{
    EXPECT_EQ(screen->real->displays(), (QList<Monitor>{{u"DUMMY0"_s, left, true}, {u"DUMMY1"_s, right, false}}));
    int changes = 0;
    QObject::connect(screen->real.get(), &Windows::displaysChanged, screen->real.get(), [&] { ++changes; });
    ASSERT_TRUE(screen->server.run(u"xrandr"_s, u"--output DUMMY1 --primary"_s.split(u' ')));
    EXPECT_TRUE(waitUntil([&] { return screen->real->displays().first().name == u"DUMMY1"_s; }));
    EXPECT_TRUE(waitUntil([&] { return changes > 0; }));
}

TEST_F(TwoOutputs, takeAGameAndGiveItBackWhenOneIsUnplugged)
{
    Windows &windows = *screen->real;
    const quint64 game = screen->open({});
    windows.move(game, right.adjusted(100, 100, -100, -100));
    ASSERT_TRUE(waitUntil([&] { return right.contains(screen->find(game)->geometry.center()); }));
    windows.setFullScreen(game, true, 1);
    ASSERT_TRUE(becomesFull(game, right));

    int changes = 0;
    QObject::connect(&windows, &Windows::displaysChanged, &windows, [&] { ++changes; });
    ASSERT_TRUE(screen->server.run(u"xrandr"_s, u"--output DUMMY1 --off"_s.split(u' ')));
    EXPECT_TRUE(waitUntil([&] { return changes > 0; }));
    EXPECT_EQ(windows.displays(), (QList<Monitor>{{u"DUMMY0"_s, left, true}}));
    windows.move(game, left.adjusted(100, 100, -100, -100));
    windows.setFullScreen(game, true, 0);
    EXPECT_TRUE(becomesFull(game, left));
    ASSERT_TRUE(screen->server.run(u"xrandr"_s, u"--output DUMMY0 --off"_s.split(u' ')));
    EXPECT_EQ(windows.displays().size(), 1) << "what is left is one screen";
}

// xfwm4 can be told the display, takes no move of a window that is maximised or full screen, and replaces openbox here
// while the service runs.
TEST_F(TwoOutputs, workUnderAnotherWindowManager)
{
    screen->server.startBus(); // without one it does not start
    ASSERT_TRUE(screen->server.manage(u"xfwm4"_s));
    Windows &windows = *screen->real;
    const quint64 game = screen->open({});
    // What is asked of a window that it has only just begun to show may be lost or come late: as callers do, look again
    // and go on from what is there.
    QDeadlineTimer again(0);
    EXPECT_TRUE(waitUntil(
        [&] {
            const AppWindow now = screen->find(game).value_or(AppWindow());
            if (again.hasExpired()) {
                again.setRemainingTime(1000);
                if (!right.contains(now.geometry.center()))
                    windows.move(game, right.adjusted(200, 200, -200, -200));
                else if (!now.fullScreen)
                    windows.setFullScreen(game, true, 1);
            }
            return now.fullScreen && now.geometry == right;
        },
        std::chrono::seconds(20)));
    windows.move(game, left.adjusted(200, 200, -200, -200));
    EXPECT_TRUE(
        waitUntil([&] { return left.contains(screen->find(game)->geometry.center()); }, std::chrono::seconds(10)));
    windows.activate(game);
    EXPECT_TRUE(waitUntil([&] { return windows.activeWindow().value_or(AppWindow()).id == game; }));
    windows.setFullScreen(game, true, 0);
    EXPECT_TRUE(becomesFull(game, left));
    windows.requestClose(game);
    EXPECT_TRUE(waitUntil([&] { return !screen->find(game); }));
}

TEST(LinuxWindows, knowsMonitorsThatAUserHasDrawn)
{
    RealScreen screen;
    const auto monitor = [&](const QString &arguments) {
        return screen.server.run(u"xrandr"_s, (u"--setmonitor "_s + arguments).split(u' '));
    };
    ASSERT_TRUE(monitor(u"LEFT 640/160x720/180+0+0 screen"_s));
    ASSERT_TRUE(monitor(u"RIGHT 640/160x720/180+640+0 none"_s));
    EXPECT_EQ(screen.real->displays(),
              (QList<Monitor>{{u"LEFT"_s, {0, 0, 640, 720}, false}, {u"RIGHT"_s, {640, 0, 640, 720}, false}}));
}
