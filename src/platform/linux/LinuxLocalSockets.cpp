#include "platform/linux/LinuxServices.h"

#include "platform/linux/Descriptor.h"

#include <QFile>
#include <arpa/inet.h>
#include <cstring>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>

using namespace std::chrono;

namespace {

/// Connected; a UDP socket that is connected hears nobody else.
Descriptor connectedTo(int family, int type, const sockaddr *address, socklen_t length)
{
    Descriptor socket(::socket(family, type | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    // A listener whose queue is full answers EAGAIN: such a program is too busy to talk.
    if (socket && ::connect(socket.number(), address, length) == 0) return socket;
    return Descriptor();
}

Descriptor connectedToPath(const QString &path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const QByteArray name = QFile::encodeName(path);
    if (name.size() >= qsizetype(sizeof address.sun_path)) return Descriptor();
    std::memcpy(address.sun_path, name.constData(), size_t(name.size()));
    return connectedTo(AF_UNIX, SOCK_STREAM, reinterpret_cast<const sockaddr *>(&address), sizeof address);
}

Descriptor connectedToPort(quint16 port)
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return connectedTo(AF_INET, SOCK_DGRAM, reinterpret_cast<const sockaddr *>(&address), sizeof address);
}

class LinuxConnection final : public LocalConnection {
public:
    LinuxConnection(Descriptor socket, milliseconds limit) : m_socket(std::move(socket)), m_end(now() + limit) { }

    qint64 peer() const override
    {
        ucred credentials{};
        socklen_t length = sizeof credentials;
        const int failed = ::getsockopt(m_socket.number(), SOL_SOCKET, SO_PEERCRED, &credentials, &length);
        return failed ? 0 : credentials.pid;
    }
    bool send(const QByteArray &bytes) override
    {
        qsizetype sent = 0;
        while (sent < bytes.size()) {
            if (!waitFor(POLLOUT)) return false;
            const ssize_t count =
                ::send(m_socket.number(), bytes.constData() + sent, size_t(bytes.size() - sent), MSG_NOSIGNAL);
            if (count < 0 && errno != EAGAIN && errno != EINTR) return false;
            sent += qMax<ssize_t>(0, count);
        }
        return true;
    }
    QByteArray receive() override
    {
        QByteArray bytes(64 * 1024, Qt::Uninitialized);
        while (waitFor(POLLIN)) {
            const ssize_t count = ::recv(m_socket.number(), bytes.data(), size_t(bytes.size()), 0);
            if (count > 0) return bytes.first(count);
            if (count == 0 || (errno != EAGAIN && errno != EINTR)) break;
        }
        return {};
    }

private:
    static milliseconds now() { return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()); }

    bool waitFor(short event) const
    {
        for (;;) {
            const milliseconds left = m_end - now();
            if (left <= 0ms) return false;
            pollfd wait{m_socket.number(), event, 0};
            const int count = ::poll(&wait, 1, int(left.count()));
            if (count > 0) return true;
            if (count < 0 && errno != EINTR) return false;
        }
    }

    Descriptor m_socket;
    milliseconds m_end;
};

class LinuxLocalSockets final : public LocalSockets {
public:
    std::unique_ptr<LocalConnection> open(const LocalAddress &address, milliseconds limit) override
    {
        Descriptor socket = address.path.isEmpty() ? connectedToPort(address.port) : connectedToPath(address.path);
        if (!socket) return nullptr;
        return std::make_unique<LinuxConnection>(std::move(socket), limit);
    }
};

}

std::unique_ptr<LocalSockets> makeLocalSockets()
{
    return std::make_unique<LinuxLocalSockets>();
}
