#include "platform/linux/XWindowReader.h"

#include <array>
#include <vector>
#include <xcb/res.h>

static constexpr quint32 mostWindows = 4096; // nobody has more; a list without end must not be read to its end
static constexpr quint32 titleWords = 256; // 1 KiB
static constexpr quint32 listWords = 64; // types, states

XWindowReader::XWindowReader(XConnection &connection) : m_connection(connection)
{
    if (!connection.isAlive() || !connection.has(xcb_res_id)) return;
    const auto version = connection.reply(xcb_res_query_version_reply, xcb_res_query_version(connection, 1, 2));
    m_knowsClients = version && (version->server_major > 1 || version->server_minor >= 2);
}

xcb_get_property_cookie_t XWindowReader::property(xcb_window_t window, const char *name, quint32 length) const
{
    return xcb_get_property(m_connection, false, window, m_connection.atom(name), XCB_GET_PROPERTY_TYPE_ANY, 0, length);
}

QList<quint32> XWindowReader::numbers(xcb_get_property_cookie_t asked) const
{
    return numbersOf(m_connection.reply(xcb_get_property_reply, asked));
}

QList<xcb_window_t> XWindowReader::managed() const
{
    return numbers(property(m_connection.root(), "_NET_CLIENT_LIST", mostWindows));
}

xcb_window_t XWindowReader::active() const
{
    return numbers(property(m_connection.root(), "_NET_ACTIVE_WINDOW", 1)).value(0);
}

/// What the server itself knows of who made a window: the truth also for a program in a sandbox, whose own number for
/// its process means another one, or none, out here.
QHash<xcb_window_t, qint64> XWindowReader::clientProcesses(const QList<xcb_window_t> &windows) const
{
    if (!m_knowsClients || windows.isEmpty()) return {};
    std::vector<xcb_res_client_id_spec_t> specs;
    for (const xcb_window_t window : windows)
        specs.push_back({window, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID});
    const auto answer = m_connection.reply(xcb_res_query_client_ids_reply,
                                           xcb_res_query_client_ids(m_connection, quint32(specs.size()), specs.data()));
    if (!answer) return {};
    QHash<quint32, qint64> byClient; // an answer names the client, as the common part of its windows' identifiers
    for (auto each = xcb_res_query_client_ids_ids_iterator(answer.get()); each.rem > 0;
         xcb_res_client_id_value_next(&each)) {
        if (xcb_res_client_id_value_value_length(each.data) > 0)
            byClient[each.data->spec.client] = xcb_res_client_id_value_value(each.data)[0];
    }
    QHash<xcb_window_t, qint64> processes;
    for (const xcb_window_t window : windows)
        processes[window] = byClient.value(window & ~m_connection.setup().resource_id_mask);
    return processes;
}

QHash<xcb_window_t, qint64> XWindowReader::owners(const QList<xcb_window_t> &windows) const
{
    QList<xcb_get_property_cookie_t> asked;
    for (const xcb_window_t window : windows)
        asked += property(window, "_NET_WM_PID", 1);
    QHash<xcb_window_t, qint64> processes = clientProcesses(windows);
    for (qsizetype i = 0; i < windows.size(); ++i) {
        const qint64 told = numbers(asked[i]).value(0);
        if (processes.value(windows[i]) == 0) processes[windows[i]] = told;
    }
    return processes;
}

struct XWindowReader::Questions {
    xcb_window_t window;
    xcb_get_geometry_cookie_t geometry;
    xcb_translate_coordinates_cookie_t place;
    xcb_get_property_cookie_t transientFor, types, states, title, oldTitle;
};

XWindowReader::Questions XWindowReader::ask(xcb_window_t window) const
{
    return {window,
            xcb_get_geometry(m_connection, window),
            xcb_translate_coordinates(m_connection, window, m_connection.root(), 0, 0),
            property(window, "WM_TRANSIENT_FOR", 1),
            property(window, "_NET_WM_WINDOW_TYPE", listWords),
            property(window, "_NET_WM_STATE", listWords),
            property(window, "_NET_WM_NAME", titleWords),
            property(window, "WM_NAME", titleWords)};
}

// Qt appends the normal type to every list, so only the first one counts; but types of one's own, as KDE's, are
// meant to be passed over.
WindowKind XWindowReader::kindOf(const QList<quint32> &types) const
{
    for (const quint32 type : types) {
        if (type == m_connection.atom("_NET_WM_WINDOW_TYPE_NORMAL")) return WindowKind::normal;
        if (type == m_connection.atom("_NET_WM_WINDOW_TYPE_DIALOG")) return WindowKind::dialog;
        if (m_connection.nameOf(type).startsWith("_NET_WM_WINDOW_TYPE_")) return WindowKind::other;
    }
    return WindowKind::normal; // RetroArch sets none
}

std::optional<AppWindow> XWindowReader::answer(const Questions &asked) const
{
    const auto geometry = m_connection.reply(xcb_get_geometry_reply, asked.geometry);
    const auto place = m_connection.reply(xcb_translate_coordinates_reply, asked.place);
    AppWindow window{.id = asked.window};
    window.transientFor = numbers(asked.transientFor).value(0);
    const QList<quint32> types = numbers(asked.types), states = numbers(asked.states);
    window.title = QString::fromUtf8(bytesOf(m_connection.reply(xcb_get_property_reply, asked.title)));
    const QByteArray oldTitle = bytesOf(m_connection.reply(xcb_get_property_reply, asked.oldTitle));
    if (!geometry || !place) return {}; // it has gone; all answers are fetched all the same
    if (window.title.isEmpty()) window.title = QString::fromLocal8Bit(oldTitle);
    window.geometry = {place->dst_x, place->dst_y, geometry->width, geometry->height};
    window.kind = kindOf(types);
    window.modal = states.contains(m_connection.atom("_NET_WM_STATE_MODAL"));
    window.fullScreen = states.contains(m_connection.atom("_NET_WM_STATE_FULLSCREEN"));
    return window;
}

QList<AppWindow> XWindowReader::described(const QList<xcb_window_t> &windows,
                                          const QHash<xcb_window_t, qint64> &owners) const
{
    std::vector<Questions> asked;
    for (const xcb_window_t window : windows)
        asked.push_back(ask(window));
    QList<AppWindow> all;
    for (const Questions &each : asked) {
        if (auto window = answer(each)) {
            window->pid = owners.value(each.window);
            all += *window;
        }
    }
    return all;
}
