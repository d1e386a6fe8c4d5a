#include "platform/linux/LinuxServices.h"

#include <QElapsedTimer>
#include <QLocalServer>
#include <QLocalSocket>
#include <QTemporaryDir>
#include <QUdpSocket>
#include <gtest/gtest.h>
#include <thread>

using namespace std::chrono_literals;

struct LocalSocketsTest : testing::Test {
    QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("talk.sock"));
    std::unique_ptr<LocalSockets> sockets = makeLocalSockets();
};

TEST_F(LocalSocketsTest, talksAtASocketInTheFileSystem)
{
    QLocalServer server;
    ASSERT_TRUE(server.listen(path));
    const auto connection = sockets->open({path, 0}, 10s);
    ASSERT_TRUE(connection);
    EXPECT_EQ(connection->peer(), qint64(getpid()));
    ASSERT_TRUE(server.waitForNewConnection(5000));
    QLocalSocket *other = server.nextPendingConnection();
    // More than fits into the socket at once, so that both sides must go on.
    const QByteArray much(3 * 1024 * 1024, 'v');
    std::thread speaker([&connection, much] { connection->send(much); });
    QByteArray heard;
    while (heard.size() < much.size() && other->waitForReadyRead(5000))
        heard += other->readAll();
    speaker.join();
    EXPECT_EQ(heard, much);

    other->write("answer");
    ASSERT_TRUE(other->waitForBytesWritten(5000));
    EXPECT_EQ(connection->receive(), "answer");
    other->close();
    EXPECT_EQ(connection->receive(), "");
    EXPECT_FALSE(connection->send("to nobody") && connection->send("again"));
}

TEST_F(LocalSocketsTest, talksAtAPort)
{
    QUdpSocket other;
    ASSERT_TRUE(other.bind(QHostAddress::LocalHost));
    const auto connection = sockets->open({{}, other.localPort()}, 10s);
    ASSERT_TRUE(connection && connection->send("VERSION"));
    ASSERT_TRUE(other.waitForReadyRead(5000));
    QHostAddress host;
    quint16 port = 0;
    QByteArray question(100, '\0');
    question.truncate(other.readDatagram(question.data(), question.size(), &host, &port));
    EXPECT_EQ(question, "VERSION");
    EXPECT_EQ(connection->peer(), 0);

    QUdpSocket stranger; // somebody else's message is not the answer
    stranger.bind(QHostAddress::LocalHost);
    stranger.writeDatagram("lie", host, port);
    other.writeDatagram("1.14.0", host, port);
    EXPECT_EQ(connection->receive(), "1.14.0");
}

TEST_F(LocalSocketsTest, aSilentProgramEndsTheTalkInTime)
{
    QLocalServer server;
    ASSERT_TRUE(server.listen(path));
    QElapsedTimer time;
    time.start();
    const auto connection = sockets->open({path, 0}, 100ms);
    EXPECT_EQ(connection->receive(), "");
    EXPECT_FALSE(connection->send("late"));
    EXPECT_LT(time.elapsed(), 5000);
}

TEST_F(LocalSocketsTest, nobodyListens)
{
    EXPECT_FALSE(sockets->open({path, 0}, 1s));
    EXPECT_FALSE(sockets->open({QString(300, u'x'), 0}, 1s)) << "longer than an address can be";
    QFile(path).open(QFile::WriteOnly);
    EXPECT_FALSE(sockets->open({path, 0}, 1s)) << "a plain file";
    QUdpSocket gone;
    gone.bind(QHostAddress::LocalHost);
    const quint16 port = gone.localPort();
    gone.close();
    const auto connection = sockets->open({{}, port}, 5s);
    EXPECT_TRUE(!connection || (connection->send("VERSION"), connection->receive().isEmpty()));
}
