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
struct Asker {
    std::unique_ptr<RequestChannel> channel;
    QString output, errors;
    QList<int> ends;
    int lost = 0;

    explicit Asker(const Places &places, std::chrono::milliseconds patience = 10s)
        : channel(makeRequestChannel(places, patience))
    { }
    void ask(const Request &request)
    {
        channel->ask(request,
                     {.print = [this](const QString &text) { output += text; },
                      .printError = [this](const QString &text) { errors += text; },
                      .finished = [this](int status) { ends += status; },
                      .lost = [this] { ++lost; }});
    }
    bool isDone() const { return !ends.isEmpty() || lost > 0; }
};

/// An owner that keeps what it is asked, on a runtime folder of its own.
class RequestChannels : public testing::Test {
protected:
    TemporaryHome home;
    const Places places = home.places();
    const QString socket = places.runtime + u"/velko/socket"_s;
    std::unique_ptr<RequestChannel> owner = makeRequestChannel(places);
    QList<Request> requests;
    QList<std::shared_ptr<Reply>> replies;
    const Request question{{u"play"_s, u"Pokémon\n\"é\" 🎮"_s, u""_s}, u"/home/ana"_s};

    RequestChannels()
    {
        QObject::connect(owner.get(), &RequestChannel::requested, owner.get(),
                         [this](const Request &request, const std::shared_ptr<Reply> &reply) {
                             requests += request;
                             replies += reply;
                         });
    }
    bool arrive(int count = 1)
    {
        return waitUntil([&] { return requests.size() >= count; });
    }
};

TEST_F(RequestChannels, haveOneOwner)
{
    EXPECT_TRUE(owner->claim());
    EXPECT_TRUE(owner->claim());
    const auto second = makeRequestChannel(places);
    EXPECT_FALSE(second->claim());
    owner.reset();
    EXPECT_TRUE(second->claim());
    EXPECT_EQ(QFile::permissions(places.runtime + u"/velko"_s)
                  & (QFile::ReadGroup | QFile::ReadOther | QFile::ExeOther),
              QFile::Permissions());
}

TEST_F(RequestChannels, carryTheRequestAndItsAnswer)
{
    ASSERT_TRUE(owner->claim());
    Asker asker(places);
    asker.ask(question);
    ASSERT_TRUE(arrive());
    EXPECT_EQ(requests, QList<Request>{question});
    replies[0]->print(u"one\n"_s);
    replies[0]->printError(u"é🎮\0!"_s);
    replies[0]->print({});
    replies[0]->print(u"two"_s);
    EXPECT_TRUE(waitUntil([&] { return asker.output == u"one\ntwo"_s; })); // as it comes, not only at the end
    EXPECT_EQ(asker.errors, u"é🎮\0!"_s);
    EXPECT_FALSE(asker.isDone());
    replies[0]->finish(3);
    replies[0]->print(u"late"_s);
    replies[0]->finish(4);
    ASSERT_TRUE(waitUntil([&] { return asker.isDone(); }));
    EXPECT_EQ(asker.ends, QList<int>{3});
    EXPECT_EQ(asker.output, u"one\ntwo"_s);
    EXPECT_EQ(asker.lost, 0);
}

TEST_F(RequestChannels, carryAnswersOfAnyLength)
{
    ASSERT_TRUE(owner->claim());
    Asker asker(places);
    asker.ask(question);
    ASSERT_TRUE(arrive());
    const QString text = u"x"_s + u"🎮"_s.repeated(400'000) + QString(300'000, QChar(1));
    replies[0]->print(text);
    replies[0]->finish(0);
    ASSERT_TRUE(waitUntil([&] { return asker.isDone(); }));
    EXPECT_TRUE(asker.output == text);
    EXPECT_EQ(asker.ends, QList<int>{0});
}

TEST_F(RequestChannels, serveSeveralAtATime)
{
    ASSERT_TRUE(owner->claim());
    Asker first(places), second(places);
    first.ask({{u"1"_s}, {}});
    ASSERT_TRUE(arrive());
    second.ask({{u"2"_s}, {}});
    ASSERT_TRUE(arrive(2));
    replies[1]->finish(2);
    ASSERT_TRUE(waitUntil([&] { return second.isDone(); }));
    EXPECT_FALSE(first.isDone());
    replies[0]->finish(1);
    ASSERT_TRUE(waitUntil([&] { return first.isDone(); }));
    EXPECT_EQ(first.ends, QList<int>{1});
    EXPECT_EQ(second.ends, QList<int>{2});
}

TEST_F(RequestChannels, areLostWhenTheReplyIsForgotten)
{
    ASSERT_TRUE(owner->claim());
    Asker asker(places);
    asker.ask(question);
    ASSERT_TRUE(arrive());
    replies.clear();
    ASSERT_TRUE(waitUntil([&] { return asker.isDone(); }));
    EXPECT_EQ(asker.lost, 1);
}

