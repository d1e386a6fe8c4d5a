#include "platform/RequestChannel.h"
#include "fakes/TemporaryHome.h"
#include "platform/WaitUntil.h"
#include "platform/linux/LinuxServices.h"

#include <QLocalServer>
#include <QLocalSocket>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// A second `velko`: what it heard back.
struct Client {
    std::unique_ptr<RequestChannel> channel;
    QString output, errors, failure;
    QList<int> ends;

    explicit Client(const Places &places, std::chrono::milliseconds patience = 10s)
        : channel(makeRequestChannel(places, patience))
    {
        QObject *receiver = channel.get();
        QObject::connect(channel.get(), &RequestChannel::printed, receiver,
                         [this](const QString &text) { output += text; });
        QObject::connect(channel.get(), &RequestChannel::errorPrinted, receiver,
                         [this](const QString &text) { errors += text; });
        QObject::connect(channel.get(), &RequestChannel::finished, receiver, [this](int status) { ends += status; });
        QObject::connect(channel.get(), &RequestChannel::failed, receiver,
                         [this](const Message &message) { failure = english(message); });
    }
    bool isDone() const { return !ends.isEmpty() || !failure.isEmpty(); }
};

/// An owner that keeps what it is asked, on a runtime folder of its own.
class RequestChannels : public testing::Test {
protected:
    TemporaryHome home;
    const Places places = home.places();
    const QString socket = places.runtime + u"/velko.sock"_s;
    std::unique_ptr<RequestChannel> owner = makeRequestChannel(places);
    QList<Request> requests;
    QList<std::shared_ptr<RequestAnswer>> answers;
    const Request question{{u"play"_s, u"Pokémon\n\"é\" 🎮"_s, u""_s}, u"/home/ana"_s};

    RequestChannels()
    {
        QObject::connect(owner.get(), &RequestChannel::requested, owner.get(),
                         [this](const Request &request, const std::shared_ptr<RequestAnswer> &answer) {
                             requests += request;
                             answers += answer;
                         });
    }
    bool owns(RequestChannel &channel) const
    {
        const auto claimed = channel.claim();
        return claimed && claimed.value();
    }
    bool arrive(int count = 1)
    {
        return waitUntil([&] { return requests.size() >= count; });
    }
};

TEST_F(RequestChannels, haveOneOwner)
{
    EXPECT_TRUE(owns(*owner));
    EXPECT_TRUE(owns(*owner));
    const auto second = makeRequestChannel(places);
    EXPECT_FALSE(owns(*second));
    EXPECT_TRUE(second->claim());
    owner.reset();
    EXPECT_TRUE(owns(*second));
    EXPECT_EQ(QFile::permissions(places.runtime) & (QFile::ReadGroup | QFile::ReadOther | QFile::ExeOther),
              QFile::Permissions());
}

TEST_F(RequestChannels, carryTheRequestAndItsAnswer)
{
    ASSERT_TRUE(owns(*owner));
    Client client(places);
    client.channel->send(question);
    ASSERT_TRUE(arrive());
    EXPECT_EQ(requests, QList<Request>{question});
    answers[0]->print(u"one\n"_s);
    answers[0]->printError(u"é🎮\0!"_s);
    answers[0]->print({});
    answers[0]->print(u"two"_s);
    EXPECT_TRUE(waitUntil([&] { return client.output == u"one\ntwo"_s; })); // as it comes, not only at the end
    EXPECT_EQ(client.errors, u"é🎮\0!"_s);
    EXPECT_FALSE(client.isDone());
    answers[0]->finish(3);
    answers[0]->print(u"late"_s);
    answers[0]->finish(4);
    ASSERT_TRUE(waitUntil([&] { return client.isDone(); }));
    EXPECT_EQ(client.ends, QList<int>{3});
    EXPECT_EQ(client.output, u"one\ntwo"_s);
    EXPECT_EQ(client.failure, QString());
}

