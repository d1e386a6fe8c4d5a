#include "platform/linux/LinuxServices.h"
#include "platform/linux/TilingCommands.h"
#include "platform/linux/XDisplays.h"
#include "platform/linux/XWindowReader.h"

#include <array>

namespace {

class LinuxWindows final : public Windows {
public:
    explicit LinuxWindows(const QByteArray &display);

    bool isAvailable() const override { return m_connection->isAlive(); }
    QList<Monitor> displays() const override;
    QList<AppWindow> windowsOf(const QList<qint64> &pids) const override;
    std::optional<AppWindow> activeWindow() const override;
    bool haveLayers() const override { return !m_tiling.areTaken(); }
    bool isComposed() const override;
    void move(quint64 window, const QRect &place) override;
    void setFullScreen(quint64 window, bool fullScreen, int display) override;
    void activate(quint64 window) override;
    void requestClose(quint64 window) override;

private:
    using Numbers = std::array<quint32, 5>;
    enum class StateChange : quint32 { remove = 0, add = 1 };

    void notice(const xcb_generic_event_t &event);
    void noticeProperty(xcb_atom_t property);
    void lookAtDisplays();
    bool managerKnows(const char *request);
    void configure(quint64 window, const QRect &place);
    void tellManager(quint64 window, const char *request, const Numbers &numbers);
    void changeState(quint64 window, StateChange change, const char *state, const char *second = nullptr);

    const std::unique_ptr<XConnection> m_connection;
    const XWindowReader m_reader;
    mutable TilingCommands m_tiling; ///< asks the display when first needed
    QList<Monitor> m_known; ///< displays when they were last announced
    bool m_looksAtDisplays = false; ///< about to
    std::optional<QList<quint32>> m_supported; ///< by the present window manager; absent: not asked yet
};

constexpr quint32 fromUser = 2; // window managers hold requests of ordinary programs back, those of pagers not

}

LinuxWindows::LinuxWindows(const QByteArray &display)
    : m_connection(std::make_unique<XConnection>(display)), m_reader(*m_connection), m_tiling(*m_connection)
{
    if (!isAvailable()) return;
    m_connection->intern({"_NET_CLIENT_LIST",
                          "_NET_ACTIVE_WINDOW",
                          "_NET_SUPPORTED",
                          "_NET_SUPPORTING_WM_CHECK",
                          "_NET_WM_PID",
                          "_NET_WM_NAME",
                          "WM_NAME",
                          "WM_TRANSIENT_FOR",
                          "_NET_WM_WINDOW_TYPE",
                          "_NET_WM_WINDOW_TYPE_NORMAL",
                          "_NET_WM_WINDOW_TYPE_DIALOG",
                          "_NET_WM_STATE",
                          "_NET_WM_STATE_MODAL",
                          "_NET_WM_STATE_FULLSCREEN",
                          "_NET_WM_STATE_MAXIMIZED_VERT",
                          "_NET_WM_STATE_MAXIMIZED_HORZ",
                          "_NET_MOVERESIZE_WINDOW",
                          "_NET_WM_FULLSCREEN_MONITORS",
                          "_NET_CLOSE_WINDOW",
                          "_NET_WM_CM_S0"});
    const quint32 mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(*m_connection, m_connection->root(), XCB_CW_EVENT_MASK, &mask);
    watchDisplays(*m_connection);
    m_known = displays();
    m_connection->onEvent = [this](const xcb_generic_event_t &event) { notice(event); };
}

QList<Monitor> LinuxWindows::displays() const
{
    QList<Monitor> all;
    for (const XDisplay &each : displaysOf(*m_connection))
        all += each.display;
    return all;
}

QList<AppWindow> LinuxWindows::windowsOf(const QList<qint64> &pids) const
{
    QList<xcb_window_t> windows = m_reader.managed();
    const auto owners = m_reader.owners(windows);
    windows.removeIf([&](xcb_window_t each) { return !pids.contains(owners.value(each)); });
    return m_reader.described(windows, owners);
}

std::optional<AppWindow> LinuxWindows::activeWindow() const
{
    const xcb_window_t active = m_reader.active();
    if (active == XCB_WINDOW_NONE) return {};
    const QList<AppWindow> found = m_reader.described({active}, m_reader.owners({active}));
    return found.isEmpty() ? std::nullopt : std::optional(found.first());
}

// Whoever blends windows owns this name. They come and go while programs run.
bool LinuxWindows::isComposed() const
{
    const auto asked = xcb_get_selection_owner(*m_connection, m_connection->atom("_NET_WM_CM_S0"));
    const auto owner = m_connection->reply(xcb_get_selection_owner_reply, asked);
    return owner && owner->owner != XCB_WINDOW_NONE;
}

