#include "platform/linux/Descriptor.h"
#include "platform/linux/LinuxServices.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocalServer>
#include <QLocalSocket>
#include <QPointer>
#include <QTimer>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/socket.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

// A message is one line of JSON. The asker sends {"arguments": [...], "folder": ...}; the owner answers {} at once,
// then
// {"out": ...} and {"error": ...} as they come, then {"exit": ...}.
static constexpr qint64 longestMessage = 1024 * 1024;
// In its longest form a character takes six bytes, "\u0000".
static constexpr qsizetype longestText = 100'000;
// An asker that is stopped and reads nothing is given up at this many bytes.
static constexpr qint64 longestBacklog = 256 * 1024 * 1024;

static QByteArray line(const QJsonObject &message)
{
    return QJsonDocument(message).toJson(QJsonDocument::Compact) + '\n';
}

/// The next whole message. Nothing yet, or nothing ever: then the connection is cut.
static std::optional<QJsonObject> nextMessage(QLocalSocket &socket)
{
    if (!socket.canReadLine()) {
        if (socket.bytesAvailable() >= longestMessage) socket.abort();
        return {};
    }
    const auto message = QJsonDocument::fromJson(socket.readLine(longestMessage + 1));
    if (message.isObject()) return message.object();
    socket.abort();
    return {};
}

static std::optional<Request> requestFrom(const QJsonObject &message)
{
    const QJsonValue arguments = message["arguments"_L1], folder = message["folder"_L1];
    if (!arguments.isArray() || !folder.isString()) return {};
    Request request{.arguments = {}, .workingFolder = folder.toString()};
    for (const QJsonValue each : arguments.toArray()) {
        if (!each.isString()) return {};
        request.arguments += each.toString();
    }
    return request;
}

/// Whether the other end belongs to the same user; the runtime folder may be one that others can write to.
static bool isOurUser(const QLocalSocket &socket)
{
    ucred other{};
    socklen_t size = sizeof other;
    return getsockopt(int(socket.socketDescriptor()), SOL_SOCKET, SO_PEERCRED, &other, &size) == 0
        && other.uid == getuid();
}

namespace {

class SocketReply final : public Reply {
public:
    explicit SocketReply(QLocalSocket *socket) : m_socket(socket) { write({}); }
    ~SocketReply() override { leave(); }

    void print(const QString &text) override { writeText(u"out"_s, text); }
    void printError(const QString &text) override { writeText(u"error"_s, text); }
    void finish(int exitStatus) override
    {
        write({{u"exit"_s, exitStatus}});
        leave();
    }

private:
    void write(const QJsonObject &message)
    {
        if (!m_socket || m_socket->state() != QLocalSocket::ConnectedState) return;
        m_socket->write(line(message));
        if (m_socket->bytesToWrite() > longestBacklog) m_socket->abort();
    }
    void writeText(const QString &key, const QString &text)
    {
        for (qsizetype from = 0; from < text.size();) {
            qsizetype length = qMin(longestText, text.size() - from);
            if (from + length < text.size() && text[from + length - 1].isHighSurrogate()) --length;
            write({{key, text.sliced(from, length)}});
            from += length;
        }
    }
    void leave()
    {
        if (m_socket) m_socket->flush(); // the owner may be about to end
        if (m_socket) m_socket->disconnectFromServer();
        m_socket.clear();
    }