TEST_F(RequestChannels, carryAnswersOfAnyLength)
{
    ASSERT_TRUE(owns(*owner));
    Client client(places);
    client.channel->send(question);
    ASSERT_TRUE(arrive());
    const QString text = u"x"_s + u"🎮"_s.repeated(400'000) + QString(300'000, QChar(1));
    answers[0]->print(text);
    answers[0]->finish(0);
    ASSERT_TRUE(waitUntil([&] { return client.isDone(); }));
    EXPECT_TRUE(client.output == text);
    EXPECT_EQ(client.ends, QList<int>{0});
}

TEST_F(RequestChannels, serveSeveralAtATime)
{
    ASSERT_TRUE(owns(*owner));
    Client first(places), second(places);
    first.channel->send({{u"1"_s}, {}});
    ASSERT_TRUE(arrive());
    second.channel->send({{u"2"_s}, {}});
    ASSERT_TRUE(arrive(2));
    answers[1]->finish(2);
    ASSERT_TRUE(waitUntil([&] { return second.isDone(); }));
    EXPECT_FALSE(first.isDone());
    answers[0]->finish(1);
    ASSERT_TRUE(waitUntil([&] { return first.isDone(); }));
    EXPECT_EQ(first.ends, QList<int>{1});
    EXPECT_EQ(second.ends, QList<int>{2});
}

TEST_F(RequestChannels, finishWhenTheAnswerIsForgotten)
{
    ASSERT_TRUE(owns(*owner));
    Client client(places);
    client.channel->send(question);
    ASSERT_TRUE(arrive());
    answers.clear();
    ASSERT_TRUE(waitUntil([&] { return client.isDone(); }));
    EXPECT_EQ(client.ends, QList<int>{1});
}

