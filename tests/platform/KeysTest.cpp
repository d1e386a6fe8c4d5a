#include "platform/Keys.h"
#include "platform/HotKey.h"
#include "platform/WaitUntil.h"
#include "platform/XServer.h"
#include "platform/XTestWindow.h"
#include "platform/linux/LinuxServices.h"
#include "platform/linux/XKeyboard.h"

#include <gtest/gtest.h>
#include <xcb/xtest.h>

using namespace Qt::StringLiterals;

namespace {
/// A display with a window in front that takes keys.
struct Typing {
    XServer server;
    XConnection connection{server.display()};
    XTestWindow window{server.display(), {}};
    std::unique_ptr<Keys> keys = makeKeys(server.display());

    Typing()
    {
        const auto isInFront = [this] {
            xcb_set_input_focus(connection, XCB_INPUT_FOCUS_PARENT, window.id(), XCB_CURRENT_TIME);
            const auto focus = connection.reply(xcb_get_input_focus_reply, xcb_get_input_focus(connection));
            return focus && focus->focus == window.id();
        };
        waitUntil(isInFront, std::chrono::seconds(20));
    }
    bool isDown(Qt::Key key)
    {
        const auto place = XKeyboard(connection).find(key);
        const auto down = connection.reply(xcb_query_keymap_reply, xcb_query_keymap(connection));
        return place && down && (down->keys[place->key / 8] & (1 << place->key % 8));
    }
    /// As the user does.
    void turn(quint8 direction, Qt::Key key)
    {
        xcb_test_fake_input(connection, direction, XKeyboard(connection).find(key)->key, 0, XCB_WINDOW_NONE, 0, 0, 0);
        connection.flush();
    }
};
}

TEST(LinuxKeys, typesWithItsModifiersOnly)
{
    Typing typing;
    typing.turn(XCB_KEY_PRESS, Qt::Key_Control); // still held from the hot key
    ASSERT_TRUE(waitUntil([&] { return typing.isDown(Qt::Key_Control); }));
    EXPECT_TRUE(typing.keys->press({Qt::Key_F1, Qt::ShiftModifier}));
    const auto f1 = XKeyboard(typing.connection).find(Qt::Key_F1)->key;
    ASSERT_TRUE(waitUntil([&] { return typing.window.keys.contains(f1); }));
    EXPECT_EQ(typing.window.states[typing.window.keys.indexOf(f1)], XCB_MOD_MASK_SHIFT);
    for (const Qt::Key key : {Qt::Key_F1, Qt::Key_Shift, Qt::Key_Control})
        EXPECT_TRUE(waitUntil([&] { return !typing.isDown(key); }));
}

TEST(LinuxKeys, knowsWhatItCannotType)
{
    Typing typing;
    EXPECT_FALSE(typing.keys->press({}));
    EXPECT_FALSE(typing.keys->press({Qt::Key_LaunchMail}));
    EXPECT_FALSE(typing.keys->press({Qt::Key_Odiaeresis})); // not on the American keyboard of the test server
    EXPECT_TRUE(typing.keys->press({Qt::Key_F}));
    EXPECT_TRUE(typing.keys->press({Qt::Key_Exclam})); // with Shift
    typing.server.kill();
    EXPECT_FALSE(typing.keys->press({Qt::Key_F}));
    EXPECT_FALSE(makeKeys(":9999")->press({Qt::Key_F}));
}

TEST(LinuxHotKey, reachesUsWhateverTheLocksAreAndOnceForALongPress)
{
    Typing typing;
    const auto hotKey = makeHotKey(typing.server.display());
    int presses = 0;
    QObject::connect(hotKey.get(), &HotKey::pressed, hotKey.get(), [&] { ++presses; });
    ASSERT_TRUE(hotKey->grab({Qt::Key_Escape, Qt::ControlModifier}));
    ASSERT_TRUE(hotKey->grab({Qt::Key_Escape, Qt::ControlModifier}));
    for (const auto lock : {Qt::Key_unknown, Qt::Key_NumLock, Qt::Key_CapsLock}) {
        if (lock != Qt::Key_unknown) typing.keys->press({lock});
        presses = 0;
        EXPECT_TRUE(typing.keys->press({Qt::Key_Escape, Qt::ControlModifier}));
        EXPECT_TRUE(waitUntil([&] { return presses == 1; })) << lock;
    }
    EXPECT_TRUE(typing.keys->press({Qt::Key_Escape}));
    const auto escape = XKeyboard(typing.connection).find(Qt::Key_Escape)->key;
    EXPECT_TRUE(waitUntil([&] { return typing.window.keys.contains(escape); })); // Escape alone stays the game's
    EXPECT_EQ(presses, 1);
}

TEST(LinuxHotKey, tellsWhenAnotherProgramHasTheKey)
{
    Typing typing;
    const auto first = makeHotKey(typing.server.display());
    ASSERT_TRUE(first->grab({Qt::Key_Escape, Qt::ControlModifier}));
    const auto second = makeHotKey(typing.server.display());
    const auto refused = second->grab({Qt::Key_Escape, Qt::ControlModifier});
    ASSERT_FALSE(refused);
    EXPECT_TRUE(english(refused.failure()).contains(u"Control + Escape. Free it"_s))
        << qPrintable(english(refused.failure()));
    EXPECT_FALSE(makeHotKey(":9999")->grab({Qt::Key_Escape, Qt::ControlModifier}));
}
