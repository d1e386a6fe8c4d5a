#include "platform/Gamepads.h"
#include "fakes/ManualClock.h"
#include "platform/WaitUntil.h"
#include "platform/linux/DoorBell.h"
#include "platform/linux/LinuxServices.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#define SDL_MAIN_HANDLED
#include <SDL.h>

using namespace std::chrono_literals;

namespace {
using Edges = std::vector<std::pair<PadButton, bool>>;

/// The real service, with controllers that exist only inside SDL.
struct GamepadsTest : testing::Test {
    QTemporaryDir folder;
    ManualClock clock;
    std::unique_ptr<Gamepads> pads = makeGamepads(clock, folder.path());
    Edges edges;
    QList<int> gone;
    int last = -1; ///< the controller that was pressed last
    const QString pipe = folder.filePath("pad");

    GamepadsTest()
    {
        QObject::connect(pads.get(), &Gamepads::pressed, pads.get(), [this](int pad, PadButton button) {
            last = pad;
            edges.emplace_back(button, true);
        });
        QObject::connect(pads.get(), &Gamepads::released, pads.get(),
                         [this](int, PadButton button) { edges.emplace_back(button, false); });
        QObject::connect(pads.get(), &Gamepads::disconnected, pads.get(), [this](int pad) { gone += pad; });
    }
    void SetUp() override
    {
        if (QDir("/dev/input").entryList({"js*"}, QDir::System).size() > 0) GTEST_SKIP() << "a real controller is here";
    }
    ~GamepadsTest() override
    {
        for (int device = SDL_NumJoysticks() - 1; device >= 0; --device)
            SDL_JoystickDetachVirtual(device);
    }
    void write(const QByteArray &lines) const
    {
        QFile file(pipe);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        file.write(lines);
    }
    bool hears(const Edges &wanted)
    {
        return waitUntil([&] { return edges.size() >= wanted.size(); }) && std::exchange(edges, {}) == wanted;
    }
};
} // namespace

TEST_F(GamepadsTest, nothingHappensBeforeTheStartOrWithoutControllers)
{
    EXPECT_FALSE(SDL_WasInit(SDL_INIT_GAMECONTROLLER));
    struct sigaction before { };
    sigaction(SIGTERM, nullptr, &before);
    pads->start();
    EXPECT_TRUE(SDL_WasInit(SDL_INIT_GAMECONTROLLER));
    EXPECT_FALSE(SDL_WasInit(SDL_INIT_VIDEO));
    struct sigaction after { };
    sigaction(SIGTERM, nullptr, &after);
    EXPECT_EQ(after.sa_handler, before.sa_handler) << "SIGTERM must still end the program";
    EXPECT_TRUE(pads->pads().isEmpty());
    EXPECT_EQ(clock.pending(), 0);
}

TEST_F(GamepadsTest, linesPressTheVirtualController)
{
    ASSERT_TRUE(pads->attachVirtual(pipe));
    pads->start();
    ASSERT_EQ(pads->pads().size(), 1);
    EXPECT_TRUE(pads->pads().first().standard);
    EXPECT_EQ(pads->pads().first().name, "Virtual controller");
    EXPECT_EQ(clock.pending(), 0) << "the pipe is its bell";
    const QByteArrayList names{"left", "Right", "UP", "down", "A",    "b",     "x",  "Y", "LB",
                               "RB",   "LT",    "RT", "View", "Menu", "Share", "LS", "RS"};
    for (int i = 0; i < names.size(); ++i) {
        write("press " + names[i] + "\n");
        EXPECT_TRUE(hears({{PadButton(i), true}, {PadButton(i), false}})) << names[i].constData();
    }
    write("hold View\nho");
    write("ld Menu\n"); // another writer, in the middle of a line
    EXPECT_TRUE(hears({{PadButton::view, true}, {PadButton::menu, true}}));
    EXPECT_TRUE(pads->isHeld(last, PadButton::view));
    write("unplug\n");
    EXPECT_TRUE(hears({{PadButton::view, false}, {PadButton::menu, false}})) << "let go before it goes";
    EXPECT_EQ(gone, QList{last});
    EXPECT_TRUE(pads->pads().isEmpty());
    write("press A\nplug\npress A\n");
    EXPECT_TRUE(hears({{PadButton::a, true}, {PadButton::a, false}})) << "not while it was unplugged";
    EXPECT_NE(last, gone.first());
}

