#pragma once

#include "platform/linux/Descriptor.h"

#include <QByteArray>
#include <QRect>

class XConnection;

/// i3 and sway arrange windows themselves: a request to move one has no effect, and sway gives the keyboard to none
/// that asks. Both take commands over a socket of their own, in the same language. Nothing waits for them.
class TilingCommands {
public:
    explicit TilingCommands(XConnection &connection) : m_connection(connection) { }

    bool areTaken(); ///< one of the two is at work
    bool move(quint32 window, const QRect &place); ///< out of full screen; false: nobody takes commands
    bool activate(quint32 window);
    void forget(); ///< the window manager may be another one now

private:
    bool connect();
    bool say(const QByteArray &command);
    QByteArray socket() const;
    QByteArray managerName() const;

    XConnection &m_connection;
    QByteArray m_socket; ///< empty: neither of them
    bool m_known = false;
    Descriptor m_channel;
};
