#include "platform/XTestWindow.h"

XTestWindow::XTestWindow(const QByteArray &display, const Look &look) : m_connection(display), m_closes(look.closes)
{
    if (!m_connection.isAlive()) return;
    m_window = xcb_generate_id(m_connection);
    const quint32 values[] = {look.colour, XCB_EVENT_MASK_KEY_PRESS};
    const QRect &place = look.geometry;
    xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, m_window, m_connection.root(), qint16(place.x()),
                      qint16(place.y()), quint16(place.width()), quint16(place.height()), 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK,
                      values);
    const QByteArray title = look.title.toUtf8();
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, m_window, m_connection.atom("_NET_WM_NAME"),
                        m_connection.atom("UTF8_STRING"), 8, quint32(title.size()), title.constData());
    QList<quint32> types;
    for (const QString &type : look.types)
        types += m_connection.atom(type.toLatin1().constData());
    if (!types.isEmpty()) set("_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM, types);
    if (look.transientFor) set("WM_TRANSIENT_FOR", XCB_ATOM_WINDOW, {look.transientFor});
    if (look.modal) set("_NET_WM_STATE", XCB_ATOM_ATOM, {m_connection.atom("_NET_WM_STATE_MODAL")});
    if (look.toldPid) set("_NET_WM_PID", XCB_ATOM_CARDINAL, {look.toldPid});
    set("WM_PROTOCOLS", XCB_ATOM_ATOM, {m_connection.atom("WM_DELETE_WINDOW")});
    // Position given by the user, so that no window manager chooses another one.
    set("WM_NORMAL_HINTS", XCB_ATOM_WM_SIZE_HINTS, QList<quint32>{1} + QList<quint32>(17, 0));
    xcb_map_window(m_connection, m_window);
    m_connection.onEvent = [this](const xcb_generic_event_t &event) { notice(event); };
    m_connection.flush();
}

void XTestWindow::close()
{
    if (m_window) xcb_destroy_window(m_connection, std::exchange(m_window, 0));
    m_connection.flush();
}

void XTestWindow::set(const char *name, xcb_atom_t type, const QList<quint32> &numbers)
{
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, m_window, m_connection.atom(name), type, 32,
                        quint32(numbers.size()), numbers.constData());
}

void XTestWindow::notice(const xcb_generic_event_t &event)
{
    const int type = event.response_type & 0x7f;
    if (type == XCB_CLIENT_MESSAGE && m_closes) close(); // the only message that it asks for
    if (type != XCB_KEY_PRESS) return;
    const auto &press = reinterpret_cast<const xcb_key_press_event_t &>(event);
    keys += press.detail;
    states += press.state;
}
