#include "platform/linux/TilingCommands.h"

#include "platform/linux/XConnection.h"

#include <algorithm>
#include <cstring>
#include <sys/socket.h>
#include <sys/un.h>

void TilingCommands::forget()
{
    m_known = false;
    m_channel = Descriptor();
}

static QByteArray with(quint32 window, const QByteArray &commands)
{
    return "[id=" + QByteArray::number(window) + "] " + commands;
}

bool TilingCommands::move(quint32 window, const QRect &place)
{
    return say(with(window,
                    "fullscreen disable, floating enable, resize set " + QByteArray::number(place.width()) + " px "
                        + QByteArray::number(place.height()) + " px, move absolute position "
                        + QByteArray::number(place.x()) + " px " + QByteArray::number(place.y()) + " px"));
}

bool TilingCommands::activate(quint32 window)
{
    return say(with(window, "focus"));
}

QByteArray TilingCommands::managerName() const
{
    const auto text = [this](xcb_window_t window, const char *name) {
        return m_connection.reply(
            xcb_get_property_reply,
            xcb_get_property(m_connection, false, window, m_connection.atom(name), XCB_GET_PROPERTY_TYPE_ANY, 0, 64));
    };
    const QList<quint32> manager = numbersOf(text(m_connection.root(), "_NET_SUPPORTING_WM_CHECK"));
    return manager.isEmpty() ? QByteArray() : bytesOf(text(manager.first(), "_NET_WM_NAME"));
}

// The environment may be that of a session around this display, so the display itself is asked first.
QByteArray TilingCommands::socket() const
{
    const QByteArray manager = managerName();
    if (manager == "wlroots wm") return qgetenv("SWAYSOCK"); // what sway 1.7 is called; others lack the variable
    if (manager != "i3") return {};
    return bytesOf(
        m_connection.reply(xcb_get_property_reply,
                           xcb_get_property(m_connection, false, m_connection.root(),
                                            m_connection.atom("I3_SOCKET_PATH"), XCB_GET_PROPERTY_TYPE_ANY, 0, 64)));
}

bool TilingCommands::areTaken()
{
    if (!std::exchange(m_known, true)) m_socket = socket();
    return !m_socket.isEmpty();
}

bool TilingCommands::connect()
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (!areTaken() || size_t(m_socket.size()) >= sizeof address.sun_path) return false;
    std::copy(m_socket.begin(), m_socket.end(), address.sun_path);
    m_channel = Descriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    if (m_channel && ::connect(m_channel.number(), reinterpret_cast<sockaddr *>(&address), sizeof address) == 0)
        return true;
    m_channel = Descriptor();
    return false;
}

// The channel stays open: sway doesn't read what was said on one that is closed already.
bool TilingCommands::say(const QByteArray &command)
{
    if (!areTaken()) return false;
    const quint32 head[] = {quint32(command.size()), 0}; // 0: run a command
    const QByteArray message = "i3-ipc" + QByteArray(reinterpret_cast<const char *>(head), sizeof head) + command;
    const auto sent = [&] {
        char answers[4096];
        while (m_channel && recv(m_channel.number(), answers, sizeof answers, 0) > 0) { }
        return m_channel
            && ::send(m_channel.number(), message.constData(), size_t(message.size()), MSG_NOSIGNAL) == message.size();
    };
    return sent() || (connect() && sent()); // it may have been started again
}
