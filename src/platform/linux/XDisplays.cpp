#include "platform/linux/XDisplays.h"

#include <algorithm>
#include <xcb/randr.h>

using namespace Qt::StringLiterals;

static XDisplay wholeScreen(const XConnection &connection)
{
    const xcb_screen_t &screen = connection.screen();
    return {{u"screen"_s, {0, 0, screen.width_in_pixels, screen.height_in_pixels}, true}, 0};
}

// Monitors, not outputs: those that a user has drawn over a wide screen count as well, and an output that shows the
// same as another one does not count twice.
QList<XDisplay> displaysOf(XConnection &connection)
{
    if (!connection.isAlive()) return {};
    if (!connection.has(xcb_randr_id)) return {wholeScreen(connection)};
    const auto answer =
        connection.reply(xcb_randr_get_monitors_reply, xcb_randr_get_monitors(connection, connection.root(), true));
    QList<XDisplay> all;
    if (answer) {
        for (auto each = xcb_randr_get_monitors_monitors_iterator(answer.get()); each.rem > 0;
             xcb_randr_monitor_info_next(&each)) {
            const xcb_randr_monitor_info_t &monitor = *each.data;
            const QRect geometry(monitor.x, monitor.y, monitor.width, monitor.height);
            if (geometry.isEmpty()) continue;
            all +=
                {{QString::fromUtf8(connection.nameOf(monitor.name)), geometry, monitor.primary != 0}, int(all.size())};
        }
    }
    if (all.isEmpty()) return connection.isAlive() ? QList{wholeScreen(connection)} : QList<XDisplay>();
    std::stable_sort(all.begin(), all.end(), [](const XDisplay &left, const XDisplay &right) {
        return left.display.primary && !right.display.primary;
    });
    return all;
}

void watchDisplays(XConnection &connection)
{
    if (!connection.isAlive() || !connection.has(xcb_randr_id)) return;
    // The server answers requests of 1.5, such as that for monitors, only to who has asked for it.
    connection.reply(xcb_randr_query_version_reply, xcb_randr_query_version(connection, 1, 5));
    xcb_randr_select_input(connection, connection.root(),
                           XCB_RANDR_NOTIFY_MASK_SCREEN_CHANGE | XCB_RANDR_NOTIFY_MASK_CRTC_CHANGE
                               | XCB_RANDR_NOTIFY_MASK_OUTPUT_CHANGE);
    connection.flush();
}

bool tellsOfDisplays(const XConnection &connection, const xcb_generic_event_t &event)
{
    const int first = connection.firstEventOf(xcb_randr_id);
    const int type = event.response_type & 0x7f;
    return first >= 0 && (type == first + XCB_RANDR_SCREEN_CHANGE_NOTIFY || type == first + XCB_RANDR_NOTIFY);
}