TEST_F(GamepadsTest, hostileLinesPressNothing)
{
    static QStringList log;
    log.clear();
    const auto before =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &text) { log += text; });
    ASSERT_TRUE(pads->attachVirtual(pipe));
    pads->start();
    for (const QByteArray &line :
         {QByteArray("press"), QByteArray("press Z"), QByteArray("press A B"), QByteArray("\xff\xfe\0\x1b[2J", 7),
          QByteArray("press A").repeated(30), QByteArray(60'000, 'x'), QByteArray(), QByteArray("  \t ")})
        write(line + '\n');
    for (int i = 0; i < 100; ++i)
        write("rm -rf\n");
    write("press B\r\n");
    EXPECT_TRUE(hears({{PadButton::b, true}, {PadButton::b, false}}));
    qInstallMessageHandler(before);
    EXPECT_EQ(log.size(), 20) << "the log does not fill up";
    EXPECT_FALSE(log.join(u' ').contains(QChar(0x1b)));
}

TEST_F(GamepadsTest, thePipeMustBeOne)
{
    QFile file(folder.filePath("file"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_FALSE(pads->attachVirtual(file.fileName()));
    EXPECT_FALSE(pads->attachVirtual(folder.path()));
    EXPECT_FALSE(pads->attachVirtual(folder.filePath("no/such/folder")));
    EXPECT_TRUE(pads->attachVirtual(pipe));
    EXPECT_TRUE(pads->attachVirtual(pipe)) << "what is there already is used";
    EXPECT_EQ(QFile(pipe).permissions() & (QFile::ReadOther | QFile::WriteOther), QFile::Permissions());
}

TEST_F(GamepadsTest, aControllerWithoutABellIsLookedAtEvery8Milliseconds)
{
    pads->start();
    const int device = SDL_JoystickAttachVirtual(SDL_JOYSTICK_TYPE_GAMECONTROLLER, SDL_CONTROLLER_AXIS_MAX,
                                                 SDL_CONTROLLER_BUTTON_MAX, 0);
    ASSERT_GE(device, 0);
    QFile news(folder.filePath("event7"));
    ASSERT_TRUE(news.open(QIODevice::WriteOnly));
    ASSERT_TRUE(waitUntil([&] { return pads->pads().size() == 1; })) << "a new device file is noticed";
    clock.advance(1min);
    EXPECT_EQ(clock.pending(), 1) << "the looks after the news are over, the regular ones go on";

    SDL_Joystick *joystick = SDL_JoystickFromInstanceID(pads->pads().first().id);
    const auto move = [&](int axis, int percent) {
        SDL_JoystickSetVirtualAxis(joystick, axis, Sint16(percent * 655 - 32750));
        clock.advance(8ms);
    };
    move(SDL_CONTROLLER_AXIS_TRIGGERLEFT, 0);
    for (const int percent : {30, 50, 60, 50, 60, 45, 100, 30, 50})
        move(SDL_CONTROLLER_AXIS_TRIGGERLEFT, percent);
    EXPECT_TRUE(hears({{PadButton::leftTrigger, true}, {PadButton::leftTrigger, false}})) << "no flutter in between";
    move(SDL_CONTROLLER_AXIS_LEFTX, 100);
    EXPECT_EQ(edges, Edges()) << "sticks are not for moving";

    SDL_JoystickSetVirtualButton(joystick, SDL_CONTROLLER_BUTTON_START, 1);
    SDL_JoystickSetVirtualButton(joystick, SDL_CONTROLLER_BUTTON_BACK, 1);
    QList<bool> otherHeld;
    QObject::connect(pads.get(), &Gamepads::pressed, pads.get(), [&](int pad, PadButton button) {
        otherHeld += pads->isHeld(pad, button == PadButton::menu ? PadButton::view : PadButton::menu);
    });
    clock.advance(8ms);
    EXPECT_EQ(otherHeld, (QList{false, true})) << "both at once: one of them is the second";

    SDL_JoystickDetachVirtual(device);
    clock.advance(8ms);
    EXPECT_EQ(gone.size(), 1);
    EXPECT_EQ(clock.pending(), 0);
}

TEST(DoorBell, ringsForNewsAndFallsSilentAtTheEnd)
{
    QTemporaryDir folder;
    const QString device = folder.filePath("event3");
    ASSERT_EQ(mkfifo(QFile::encodeName(device).constData(), 0600), 0);
    Descriptor writer(open(QFile::encodeName(device).constData(), O_RDWR | O_CLOEXEC));
    int rings = 0;
    DoorBell bell(device, [&] {
        ++rings;
        EXPECT_TRUE(bell.takeAll());
    });
    ASSERT_TRUE(bell.works());
    EXPECT_FALSE(bell.takeAll());
    ASSERT_EQ(write(writer.number(), "abc", 3), 3);
    EXPECT_TRUE(waitUntil([&] { return rings == 1; }));
    bell.mute(true);
    ASSERT_EQ(write(writer.number(), "abc", 3), 3);
    QCoreApplication::processEvents();
    EXPECT_EQ(rings, 1);
    bell.mute(false);
    EXPECT_TRUE(waitUntil([&] { return rings == 2; }));
    writer = Descriptor();
    EXPECT_TRUE(waitUntil([&] { return rings == 3; }));
    EXPECT_FALSE(bell.works());
    QCoreApplication::processEvents();
    EXPECT_EQ(rings, 3);
    EXPECT_FALSE(DoorBell(folder.filePath("none"), [] {}).works());
}