// xfwm4 takes no move of a window that is maximised or full screen, so both end first; window managers take requests
// in their order.
void LinuxWindows::move(quint64 window, const QRect &place)
{
    if (m_tiling.move(quint32(window), place)) return;
    changeState(window, StateChange::remove, "_NET_WM_STATE_FULLSCREEN");
    changeState(window, StateChange::remove, "_NET_WM_STATE_MAXIMIZED_VERT", "_NET_WM_STATE_MAXIMIZED_HORZ");
    if (!managerKnows("_NET_MOVERESIZE_WINDOW")) return configure(window, place); // as awesome
    constexpr quint32 allFour = 1 << 8 | 1 << 9 | 1 << 10 | 1 << 11; // x, y, width and height are given
    tellManager(window, "_NET_MOVERESIZE_WINDOW",
                {allFour | fromUser << 12, quint32(place.x()), quint32(place.y()), quint32(place.width()),
                 quint32(place.height())});
}

/// Asks for it as the program that the window belongs to would.
void LinuxWindows::configure(quint64 window, const QRect &place)
{
    const quint32 values[] = {quint32(place.x()), quint32(place.y()), quint32(place.width()), quint32(place.height())};
    xcb_configure_window(*m_connection, xcb_window_t(window),
                         XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT,
                         values);
    m_connection->flush();
}

void LinuxWindows::setFullScreen(quint64 window, bool fullScreen, int display)
{
    const QList<XDisplay> displays = fullScreen ? displaysOf(*m_connection) : QList<XDisplay>();
    if (display >= 0 && display < displays.size() && managerKnows("_NET_WM_FULLSCREEN_MONITORS")) {
        // Said each time: kwin goes on using the last choice. openbox knows no such request and takes the display that
        // the window is on.
        const auto number = quint32(displays[display].number);
        tellManager(window, "_NET_WM_FULLSCREEN_MONITORS", {number, number, number, number, fromUser});
    }
    changeState(window, fullScreen ? StateChange::add : StateChange::remove, "_NET_WM_STATE_FULLSCREEN");
}

void LinuxWindows::activate(quint64 window)
{
    if (m_tiling.activate(quint32(window))) return;
    tellManager(window, "_NET_ACTIVE_WINDOW", {fromUser});
}

void LinuxWindows::requestClose(quint64 window)
{
    tellManager(window, "_NET_CLOSE_WINDOW", {XCB_CURRENT_TIME, fromUser});
}

void LinuxWindows::changeState(quint64 window, StateChange change, const char *state, const char *second)
{
    const xcb_atom_t other = second ? m_connection->atom(second) : xcb_atom_t(XCB_ATOM_NONE);
    tellManager(window, "_NET_WM_STATE", {quint32(change), m_connection->atom(state), other, fromUser});
}

void LinuxWindows::tellManager(quint64 window, const char *request, const Numbers &numbers)
{
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = xcb_window_t(window);
    message.type = m_connection->atom(request);
    std::copy(numbers.begin(), numbers.end(), message.data.data32);
    xcb_send_event(*m_connection, false, m_connection->root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char *>(&message));
    m_connection->flush();
}

bool LinuxWindows::managerKnows(const char *request)
{
    if (!m_supported) {
        const auto asked = xcb_get_property(*m_connection, false, m_connection->root(),
                                            m_connection->atom("_NET_SUPPORTED"), XCB_ATOM_ATOM, 0, 1024);
        m_supported = numbersOf(m_connection->reply(xcb_get_property_reply, asked));
    }
    return m_supported->contains(m_connection->atom(request));
}

void LinuxWindows::notice(const xcb_generic_event_t &event)
{
    if ((event.response_type & 0x7f) == XCB_PROPERTY_NOTIFY) {
        noticeProperty(reinterpret_cast<const xcb_property_notify_event_t &>(event).atom);
    } else if (tellsOfDisplays(*m_connection, event) && !std::exchange(m_looksAtDisplays, true)) {
        // One change makes several events.
        QMetaObject::invokeMethod(this, &LinuxWindows::lookAtDisplays, Qt::QueuedConnection);
    }
}

void LinuxWindows::noticeProperty(xcb_atom_t property)
{
    if (property == m_connection->atom("_NET_ACTIVE_WINDOW")) {
        emit activeChanged();
    } else if (property == m_connection->atom("_NET_SUPPORTED")
               || property == m_connection->atom("_NET_SUPPORTING_WM_CHECK")) {
        m_supported.reset(); // another window manager
        m_tiling.forget();
    }
}

void LinuxWindows::lookAtDisplays()
{
    m_looksAtDisplays = false;
    QList<Monitor> now = displays();
    if (now == m_known) return;
    m_known = std::move(now);
    emit displaysChanged();
}

std::unique_ptr<Windows> makeWindows(const QByteArray &display)
{
    return std::make_unique<LinuxWindows>(display);
}
