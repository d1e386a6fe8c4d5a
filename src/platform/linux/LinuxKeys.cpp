#include "platform/linux/LinuxServices.h"
#include "platform/linux/XKeyboard.h"

#include <xcb/xtest.h>

namespace {

/// By XTest, as from a keyboard: what is sent to a window itself programs with SDL ignore.
class LinuxKeys final : public Keys {
public:
    explicit LinuxKeys(const QByteArray &display) : m_display(display) { }
    bool press(const KeyStroke &stroke) override;

private:
    void turn(quint8 direction, xcb_keycode_t key, quint32 afterMilliseconds = 0);
    bool arrives(xcb_void_cookie_t request);

    const QByteArray m_display;
    std::unique_ptr<XConnection> m_connection; ///< made when first needed
};

// Programs that look at the keyboard once a frame must see the key in one of their looks. The server waits, not we.
constexpr quint32 heldFor = 40;
// Dolphin 5.0 takes a stroke for one only when it has seen the modifiers down before the key.
constexpr quint32 modifiersFirst = 30;

}

/// The keys of a stroke in the order in which they go down; empty when the keyboard lacks one.
static QList<xcb_keycode_t> keysOf(const KeyStroke &stroke, const XKeyboard &keyboard)
{
    const auto main = keyboard.find(stroke.key);
    if (!main) return {};
    Qt::KeyboardModifiers modifiers = stroke.modifiers;
    modifiers.setFlag(Qt::ShiftModifier, main->shifted || modifiers.testFlag(Qt::ShiftModifier));
    const std::pair<Qt::KeyboardModifier, Qt::Key> order[]{{Qt::ShiftModifier, Qt::Key_Shift},
                                                           {Qt::ControlModifier, Qt::Key_Control},
                                                           {Qt::AltModifier, Qt::Key_Alt},
                                                           {Qt::MetaModifier, Qt::Key_Meta}};
    QList<xcb_keycode_t> keys;
    for (const auto &[modifier, key] : order) {
        if (!modifiers.testFlag(modifier)) continue;
        const auto place = keyboard.find(key);
        if (!place) return {};
        keys += place->key;
    }
    return keys + QList{main->key};
}

void LinuxKeys::turn(quint8 direction, xcb_keycode_t key, quint32 afterMilliseconds)
{
    xcb_test_fake_input(*m_connection, direction, key, afterMilliseconds, XCB_WINDOW_NONE, 0, 0, 0);
}

bool LinuxKeys::press(const KeyStroke &stroke)
{
    if (!m_connection) m_connection = std::make_unique<XConnection>(m_display);
    if (!m_connection->isAlive() || !m_connection->has(xcb_test_id)) return false;
    const XKeyboard keyboard(*m_connection);
    const QList<xcb_keycode_t> keys = keysOf(stroke, keyboard);
    if (keys.isEmpty()) return false;

    // What the user still holds, such as the Control of the hot key, would make another stroke of it.
    for (const xcb_keycode_t held : keyboard.heldModifiers())
        turn(XCB_KEY_RELEASE, held);
    // A server without a keyboard, as some on Wayland before the first key, refuses. It is asked about the first key,
    // since it answers only after what it waits for.
    const bool arrived =
        arrives(xcb_test_fake_input_checked(*m_connection, XCB_KEY_PRESS, keys.first(), 0, XCB_WINDOW_NONE, 0, 0, 0));
    for (qsizetype i = 1; i < keys.size(); ++i)
        turn(XCB_KEY_PRESS, keys[i], i == keys.size() - 1 ? modifiersFirst : 0);
    quint32 wait = heldFor;
    for (auto key = keys.rbegin(); key != keys.rend(); ++key)
        turn(XCB_KEY_RELEASE, *key, std::exchange(wait, 0));
    m_connection->flush();
    return arrived;
}

bool LinuxKeys::arrives(xcb_void_cookie_t request)
{
    const XReply<xcb_generic_error_t> error{xcb_request_check(*m_connection, request)};
    return !error && m_connection->isAlive();
}

std::unique_ptr<Keys> makeKeys(const QByteArray &display)
{
    return std::make_unique<LinuxKeys>(display);
}
