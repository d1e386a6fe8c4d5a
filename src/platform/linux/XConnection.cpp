#include "platform/linux/XConnection.h"

#include <csignal>
#include <cstring>

// XCB writes to its socket without asking for no signal: a server that died would end Velko before it can notice.
static void ignoreBrokenPipes()
{
    struct sigaction present { };
    if (sigaction(SIGPIPE, nullptr, &present) == 0 && present.sa_handler == SIG_DFL) signal(SIGPIPE, SIG_IGN);
}

XConnection::XConnection(const QByteArray &display)
{
    ignoreBrokenPipes();
    int number = 0;
    m_connection = xcb_connect(display.isEmpty() ? nullptr : display.constData(), &number);
    if (!isAlive()) return;
    auto screens = xcb_setup_roots_iterator(&setup());
    for (; number > 0 && screens.rem > 1; --number)
        xcb_screen_next(&screens);
    m_screen = *screens.data;
    m_notifier = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(m_connection), QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, [this] { drain(); });
}

XConnection::~XConnection()
{
    m_notifier.reset(); // before its descriptor is closed
    xcb_disconnect(m_connection);
}

bool XConnection::has(xcb_extension_t &extension) const
{
    const auto *present = xcb_get_extension_data(m_connection, &extension);
    return present && present->present;
}

int XConnection::firstEventOf(xcb_extension_t &extension) const
{
    return has(extension) ? xcb_get_extension_data(m_connection, &extension)->first_event : -1;
}

void XConnection::intern(std::initializer_list<const char *> names)
{
    QList<std::pair<QByteArray, xcb_intern_atom_cookie_t>> asked;
    for (const char *name : names)
        asked.emplace_back(name, xcb_intern_atom(m_connection, false, quint16(strlen(name)), name));
    for (const auto &[name, cookie] : asked) {
        const auto answer = reply(xcb_intern_atom_reply, cookie);
        m_atoms[name] = answer ? answer->atom : xcb_atom_t(XCB_ATOM_NONE);
    }
}

xcb_atom_t XConnection::atom(const char *name)
{
    const auto known = m_atoms.constFind(name);
    if (known != m_atoms.constEnd()) return *known;
    intern({name});
    return m_atoms.value(name);
}

QByteArray XConnection::nameOf(xcb_atom_t atom)
{
    const auto known = m_names.constFind(atom);
    if (known != m_names.constEnd()) return *known;
    const auto answer = reply(xcb_get_atom_name_reply, xcb_get_atom_name(m_connection, atom));
    if (!answer) return {};
    return m_names[atom] = QByteArray(xcb_get_atom_name_name(answer.get()), answer->name_len);
}

void XConnection::drainLater()
{
    if (std::exchange(m_drainPosted, true)) return;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_drainPosted = false;
            drain();
        },
        Qt::QueuedConnection);
}

void XConnection::drain()
{
    while (const XReply<xcb_generic_event_t> event{xcb_poll_for_event(m_connection)}) {
        const bool isError = event->response_type == 0;
        if (!isError && onEvent) onEvent(*event);
    }
    if (isAlive() || !m_notifier || !m_notifier->isEnabled()) return;
    m_notifier->setEnabled(false); // the end of a file is readable for ever
    if (onLost) onLost();
}

QByteArray bytesOf(const XReply<xcb_get_property_reply_t> &property)
{
    if (!property) return {};
    return {static_cast<const char *>(xcb_get_property_value(property.get())),
            xcb_get_property_value_length(property.get())};
}

QList<quint32> numbersOf(const XReply<xcb_get_property_reply_t> &property)
{
    if (!property || property->format != 32) return {};
    QList<quint32> numbers(xcb_get_property_value_length(property.get()) / 4);
    if (!numbers.isEmpty()) memcpy(numbers.data(), xcb_get_property_value(property.get()), size_t(numbers.size()) * 4);
    return numbers;
}
