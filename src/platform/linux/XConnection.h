#pragma once

#include <QByteArray>
#include <QHash>
#include <QObject>
#include <QSocketNotifier>
#include <functional>
#include <initializer_list>
#include <memory>
#include <xcb/xcb.h>

struct XFree {
    void operator()(void *memory) const { std::free(memory); }
};
/// An answer of the X server; null when it answered with an error, or not at all any more.
template <class Answer>
using XReply = std::unique_ptr<Answer, XFree>;

/// A connection of our own to the X server: that of the windows toolkit stays undisturbed, and there need be none.
/// Errors, as of windows that have gone, are dropped. When the server dies, every answer is null and nothing else
/// happens. Main thread only.
class XConnection : public QObject {
public:
    explicit XConnection(const QByteArray &display = {}); ///< empty: that of the environment
    ~XConnection() override;

    bool isAlive() const { return xcb_connection_has_error(m_connection) == 0; }
    operator xcb_connection_t *() const { return m_connection; } ///< never null; takes requests also when it is dead
    xcb_window_t root() const { return m_screen.root; }
    const xcb_screen_t &screen() const { return m_screen; }
    const xcb_setup_t &setup() const { return *xcb_get_setup(m_connection); } ///< only of one that is alive

    /// Whether the server has this extension. A request of one that it lacks would end the connection.
    bool has(xcb_extension_t &extension) const;
    int firstEventOf(xcb_extension_t &extension) const;

    void intern(std::initializer_list<const char *> names); ///< makes `atom` quick for them, in one round trip
    xcb_atom_t atom(const char *name);
    QByteArray nameOf(xcb_atom_t atom); ///< asked for once

    /// Waits for the answer. Send what else is needed before, so that all answers take one round trip.
    template <class Answer, class Cookie>
    XReply<Answer> reply(Answer *(*receive)(xcb_connection_t *, Cookie, xcb_generic_error_t **), Cookie cookie)
    {
        drainLater(); // events that were read together with the answer ring no bell
        return XReply<Answer>(receive(m_connection, cookie, nullptr));
    }
    void flush() { xcb_flush(m_connection); }

    std::function<void(const xcb_generic_event_t &)> onEvent; ///< comes from the event loop
    std::function<void()> onLost; ///< the server has gone

private:
    void drain();
    void drainLater();

    xcb_connection_t *m_connection = nullptr;
    xcb_screen_t m_screen{};
    std::unique_ptr<QSocketNotifier> m_notifier;
    QHash<QByteArray, xcb_atom_t> m_atoms;
    QHash<xcb_atom_t, QByteArray> m_names;
    bool m_drainPosted = false;
};

/// What a property holds; empty when the window lacks it or has gone.
QByteArray bytesOf(const XReply<xcb_get_property_reply_t> &property);
QList<quint32> numbersOf(const XReply<xcb_get_property_reply_t> &property); ///< empty also for other formats
