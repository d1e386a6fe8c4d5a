#include "platform/linux/LinuxServices.h"
#include "platform/linux/SharedPicture.h"
#include "platform/linux/XConnection.h"

#include <xcb/randr.h>

namespace {

class LinuxScreenCapture final : public ScreenCapture {
public:
    explicit LinuxScreenCapture(const QByteArray &display) : m_display(display) { }
    QImage window(quint64 id) override;
    QImage screen(const QRect &place) override;

private:
    bool connect();
    bool isOnWayland();

    const QByteArray m_display;
    std::unique_ptr<XConnection> m_connection; ///< made when first needed
    std::optional<bool> m_onWayland;
};

}

bool LinuxScreenCapture::connect()
{
    if (!m_connection) m_connection = std::make_unique<XConnection>(m_display);
    return m_connection->isAlive();
}

// The window's own picture is right also under XWayland, where that of the screen is black. The server gives none of
// a window that reaches out of the screen, so only of what is inside.
QImage LinuxScreenCapture::window(quint64 id)
{
    if (!connect()) return {};
    const auto window = xcb_window_t(id);
    const auto sizeAsked = xcb_get_geometry(*m_connection, window),
               rootAsked = xcb_get_geometry(*m_connection, m_connection->root());
    const auto placeAsked = xcb_translate_coordinates(*m_connection, window, m_connection->root(), 0, 0);
    const auto size = m_connection->reply(xcb_get_geometry_reply, sizeAsked);
    const auto root = m_connection->reply(xcb_get_geometry_reply, rootAsked);
    const auto place = m_connection->reply(xcb_translate_coordinates_reply, placeAsked);
    if (!size || !root || !place) return {};
    const QPoint origin(place->dst_x, place->dst_y);
    const QRect shown = QRect(origin, QSize(size->width, size->height)) & QRect(0, 0, root->width, root->height);
    return pictureOf(*m_connection, window, shown.translated(-origin));
}

QImage LinuxScreenCapture::screen(const QRect &place)
{
    if (!connect() || isOnWayland()) return {};
    const auto asked = xcb_get_geometry(*m_connection, m_connection->root());
    const auto root = m_connection->reply(xcb_get_geometry_reply, asked);
    return root ? pictureOf(*m_connection, m_connection->root(), place & QRect(0, 0, root->width, root->height))
                : QImage();
}

/// Under XWayland the screen is black: its outputs are called XWAYLAND0 and so on.
bool LinuxScreenCapture::isOnWayland()
{
    if (m_onWayland) return *m_onWayland;
    m_onWayland = false;
    if (!m_connection->has(xcb_randr_id)) return false;
    m_connection->reply(xcb_randr_query_version_reply, xcb_randr_query_version(*m_connection, 1, 5));
    const auto asked = xcb_randr_get_monitors(*m_connection, m_connection->root(), true);
    const auto monitors = m_connection->reply(xcb_randr_get_monitors_reply, asked);
    if (!monitors || monitors->nMonitors == 0) return false;
    const auto first = xcb_randr_get_monitors_monitors_iterator(monitors.get());
    m_onWayland = m_connection->nameOf(first.data->name).startsWith("XWAYLAND");
    return *m_onWayland;
}

std::unique_ptr<ScreenCapture> makeScreenCapture(const QByteArray &display)
{
    return std::make_unique<LinuxScreenCapture>(display);
}