    QPointer<QLocalSocket> m_socket; // the server's; empty when it has gone
};

/// One request from its sending to its end; then it deletes itself.
class Asking final : public QObject {
public:
    Asking(const QString &owner, const Request &request, ReplyHandler handler, std::chrono::milliseconds patience,
           QObject *parent)
        : QObject(parent), m_owner(owner), m_handler(std::move(handler))
    {
        m_request = line(
            {{u"arguments"_s, QJsonArray::fromStringList(request.arguments)}, {u"folder"_s, request.workingFolder}});
        connect(&m_socket, &QLocalSocket::connected, this, [this] { speak(); });
        connect(&m_socket, &QLocalSocket::readyRead, this, [this] { listen(); });
        connect(&m_socket, &QLocalSocket::disconnected, this, [this] { loseConnection(); });
        connect(&m_socket, &QLocalSocket::errorOccurred, this, [this] { loseConnection(); });
        m_patience.setSingleShot(true);
        m_patience.callOnTimeout(this, [this] { end([this] { m_handler.lost(); }); });
        m_patience.start(m_request.size() > longestMessage ? 0ms : patience);
        m_retry.setSingleShot(true);
        m_retry.callOnTimeout(this, [this] { call(); });
        m_retry.start(0ms);
    }

private:
    void call()
    {
        if (m_socket.state() == QLocalSocket::UnconnectedState && m_request.size() <= longestMessage)
            m_socket.connectToServer(m_owner);
    }
    void speak()
    {
        if (isOurUser(m_socket))
            m_socket.write(m_request);
        else
            m_socket.abort();
    }
    void listen()
    {
        while (!m_over) {
            const auto message = nextMessage(m_socket);
            if (!message) return;
            m_patience.stop();
            take(*message);
        }
    }
    void take(const QJsonObject &message)
    {
        const QJsonValue out = message["out"_L1], error = message["error"_L1], exit = message["exit"_L1];
        if (out.isString()) m_handler.print(out.toString());
        if (error.isString()) m_handler.printError(error.toString());
        if (exit.isDouble()) end([this, exit] { m_handler.finished(exit.toInt(1)); });
    }
    /// Before its first word the owner may be just starting, or changing; afterwards it has ended.
    void loseConnection()
    {
        listen();
        if (m_over) return;
        if (m_patience.isActive()) return m_retry.start(50ms);
        end([this] { m_handler.lost(); });
    }
    void end(const std::function<void()> &announce)
    {
        m_over = true;
        m_patience.stop();
        m_retry.stop();
        m_socket.abort();
        deleteLater();
        announce();
    }

    QString m_owner;
    QByteArray m_request;
    ReplyHandler m_handler;
    QTimer m_patience; // until the owner's first word; it may then work for hours
    QTimer m_retry;
    bool m_over = false;
    QLocalSocket m_socket;
};

class LinuxRequestChannel final : public RequestChannel {
public:
    LinuxRequestChannel(const Places &places, std::chrono::milliseconds patience)
        : m_folder(places.runtime + u"/velko"_s), m_patience(patience)
    { }

    bool claim() override;
    void ask(const Request &request, ReplyHandler handler) override
    {
        new Asking(socketFile(), request, std::move(handler), m_patience, this);
    }

private:
    QString socketFile() const { return m_folder + u"/socket"_s; }
    Descriptor takeLock() const;
    void listen();
    void welcome(QLocalSocket *socket);
    void takeRequest(QLocalSocket *socket);

    QString m_folder;
    std::chrono::milliseconds m_patience;
    Descriptor m_lock; // before the server: the socket is gone before another may claim
    QLocalServer m_server;
};

}

bool LinuxRequestChannel::claim()
{
    if (m_lock) return true;
    QDir().mkpath(m_folder);
    QFile::setPermissions(m_folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    m_lock = takeLock();
    if (m_lock) listen();
    return bool(m_lock);
}

// The lock decides, not the socket: the kernel frees it with the process that held it, whatever ended that. Its file
// stays, since removing it would let two processes hold a lock on two files of the same name.
Descriptor LinuxRequestChannel::takeLock() const
{
    const QByteArray file = QFile::encodeName(m_folder + u"/lock"_s);
    Descriptor lock(open(file.constData(), O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, 0600));
    while (lock && flock(lock.number(), LOCK_EX | LOCK_NB) != 0) {
        if (errno != EINTR) return {};
    }
    return lock;
}

/// The socket of an owner that crashed is in the way, and nobody else may remove it now. Owning the library does not
/// depend on being reachable.
void LinuxRequestChannel::listen()
{
    connect(&m_server, &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket *socket = m_server.nextPendingConnection())
            welcome(socket);
    });
    QLocalServer::removeServer(socketFile());
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    if (!m_server.listen(socketFile())) qWarning("no requests: %s", qPrintable(m_server.errorString()));
}

void LinuxRequestChannel::welcome(QLocalSocket *socket)
{
    connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
    if (!isOurUser(*socket)) return socket->abort();
    socket->setReadBufferSize(longestMessage);
    connect(socket, &QLocalSocket::readyRead, this, [this, socket] { takeRequest(socket); });
    takeRequest(socket);
}

void LinuxRequestChannel::takeRequest(QLocalSocket *socket)
{
    const auto message = nextMessage(*socket);
    if (!message) return;
    const auto request = requestFrom(*message);
    if (!request) return socket->abort();
    socket->disconnect(this); // one request for each connection; what follows is not read
    emit requested(*request, std::make_shared<SocketReply>(socket));
}

std::unique_ptr<RequestChannel> makeRequestChannel(const Places &places, std::chrono::milliseconds patience)
{
    return std::make_unique<LinuxRequestChannel>(places, patience);
}
