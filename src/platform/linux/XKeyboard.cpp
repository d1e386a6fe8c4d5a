#include "platform/linux/XKeyboard.h"

#include <QChar>

static constexpr int shiftModifier = 0, lockModifier = 1, modifierCount = 8; // as in the protocol

xcb_keysym_t symbolOf(Qt::Key key)
{
    struct Row {
        Qt::Key key;
        xcb_keysym_t symbol;
    };
    static constexpr Row rows[]{
        {Qt::Key_Escape, 0xff1b}, {Qt::Key_Tab, 0xff09},        {Qt::Key_Backspace, 0xff08},
        {Qt::Key_Return, 0xff0d}, {Qt::Key_Enter, 0xff8d},      {Qt::Key_Insert, 0xff63},
        {Qt::Key_Delete, 0xffff}, {Qt::Key_Pause, 0xff13},      {Qt::Key_Print, 0xff61},
        {Qt::Key_Home, 0xff50},   {Qt::Key_End, 0xff57},        {Qt::Key_Left, 0xff51},
        {Qt::Key_Up, 0xff52},     {Qt::Key_Right, 0xff53},      {Qt::Key_Down, 0xff54},
        {Qt::Key_PageUp, 0xff55}, {Qt::Key_PageDown, 0xff56},   {Qt::Key_Menu, 0xff67},
        {Qt::Key_Shift, 0xffe1},  {Qt::Key_Control, 0xffe3},    {Qt::Key_Alt, 0xffe9},
        {Qt::Key_Meta, 0xffeb},   {Qt::Key_CapsLock, 0xffe5},   {Qt::Key_NumLock, 0xff7f},
        {Qt::Key_AltGr, 0xfe03},  {Qt::Key_ScrollLock, 0xff14},
    };
    for (const Row &row : rows) {
        if (row.key == key) return row.symbol;
    }
    if (key >= Qt::Key_F1 && key <= Qt::Key_F35) return 0xffbe + xcb_keysym_t(key - Qt::Key_F1);
    const bool isCharacter = (key >= 0x20 && key <= 0x7e) || (key >= 0xa0 && key <= 0xff);
    return isCharacter ? xcb_keysym_t(QChar::toLower(uint(key))) : 0;
}

XKeyboard::XKeyboard(XConnection &connection)
{
    if (!connection.isAlive()) return;
    m_first = connection.setup().min_keycode;
    const auto count = quint8(connection.setup().max_keycode - m_first + 1);
    const auto symbols = xcb_get_keyboard_mapping(connection, m_first, count);
    const auto modifiers = xcb_get_modifier_mapping(connection);
    const auto down = xcb_query_keymap(connection);
    m_symbols = connection.reply(xcb_get_keyboard_mapping_reply, symbols);
    m_modifiers = connection.reply(xcb_get_modifier_mapping_reply, modifiers);
    m_down = connection.reply(xcb_query_keymap_reply, down);
}

// The first two columns of each key are the first layout, plain and with Shift.
std::optional<XKeyboard::Place> XKeyboard::find(Qt::Key key) const
{
    const xcb_keysym_t wanted = symbolOf(key);
    if (!m_symbols || !wanted) return {};
    const int columns = m_symbols->keysyms_per_keycode;
    const xcb_keysym_t *symbols = xcb_get_keyboard_mapping_keysyms(m_symbols.get());
    const int keys = columns ? xcb_get_keyboard_mapping_keysyms_length(m_symbols.get()) / columns : 0;
    for (int column = 0; column < std::min(columns, 2); ++column) {
        for (int i = 0; i < keys; ++i) {
            if (symbols[i * columns + column] == wanted) return Place{xcb_keycode_t(m_first + i), column == 1};
        }
    }
    return {};
}

QList<xcb_keycode_t> XKeyboard::keysOf(int modifier) const
{
    QList<xcb_keycode_t> all;
    if (!m_modifiers) return all;
    const int each = m_modifiers->keycodes_per_modifier;
    const xcb_keycode_t *keys = xcb_get_modifier_mapping_keycodes(m_modifiers.get());
    for (int i = 0; i < each; ++i) {
        if (const xcb_keycode_t key = keys[modifier * each + i]) all += key;
    }
    return all;
}

quint16 XKeyboard::maskOf(Qt::Key modifier) const
{
    const auto place = find(modifier);
    for (int i = shiftModifier; place && i < modifierCount; ++i) {
        if (keysOf(i).contains(place->key)) return quint16(1 << i);
    }
    return 0;
}

QList<xcb_keycode_t> XKeyboard::heldModifiers() const
{
    QList<xcb_keycode_t> held;
    const auto numLock = find(Qt::Key_NumLock);
    for (int i = shiftModifier; m_down && i < modifierCount; ++i) {
        for (const xcb_keycode_t key : i == lockModifier ? QList<xcb_keycode_t>() : keysOf(i)) {
            const bool down = m_down->keys[key / 8] & (1 << key % 8);
            if (down && !(numLock && numLock->key == key)) held += key;
        }
    }
    return held;
}
