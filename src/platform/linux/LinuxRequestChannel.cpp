#include "platform/RequestChannel.h"

#include "platform/linux/LinuxServices.h"
#include "platform/linux/RequestFrames.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QLocalServer>
#include <QLocalSocket>
#include <QLockFile>
#include <QPointer>
#include <QTimer>
#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {
constexpr auto patience = 5s; ///< for the owner to take a request; it may then work on it for hours

/// Keeps the connection open until it has answered, and outlives an asker who leaves.
class SocketReply final : public Reply {
public:
    explicit SocketReply(QLocalSocket *socket) : m_socket(socket) { }
    ~SocketReply() override
    {
        if (m_socket) m_socket->disconnectFromServer();
    }
    void print(const QString &text) override { send({{u"out"_s, text}}); }
    void printError(const QString &text) override { send({{u"error"_s, text}}); }
    void finish(int exitStatus) override
    {
        send({{u"exit"_s, exitStatus}});
        if (m_socket) m_socket->disconnectFromServer();
    }

private:
    void send(const QJsonObject &words)
    {
        if (m_socket && m_socket->state() == QLocalSocket::ConnectedState) m_socket->write(framed(words));
    }

    QPointer<QLocalSocket> m_socket;
};

class LinuxRequestChannel final : public RequestChannel {
public:
    explicit LinuxRequestChannel(const Places &places) : m_folder(places.runtime + u"/velko"_s)
    {
        QDir().mkpath(m_folder);
        QFile::setPermissions(m_folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        // A lock is stale only when its process is gone, however old it is.
        m_lock.setStaleLockTime(0);
    }

    bool claim() override
    {
        if (m_server.isListening()) return true;
        if (!m_lock.tryLock(0)) return false;
        QLocalServer::removeServer(socketName()); // a crashed owner leaves its socket behind
        m_server.setSocketOptions(QLocalServer::UserAccessOption);
        connect(&m_server, &QLocalServer::newConnection, this, &LinuxRequestChannel::welcome);
        // Owning the library does not depend on being reachable: without a socket the others only cannot ask.
        if (!m_server.listen(socketName())) qWarning("no requests: %s", qPrintable(m_server.errorString()));
        return true;
    }

    void ask(const Request &request, ReplyHandler handler) override
    {
        auto *asking = new QLocalSocket(this);
        auto *limit = new QTimer(asking);
        auto over = std::make_shared<bool>(false);
        const auto lost = [asking, over, handler] {
            if (std::exchange(*over, true)) return;
            asking->deleteLater();
            handler.lost();
        };
        connect(limit, &QTimer::timeout, asking, lost);
        connect(asking, &QLocalSocket::disconnected, asking, lost);
        connect(asking, &QLocalSocket::errorOccurred, asking, lost);
        connect(asking, &QLocalSocket::connected, asking, [asking, request] {
            asking->write(framed({{u"arguments"_s, QJsonArray::fromStringList(request.arguments)},
                                  {u"folder"_s, request.workingFolder}}));
        });
        auto frames = std::make_shared<FrameReader>();
        connect(asking, &QLocalSocket::readyRead, asking, [asking, limit, over, frames, handler, lost] {
            limit->stop();
            frames->add(asking->readAll());
            while (const auto words = frames->next()) {
                if (words->contains("out"_L1)) handler.print(words->value("out"_L1).toString());
                if (words->contains("error"_L1)) handler.printError(words->value("error"_L1).toString());
                if (words->contains("exit"_L1) && !std::exchange(*over, true)) {
                    asking->deleteLater();
                    return handler.finished(words->value("exit"_L1).toInt(1));
                }
            }
            if (frames->isBroken()) lost();
        });
        limit->start(patience);
        asking->connectToServer(socketName());
    }

private:
    QString socketName() const { return m_folder + u"/socket"_s; }

    void welcome()
    {
        while (QLocalSocket *asking = m_server.nextPendingConnection()) {
            connect(asking, &QLocalSocket::disconnected, asking, &QObject::deleteLater);
            auto frames = std::make_shared<FrameReader>();
            connect(asking, &QLocalSocket::readyRead, this, [this, asking, frames] {
                frames->add(asking->readAll());
                if (const auto words = frames->next()) answer(*words, asking);
                if (frames->isBroken()) asking->abort();
            });
        }
    }

    void answer(const QJsonObject &words, QLocalSocket *asking)
    {
        QStringList arguments;
        for (const QJsonValue &argument : words.value("arguments"_L1).toArray())
            arguments += argument.toString();
        disconnect(asking, &QLocalSocket::readyRead, this, nullptr); // one connection, one request
        asking->write(framed({})); // taken
        emit requested({arguments, words.value("folder"_L1).toString()}, std::make_shared<SocketReply>(asking));
    }

    QString m_folder;
    QLockFile m_lock{m_folder + u"/lock"_s};
    QLocalServer m_server;
};
} // namespace

std::unique_ptr<RequestChannel> makeRequestChannel(const Places &places)
{
    return std::make_unique<LinuxRequestChannel>(places);
}
