#include "Desktop.h"

#include <xcb/xcb.h>

template <typename T>
using Reply = std::unique_ptr<T, decltype(&std::free)>;

template <typename T>
static Reply<T> owned(T *reply)
{
    return {reply, &std::free};
}

Desktop::Desktop(const QByteArray &display) : m_connection(xcb_connect(display.constData(), nullptr), &xcb_disconnect)
{
    if (!isOpen()) return;
    const xcb_screen_t &screen = *xcb_setup_roots_iterator(xcb_get_setup(m_connection.get())).data;
    m_root = screen.root;
    m_size = QSize(screen.width_in_pixels, screen.height_in_pixels);
}

Desktop::~Desktop() = default;

bool Desktop::isOpen() const
{
    return xcb_connection_has_error(m_connection.get()) == 0;
}

QSize Desktop::size() const
{
    return m_size;
}

quint32 Desktop::atom(const char *name) const
{
    const auto cookie = xcb_intern_atom(m_connection.get(), false, quint16(qstrlen(name)), name);
    const auto reply = owned(xcb_intern_atom_reply(m_connection.get(), cookie, nullptr));
    return reply ? reply->atom : 0;
}

QByteArray Desktop::property(quint32 window, const char *name) const
{
    const auto cookie = xcb_get_property(m_connection.get(), false, window, atom(name), XCB_ATOM_ANY, 0, 4096);
    const auto reply = owned(xcb_get_property_reply(m_connection.get(), cookie, nullptr));
    if (!reply) return {};
    return {static_cast<const char *>(xcb_get_property_value(reply.get())), xcb_get_property_value_length(reply.get())};
}

QList<quint32> Desktop::numbers(quint32 window, const char *name) const
{
    const QByteArray bytes = property(window, name);
    QList<quint32> list(bytes.size() / 4);
    memcpy(list.data(), bytes.constData(), size_t(list.size()) * 4);
    return list;
}

bool Desktop::hasWindowManager() const
{
    return !numbers(m_root, "_NET_SUPPORTING_WM_CHECK").isEmpty();
}

DesktopWindow Desktop::described(quint32 window) const
{
    DesktopWindow result{.id = window};
    result.title = QString::fromUtf8(property(window, "_NET_WM_NAME"));
    result.pid = numbers(window, "_NET_WM_PID").value(0);
    result.fullScreen = numbers(window, "_NET_WM_STATE").contains(atom("_NET_WM_STATE_FULLSCREEN"));
    xcb_connection_t *c = m_connection.get();
    const auto size = owned(xcb_get_geometry_reply(c, xcb_get_geometry(c, window), nullptr));
    const auto place =
        owned(xcb_translate_coordinates_reply(c, xcb_translate_coordinates(c, window, m_root, 0, 0), nullptr));
    if (size && place) result.place = QRect(place->dst_x, place->dst_y, size->width, size->height);
    return result;
}

QList<DesktopWindow> Desktop::windows() const
{
    QList<DesktopWindow> list;
    for (const quint32 window : numbers(m_root, "_NET_CLIENT_LIST"))
        list += described(window);
    return list;
}

std::optional<DesktopWindow> Desktop::active() const
{
    const quint32 window = numbers(m_root, "_NET_ACTIVE_WINDOW").value(0);
    if (window == 0) return {};
    return described(window);
}

QList<DesktopWindow> Desktop::unmanaged() const
{
    xcb_connection_t *c = m_connection.get();
    QList<DesktopWindow> list;
    const auto tree = owned(xcb_query_tree_reply(c, xcb_query_tree(c, m_root), nullptr));
    for (int i = 0; tree && i < xcb_query_tree_children_length(tree.get()); ++i) {
        const quint32 window = xcb_query_tree_children(tree.get())[i];
        const auto facts = owned(xcb_get_window_attributes_reply(c, xcb_get_window_attributes(c, window), nullptr));
        if (facts && facts->override_redirect && facts->map_state == XCB_MAP_STATE_VIEWABLE) list += described(window);
    }
    return list;
}

void Desktop::close(quint32 window)
{
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = atom("_NET_CLOSE_WINDOW");
    message.data.data32[1] = 2; // on behalf of the user
    xcb_send_event(m_connection.get(), false, m_root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char *>(&message));
    xcb_flush(m_connection.get());
}

QImage Desktop::picture() const
{
    const auto cookie = xcb_get_image(m_connection.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, m_root, 0, 0,
                                      quint16(m_size.width()), quint16(m_size.height()), ~0u);
    const auto reply = owned(xcb_get_image_reply(m_connection.get(), cookie, nullptr));
    if (!reply) return {};
    return QImage(xcb_get_image_data(reply.get()), m_size.width(), m_size.height(), QImage::Format_RGB32).copy();
}
