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

// A message is one line of JSON. The client sends {"arguments": [...], "folder": ...}; the owner answers {"accepted":
// true} at once, then {"out": ...} and {"error": ...} as they come, then {"status": ...}.
static constexpr qint64 longestMessage = 1024 * 1024;
// In its longest form a character takes six bytes, "\u0000".
static constexpr qsizetype longestText = 100'000;
// A client that is stopped and reads nothing is given up at this many bytes.
static constexpr qint64 longestBacklog = 256 * 1024 * 1024;
static constexpr auto retryAfter = 50ms;

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

class SocketAnswer final : public RequestAnswer {
public:
    explicit SocketAnswer(QLocalSocket *socket) : m_socket(socket) { write({{u"accepted"_s, true}}); }
    ~SocketAnswer() override { finish(1); }

    void print(const QString &text) override { writeText(u"out"_s, text); }
    void printError(const QString &text) override { writeText(u"error"_s, text); }
    void finish(int status) override
    {
        write({{u"status"_s, status}});
        if (m_socket) m_socket->flush(); // the owner may be about to end
        if (m_socket) m_socket->disconnectFromServer();
        m_socket.clear();
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

    QPointer<QLocalSocket> m_socket; // the server's; empty when it has gone
};

class LinuxRequestChannel final : public RequestChannel {
public:
    LinuxRequestChannel(const Places &places, std::chrono::milliseconds patience);

    Result<bool> claim() override;
    void send(const Request &request) override;

private:
    QString file(const QString &name) const { return m_folder + u'/' + name; }
    void listen();
    void welcome(QLocalSocket *socket);
    void takeRequest(QLocalSocket *socket);
    void connectToOwner() { m_client.connectToServer(file(u"velko.sock"_s)); }
    void lostOwner();
    void takeAnswers();
    void take(const QJsonObject &message);
    void end(const std::function<void()> &announce);

    QString m_folder;
    Descriptor m_lock; // before the server: the socket is gone before another may claim
    QLocalServer m_server;

    QByteArray m_request;
    QLocalSocket m_client;
    QTimer m_retry;
    QTimer m_patience; // until the owner's first word
    bool m_waiting = false;
};

}

LinuxRequestChannel::LinuxRequestChannel(const Places &places, std::chrono::milliseconds patience)
    : m_folder(places.runtime)
{
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&m_server, &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket *socket = m_server.nextPendingConnection())
            welcome(socket);
    });

    m_retry.setSingleShot(true);
    m_retry.setInterval(retryAfter);
    m_retry.callOnTimeout([this] {
        if (m_client.state() == QLocalSocket::UnconnectedState) connectToOwner();
    });
    m_patience.setSingleShot(true);
    m_patience.setInterval(patience);
    m_patience.callOnTimeout([this] {
        end([this] { emit failed({u"Velko is running but doesn't answer. Quit it, then try again."_s, {}}); });
    });
    connect(&m_client, &QLocalSocket::connected, this, [this] {
        if (isOurUser(m_client))
            m_client.write(m_request);
        else
            m_client.abort();
    });
    connect(&m_client, &QLocalSocket::readyRead, this, [this] { takeAnswers(); });
    connect(&m_client, &QLocalSocket::disconnected, this, [this] { lostOwner(); });
    connect(&m_client, &QLocalSocket::errorOccurred, this, [this] { lostOwner(); });
}

// The lock decides, not the socket: the kernel frees it with the process that held it, whatever ended that. Its file
// stays, since removing it would let two processes hold a lock on two files of the same name.
Result<bool> LinuxRequestChannel::claim()
{
    if (m_lock) return true;
    if (!QFileInfo::exists(m_folder) && QDir().mkpath(m_folder))
        QFile::setPermissions(m_folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    Descriptor lock(
        open(QFile::encodeName(file(u"velko.lock"_s)).constData(), O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, 0600));
    int locked = -1;
    while (lock && (locked = flock(lock.number(), LOCK_EX | LOCK_NB)) != 0 && errno == EINTR) { }
    if (lock && locked != 0 && errno == EWOULDBLOCK) return false;
    if (!lock || locked != 0)
        return Message{
            u"Velko can't use the folder “%@”. Make sure that it is yours and can be written to, then start Velko again."_s,
            {m_folder}};
    m_lock = std::move(lock);
    listen();
    return true;
}

/// The socket of an owner that crashed is in the way, and nobody else may remove it now.
void LinuxRequestChannel::listen()
{
    QLocalServer::removeServer(file(u"velko.sock"_s));
    m_server.listen(file(u"velko.sock"_s));
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
    emit requested(*request, std::make_shared<SocketAnswer>(socket));
}

void LinuxRequestChannel::send(const Request &request)
{
    m_request =
        line({{u"arguments"_s, QJsonArray::fromStringList(request.arguments)}, {u"folder"_s, request.workingFolder}});
    m_waiting = true;
    if (m_request.size() > longestMessage) {
        return end([this] {
            emit failed({u"That is too much at once. Give Velko fewer files, then try again."_s, {}});
        });
    }
    m_patience.start();
    connectToOwner();
}

/// Before its first word the owner may be just starting, or changing; afterwards it has ended.
void LinuxRequestChannel::lostOwner()
{
    takeAnswers();
    if (!m_waiting) return;
    if (m_patience.isActive()) return m_retry.start();
    end([this] { emit failed({u"Velko ended before it had finished. Start it, then try again."_s, {}}); });
}

void LinuxRequestChannel::takeAnswers()
{
    while (m_waiting) {
        const auto message = nextMessage(m_client);
        if (!message) return;
        take(*message);
    }
}

void LinuxRequestChannel::take(const QJsonObject &message)
{
    m_patience.stop();
    if (message["out"_L1].isString()) emit printed(message["out"_L1].toString());
    if (message["error"_L1].isString()) emit errorPrinted(message["error"_L1].toString());
    if (message["status"_L1].isDouble()) end([this, &message] { emit finished(message["status"_L1].toInt(1)); });
}

/// The one end of a request. What the sockets and timers still say is not heard.
void LinuxRequestChannel::end(const std::function<void()> &announce)
{
    m_waiting = false;
    m_patience.stop();
    m_retry.stop();
    m_client.abort();
    announce();
}

std::unique_ptr<RequestChannel> makeRequestChannel(const Places &places, std::chrono::milliseconds patience)
{
    return std::make_unique<LinuxRequestChannel>(places, patience);
}
