#pragma once

#include "platform/Keys.h"
#include "platform/linux/XConnection.h"

#include <optional>

/// The keyboard as the server knew it when this was made: layouts change.
class XKeyboard {
public:
    explicit XKeyboard(XConnection &connection); ///< two round trips

    struct Place {
        xcb_keycode_t key = 0;
        bool shifted = false; ///< reached with Shift only
    };
    std::optional<Place> find(Qt::Key key) const; ///< nothing when the layout has no such key
    quint16 maskOf(Qt::Key modifier) const; ///< the bit that this modifier sets in the state of events; 0: none
    /// Keys of Shift, Control, Alt and the like that are down; those of locks are left out.
    QList<xcb_keycode_t> heldModifiers() const;

private:
    QList<xcb_keycode_t> keysOf(int modifier) const;

    XReply<xcb_get_keyboard_mapping_reply_t> m_symbols;
    XReply<xcb_get_modifier_mapping_reply_t> m_modifiers;
    XReply<xcb_query_keymap_reply_t> m_down;
    xcb_keycode_t m_first = 0;
};

/// X11's symbol for a key; 0 when it has none.
xcb_keysym_t symbolOf(Qt::Key key);
