#include "platform/linux/LinuxServices.h"

#include "WaitUntil.h"
#include "fakes/TemporaryHome.h"

#include <QCoreApplication>
#include <QLocalSocket>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {
/// What came back from the owner.
struct Answers {
    QString out, error;
    std::optional<int> status;
    bool lost = false;
    ReplyHandler handler()
    {
        return {[this](const QString &text) { out += text; }, [this](const QString &text) { error += text; },
                [this](int exitStatus) { status = exitStatus; }, [this] { lost = true; }};
    }
    bool over() const { return status || lost; }
};

class Channels : public testing::Test {
protected:
    TemporaryHome home;
    std::unique_ptr<RequestChannel> owner = makeRequestChannel(home.places());
    std::unique_ptr<RequestChannel> other = makeRequestChannel(home.places());
    QList<Request> requests;
    std::shared_ptr<Reply> reply;
    Answers answers;

    void SetUp() override
    {
        ASSERT_TRUE(owner->claim());
        QObject::connect(owner.get(), &RequestChannel::requested, owner.get(),
                         [this](const Request &request, const std::shared_ptr<Reply> &to) {
                             requests += request;
                             reply = to;
                         });
    }
};
} // namespace

TEST_F(Channels, carryARequestAndItsAnswers)
{
    EXPECT_TRUE(owner->claim());
    EXPECT_FALSE(other->claim());
    const Request request{{u"play"_s, u"It's\n“$(x)”"_s, QString()}, u"/a b"_s};
    other->ask(request, answers.handler());
    waitUntil([this] { return reply != nullptr; });
    ASSERT_EQ(requests, QList<Request>{request});
    const QString large(3'000'000, u'ü');
    reply->print(large);
    reply->printError(u"no\n"_s);
    reply->finish(7);
    reply.reset();
    waitUntil([this] { return answers.over(); });
    EXPECT_EQ(answers.out, large);
    EXPECT_EQ(answers.error, u"no\n"_s);
    EXPECT_EQ(answers.status, 7);
    EXPECT_FALSE(answers.lost);
}

TEST_F(Channels, tellWhenTheOwnerEndsInTheMiddle)
{
    other->ask({{u"play"_s}, {}}, answers.handler());
    waitUntil([this] { return reply != nullptr; });
    owner.reset();
    waitUntil([this] { return answers.over(); });
    EXPECT_TRUE(answers.lost);
    reply->print(u"nobody hears this"_s);
    reply->finish(0);
    EXPECT_TRUE(other->claim());
}

TEST_F(Channels, survivesAnAskerWhoLeaves)
{
    other->ask({{u"play"_s}, {}}, answers.handler());
    waitUntil([this] { return reply != nullptr; });
    other.reset();
    QCoreApplication::processEvents();
    reply->print(u"hello?"_s);
    reply->finish(0);
    reply.reset();
    Answers next;
    other = makeRequestChannel(home.places());
    other->ask({{u"list"_s}, {}}, next.handler());
    waitUntil([this] { return reply != nullptr; });
    reply->finish(0);
    waitUntil([&] { return next.over(); });
    EXPECT_EQ(next.status, 0);
}

TEST_F(Channels, dropNoise)
{
    QLocalSocket noise;
    noise.connectToServer(home.places().runtime + u"/velko/socket"_s);
    noise.write(QByteArray(100'000, '\xff') + "\n{}\n");
    waitUntil([&] { return noise.state() == QLocalSocket::UnconnectedState; });
    EXPECT_EQ(noise.state(), QLocalSocket::UnconnectedState);
    EXPECT_TRUE(requests.isEmpty());
}

TEST(RequestChannel, losesAnOwnerThatIsNotThere)
{
    const TemporaryHome home;
    Answers answers;
    const auto channel = makeRequestChannel(home.places());
    channel->ask({}, answers.handler());
    waitUntil([&] { return answers.over(); });
    EXPECT_TRUE(answers.lost);
}
