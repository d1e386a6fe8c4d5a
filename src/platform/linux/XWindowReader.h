#pragma once

#include "platform/Windows.h"
#include "platform/linux/XConnection.h"

/// Reads other programs' windows. Each question takes one or two round trips, however many windows there are.
class XWindowReader {
public:
    explicit XWindowReader(XConnection &connection);

    QList<xcb_window_t> managed() const; ///< all that the window manager shows, the oldest first
    xcb_window_t active() const; ///< 0: none
    /// Without those that have gone. A window whose program is not known has process 0.
    QHash<xcb_window_t, qint64> owners(const QList<xcb_window_t> &windows) const;
    QList<AppWindow> described(const QList<xcb_window_t> &windows, const QHash<xcb_window_t, qint64> &owners) const;

private:
    struct Questions;
    Questions ask(xcb_window_t window) const;
    std::optional<AppWindow> answer(const Questions &questions) const;
    WindowKind kindOf(const QList<quint32> &types) const;
    QHash<xcb_window_t, qint64> clientProcesses(const QList<xcb_window_t> &windows) const;
    xcb_get_property_cookie_t property(xcb_window_t window, const char *name, quint32 length) const;
    QList<quint32> numbers(xcb_get_property_cookie_t asked) const;

    XConnection &m_connection;
    bool m_knowsClients = false; ///< the server tells the processes of its clients
};