TEST_F(RequestChannels, takeNoHarmFromAClientThatWent)
{
    ASSERT_TRUE(owns(*owner));
    auto client = std::make_unique<Client>(places);
    client->channel->send(question);
    ASSERT_TRUE(arrive());
    client.reset();
    for (int i = 0; i < 100; ++i)
        answers[0]->print(QString(10'000, u'x'));
    waitUntil([] { return false; }, 5ms);
    answers[0]->print(u"x"_s);
    answers[0]->finish(0);
    Client next(places);
    next.channel->send(question);
    EXPECT_TRUE(arrive(2));
}

TEST_F(RequestChannels, saySoWhenTheOwnerEnds)
{
    ASSERT_TRUE(owns(*owner));
    Client client(places);
    client.channel->send(question);
    ASSERT_TRUE(arrive());
    answers[0]->print(u"begun"_s);
    ASSERT_TRUE(waitUntil([&] { return !client.output.isEmpty(); }));
    owner.reset();
    answers[0]->print(u"nobody"_s);
    ASSERT_TRUE(waitUntil([&] { return client.isDone(); }));
    EXPECT_EQ(client.failure, u"Velko ended before it had finished. Start it, then try again."_s);
    EXPECT_EQ(client.output, u"begun"_s);
}

TEST_F(RequestChannels, deliverAnAnswerAlthoughTheOwnerEndsRightAfterIt)
{
    ASSERT_TRUE(owns(*owner));
    Client client(places);
    client.channel->send(question);
    ASSERT_TRUE(arrive());
    answers[0]->print(u"bye"_s);
    answers[0]->finish(0);
    owner.reset();
    ASSERT_TRUE(waitUntil([&] { return client.isDone(); }));
    EXPECT_EQ(client.ends, QList<int>{0});
    EXPECT_EQ(client.output, u"bye"_s);
}

TEST_F(RequestChannels, waitForAnOwnerThatIsJustStarting)
{
    Client client(places);
    client.channel->send(question);
    waitUntil([] { return false; }, 10ms);
    ASSERT_TRUE(owns(*owner));
    EXPECT_TRUE(arrive());
}

TEST_F(RequestChannels, giveUpOnAnOwnerThatIsAbsentOrHangs)
{
    Client absent(places, 20ms);
    absent.channel->send(question);
    ASSERT_TRUE(waitUntil([&] { return absent.isDone(); }));
    EXPECT_EQ(absent.failure, u"Velko is running but doesn't answer. Quit it, then try again."_s);

    QDir().mkpath(places.runtime);
    QLocalServer hanging;
    ASSERT_TRUE(hanging.listen(socket));
    Client client(places, 20ms);
    client.channel->send(question);
    ASSERT_TRUE(waitUntil([&] { return client.isDone(); }));
    EXPECT_EQ(client.failure, absent.failure);
}

TEST_F(RequestChannels, refuseARequestThatIsTooLong)
{
    ASSERT_TRUE(owns(*owner));
    Client client(places);
    client.channel->send({QStringList(20'000, QString(100, u'x')), {}});
    EXPECT_EQ(client.failure, u"That is too much at once. Give Velko fewer files, then try again."_s);
}

TEST_F(RequestChannels, takeOverWhatACrashedOwnerLeft)
{
    QDir().mkpath(places.runtime);
    const int left = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    qstrncpy(address.sun_path, qPrintable(socket), sizeof address.sun_path);
    ASSERT_EQ(bind(left, reinterpret_cast<sockaddr *>(&address), sizeof address), 0);
    ::close(left);
    home.write(u"run/velko.lock"_s, "12345");
    ASSERT_TRUE(QFileInfo::exists(socket));

    ASSERT_TRUE(owns(*owner));
    Client client(places);
    client.channel->send(question);
    EXPECT_TRUE(arrive());
}

TEST_F(RequestChannels, sayWhenTheFolderCannotBeUsed)
{
    home.write(u"run"_s, "a file");
    const auto claimed = owner->claim();
    ASSERT_FALSE(claimed);
    EXPECT_EQ(claimed.failure().arguments, QStringList{places.runtime});
}

TEST_F(RequestChannels, dropGarbageAndGoOn)
{
    ASSERT_TRUE(owns(*owner));
    const QList<QByteArray> garbage{"\n",
                                    QByteArray("\0\xff\n", 3),
                                    "{}\n",
                                    "[1]\n",
                                    "{\"arguments\": \"play\", \"folder\": \"/\"}\n",
                                    "{\"arguments\": [1], \"folder\": \"/\"}\n",
                                    "{\"arguments\": []}\n",
                                    "GET / HTTP/1.1\r\n\r\n",
                                    QByteArray(3'000'000, 'x'),
                                    QByteArray(100'000, '[') + '\n'};
    for (const QByteArray &each : garbage) {
        QLocalSocket stranger;
        stranger.connectToServer(socket);
        ASSERT_TRUE(waitUntil([&] { return stranger.state() == QLocalSocket::ConnectedState; }));
        stranger.write(each);
        EXPECT_TRUE(waitUntil([&] { return stranger.state() == QLocalSocket::UnconnectedState; }))
            << each.left(50).constData();
    }
    QLocalSocket half;
    half.connectToServer(socket);
    half.write("{\"arguments\": [");
    EXPECT_TRUE(requests.isEmpty());
    Client client(places);
    client.channel->send(question);
    ASSERT_TRUE(arrive());
    EXPECT_EQ(requests, QList<Request>{question});
}

TEST_F(RequestChannels, doNotListenToGarbageFromAnOwner)
{
    QDir().mkpath(places.runtime);
    QLocalServer server;
    ASSERT_TRUE(server.listen(socket));
    QObject::connect(&server, &QLocalServer::newConnection, &server, [&] {
        QLocalSocket *connection = server.nextPendingConnection();
        connection->write("{\"accepted\":true}\n{\"out\":\"a\"}\n{\"out\":1}\nnonsense\n{\"status\":0}\n");
    });
    Client client(places);
    client.channel->send(question);
    ASSERT_TRUE(waitUntil([&] { return client.isDone(); }));
    EXPECT_EQ(client.output, u"a"_s);
    EXPECT_EQ(client.ends, QList<int>());
}
