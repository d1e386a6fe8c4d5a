#pragma once

#include "platform/linux/XConnection.h"

#include <QRect>
#include <QString>
#include <QStringList>

/// A window as another program would show it. It paints nothing but its one colour and closes when it is asked to.
class XTestWindow {
public:
    struct Look {
        QString title = QStringLiteral("Game");
        QRect geometry{100, 100, 640, 480};
        QStringList types{QStringLiteral("_NET_WM_WINDOW_TYPE_NORMAL")};
        xcb_window_t transientFor = 0;
        bool modal = false;
        quint32 toldPid = 0; ///< 0: it tells none
        quint32 colour = 0x123456;
        bool closes = true;
    };
    XTestWindow(const QByteArray &display, const Look &look);
    ~XTestWindow() { close(); }

    xcb_window_t id() const { return m_window; }
    bool isOpen() const { return m_window != 0; }
    void close();
    QList<xcb_keycode_t> keys; ///< that were pressed in it
    QList<quint16> states; ///< the modifiers that were held then

private:
    void notice(const xcb_generic_event_t &event);
    void set(const char *name, xcb_atom_t type, const QList<quint32> &numbers);

    XConnection m_connection;
    xcb_window_t m_window = 0;
    bool m_closes = true;
};
