#include "platform/linux/LinuxServices.h"
#include "platform/linux/XKeyboard.h"

#include <QKeySequence>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

class LinuxHotKey final : public HotKey {
public:
    explicit LinuxHotKey(const QByteArray &display) : m_display(display) { }
    Result<void> grab(const KeyStroke &stroke) override;

private:
    enum class Grab { done, noSuchKey, taken };

    Grab grabNow();
    void notice(const xcb_generic_event_t &event);

    const QByteArray m_display;
    std::unique_ptr<XConnection> m_connection; ///< made when first needed
    std::optional<KeyStroke> m_stroke; ///< the one that is grabbed
    xcb_keycode_t m_key = 0;
    xcb_timestamp_t m_lastRelease = 0;
};

}

static quint16 maskOf(Qt::KeyboardModifiers modifiers, const XKeyboard &keyboard)
{
    quint16 mask = 0;
    if (modifiers.testFlag(Qt::ShiftModifier)) mask |= XCB_MOD_MASK_SHIFT;
    if (modifiers.testFlag(Qt::ControlModifier)) mask |= XCB_MOD_MASK_CONTROL;
    if (modifiers.testFlag(Qt::AltModifier)) mask |= keyboard.maskOf(Qt::Key_Alt);
    if (modifiers.testFlag(Qt::MetaModifier)) mask |= keyboard.maskOf(Qt::Key_Meta);
    return mask;
}

Result<void> LinuxHotKey::grab(const KeyStroke &stroke)
{
    if (m_stroke == stroke) return {};
    const QString name = stroke.key == Qt::Key_Escape && stroke.modifiers == Qt::ControlModifier
        ? u"Control + Escape"_s
        : QKeySequence(QKeyCombination(stroke.modifiers, stroke.key)).toString(QKeySequence::PortableText);
    m_connection = std::make_unique<XConnection>(m_display); // what was grabbed before goes with the old one
    m_stroke.reset();
    if (!m_connection->isAlive())
        return Message{u"%@ can't open Velko's menu on this desktop. Use View + Menu on a controller."_s, {name}};
    m_stroke = stroke;
    const Grab grabbed = grabNow();
    m_connection->onEvent = [this](const xcb_generic_event_t &event) { notice(event); };
    if (grabbed == Grab::done) return {};
    m_stroke.reset();
    if (grabbed == Grab::noSuchKey)
        return Message{u"%@ isn't on this keyboard. Use View + Menu on a controller."_s, {name}};
    return Message{
        u"Another program has taken %@. Free it in that program or in your desktop's keyboard settings, then "
        u"start Velko again."_s,
        {name}};
}

// A grab holds for exact modifiers, so it is made for each state of the locks, which nobody thinks of.
LinuxHotKey::Grab LinuxHotKey::grabNow()
{
    const XKeyboard keyboard(*m_connection);
    const auto place = keyboard.find(m_stroke->key);
    if (!place) return Grab::noSuchKey;
    m_key = place->key;
    const quint16 mask = maskOf(m_stroke->modifiers, keyboard), numLock = keyboard.maskOf(Qt::Key_NumLock);
    QList<xcb_void_cookie_t> asked;
    for (const quint16 locks : {0, int(XCB_MOD_MASK_LOCK), int(numLock), int(numLock) | XCB_MOD_MASK_LOCK})
        asked += xcb_grab_key_checked(*m_connection, true, m_connection->root(), mask | locks, m_key,
                                      XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    bool taken = false;
    for (const xcb_void_cookie_t each : asked) {
        const XReply<xcb_generic_error_t> error{xcb_request_check(*m_connection, each)};
        taken = taken || error;
    }
    if (!taken) return Grab::done;
    xcb_ungrab_key(*m_connection, XCB_GRAB_ANY, m_connection->root(), XCB_MOD_MASK_ANY);
    m_connection->flush();
    return Grab::taken;
}

void LinuxHotKey::notice(const xcb_generic_event_t &event)
{
    const int type = event.response_type & 0x7f;
    const auto &key = reinterpret_cast<const xcb_key_press_event_t &>(event);
    if (type == XCB_KEY_RELEASE) m_lastRelease = key.time;
    // A key that is held repeats itself: a release and a press of the same moment.
    if (type == XCB_KEY_PRESS && key.detail == m_key && key.time != m_lastRelease) emit pressed();
    if (type != XCB_MAPPING_NOTIFY) return;
    const auto &mapping = reinterpret_cast<const xcb_mapping_notify_event_t &>(event);
    if (mapping.request == XCB_MAPPING_POINTER || !m_stroke) return;
    const auto place = XKeyboard(*m_connection).find(m_stroke->key);
    if (place && place->key == m_key) return; // as when another keyboard is used
    xcb_ungrab_key(*m_connection, XCB_GRAB_ANY, m_connection->root(), XCB_MOD_MASK_ANY);
    grabNow();
}

std::unique_ptr<HotKey> makeHotKey(const QByteArray &display)
{
    return std::make_unique<LinuxHotKey>(display);
}