TEST_F(RequestChannels, takeNoHarmFromAnAskerThatWent)
{
    ASSERT_TRUE(owner->claim());
    auto asker = std::make_unique<Asker>(places);
    asker->ask(question);
    ASSERT_TRUE(arrive());
    asker.reset();
    for (int i = 0; i < 100; ++i)
        replies[0]->print(QString(10'000, u'x'));
    waitUntil([] { return false; }, 5ms);
    replies[0]->print(u"x"_s);
    replies[0]->finish(0);
    Asker next(places);
    next.ask(question);
    EXPECT_TRUE(arrive(2));
}

TEST_F(RequestChannels, saySoWhenTheOwnerEnds)
{
    ASSERT_TRUE(owner->claim());
    Asker asker(places);
    asker.ask(question);
    ASSERT_TRUE(arrive());
    replies[0]->print(u"begun"_s);
    ASSERT_TRUE(waitUntil([&] { return !asker.output.isEmpty(); }));
    owner.reset();
    replies[0]->print(u"nobody"_s);
    ASSERT_TRUE(waitUntil([&] { return asker.isDone(); }));
    EXPECT_EQ(asker.lost, 1);
    EXPECT_EQ(asker.output, u"begun"_s);
}

TEST_F(RequestChannels, deliverAnAnswerAlthoughTheOwnerEndsRightAfterIt)
{
    ASSERT_TRUE(owner->claim());
    Asker asker(places);
    asker.ask(question);
    ASSERT_TRUE(arrive());
    replies[0]->print(u"bye"_s);
    replies[0]->finish(0);
    owner.reset();
    ASSERT_TRUE(waitUntil([&] { return asker.isDone(); }));
    EXPECT_EQ(asker.ends, QList<int>{0});
    EXPECT_EQ(asker.output, u"bye"_s);
}

TEST_F(RequestChannels, waitForAnOwnerThatIsJustStarting)
{
    Asker asker(places);
    asker.ask(question);
    waitUntil([] { return false; }, 10ms);
    ASSERT_TRUE(owner->claim());
    EXPECT_TRUE(arrive());
}

TEST_F(RequestChannels, giveUpOnAnOwnerThatIsAbsentOrHangs)
{
    Asker absent(places, 20ms);
    absent.ask(question);
    ASSERT_TRUE(waitUntil([&] { return absent.isDone(); }));
    EXPECT_EQ(absent.lost, 1);

    QDir().mkpath(places.runtime + u"/velko"_s);
    QLocalServer hanging;
    ASSERT_TRUE(hanging.listen(socket));
    Asker asker(places, 20ms);
    asker.ask(question);
    ASSERT_TRUE(waitUntil([&] { return asker.isDone(); }));
    EXPECT_EQ(asker.lost, 1);
}

TEST_F(RequestChannels, refuseARequestThatIsTooLong)
{
    ASSERT_TRUE(owner->claim());
    Asker asker(places);
    asker.ask({QStringList(20'000, QString(100, u'x')), {}});
    ASSERT_TRUE(waitUntil([&] { return asker.isDone(); }));
    EXPECT_EQ(asker.lost, 1);
}

TEST_F(RequestChannels, takeOverWhatACrashedOwnerLeft)
{
    QDir().mkpath(places.runtime + u"/velko"_s);
    const int left = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    qstrncpy(address.sun_path, qPrintable(socket), sizeof address.sun_path);
    ASSERT_EQ(bind(left, reinterpret_cast<sockaddr *>(&address), sizeof address), 0);
    ::close(left);
    home.write(u"run/velko/lock"_s, "12345");
    ASSERT_TRUE(QFileInfo::exists(socket));

    ASSERT_TRUE(owner->claim());
    Asker asker(places);
    asker.ask(question);
    EXPECT_TRUE(arrive());
}

TEST_F(RequestChannels, haveNoOwnerWhereNothingCanBeWritten)
{
    home.write(u"run"_s, "a file");
    EXPECT_FALSE(owner->claim());
}

TEST_F(RequestChannels, dropGarbageAndGoOn)
{
    ASSERT_TRUE(owner->claim());
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
    Asker asker(places);
    asker.ask(question);
    ASSERT_TRUE(arrive());
    EXPECT_EQ(requests, QList<Request>{question});
}

TEST_F(RequestChannels, loseAnOwnerThatTalksNonsense)
{
    QDir().mkpath(places.runtime + u"/velko"_s);
    QLocalServer server;
    ASSERT_TRUE(server.listen(socket));
    QObject::connect(&server, &QLocalServer::newConnection, &server, [&] {
        QLocalSocket *connection = server.nextPendingConnection();
        connection->write("{}\n{\"out\":\"a\"}\n{\"out\":1}\nnonsense\n{\"status\":0}\n");
    });
    Asker asker(places);
    asker.ask(question);
    ASSERT_TRUE(waitUntil([&] { return asker.isDone(); }));
    EXPECT_EQ(asker.output, u"a"_s);
    EXPECT_EQ(asker.lost, 1);
}
