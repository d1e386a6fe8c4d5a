#include "fakes/FakeHttp.h"
#include "fakes/TemporaryHome.h"
#include "platform/Endpoints.h"
#include "platform/WaitUntil.h"
#include "platform/linux/LinuxServices.h"

#include <QHostAddress>
#include <QTcpServer>
#include <QTcpSocket>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// Answers each path with bytes as they are, headers included. What is not closed stays open.
class LocalServer : public QTcpServer {
public:
    struct Page {
        QByteArray bytes;
        bool closes = true;
        bool endless = false; ///< the last bytes again and again
    };
    QMap<QByteArray, Page> pages;
    QByteArrayList requests; ///< heads

    LocalServer()
    {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this] {
            QTcpSocket *socket = nextPendingConnection();
            connect(socket, &QTcpSocket::readyRead, socket, [this, socket] { serve(*socket); });
            connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        });
    }
    QUrl address(const QString &path) const { return QUrl(u"http://127.0.0.1:%1%2"_s.arg(serverPort()).arg(path)); }

private:
    void serve(QTcpSocket &socket)
    {
        const QByteArray head = socket.readAll();
        requests += head;
        const Page page = pages.value(head.split(' ').value(1), {"HTTP/1.1 404 Gone\r\nContent-Length: 2\r\n\r\nno"});
        socket.write(page.bytes);
        if (page.endless)
            connect(&socket, &QTcpSocket::bytesWritten, &socket,
                    [&socket, more = page.bytes.right(1000)] { socket.write(more); });
        else if (page.closes)
            socket.disconnectFromHost();
    }
};

static QByteArray page(const QByteArray &body)
{
    return "HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" + body;
}

/// The same expectations for the real network and for its stand-in.
class HttpContract : public testing::TestWithParam<bool> {
protected:
    void publish(const QString &path, const QByteArray &body)
    {
        server.pages[path.toUtf8()] = {page(body)};
        fake.pages[server.address(path).toString()] = {200, body, {}};
    }
    std::optional<Result<HttpAnswer>> ask(HttpRequest request)
    {
        std::optional<Result<HttpAnswer>> result;
        Http &http = GetParam() ? static_cast<Http &>(fake) : *linux_;
        const Transfer transfer = http.send(request, [&](Result<HttpAnswer> answer) { result.emplace(answer); });
        EXPECT_FALSE(result.has_value()) << "never from inside";
        if (GetParam())
            fake.deliver();
        else
            waitUntil([&] { return result.has_value(); }, 10s);
        return result;
    }

    TemporaryHome home;
    LocalServer server;
    FakeHttp fake;
    std::unique_ptr<Clock> clock = makeClock();
    std::unique_ptr<Http> linux_ = makeHttp(*clock);
};

TEST_P(HttpContract, answersIntoMemoryAndFile)
{
    const QByteArray large(3 * 1024 * 1024, 'x');
    publish(u"/a"_s, large);
    const auto inMemory = ask({.address = server.address(u"/a"_s)});
    ASSERT_TRUE(inMemory && *inMemory);
    EXPECT_EQ(inMemory->value().status, 200);
    EXPECT_EQ(inMemory->value().body, large);
    const auto inFile = ask({.address = server.address(u"/a"_s), .file = home.path() + u"/a"_s});
    ASSERT_TRUE(inFile && *inFile);
    EXPECT_EQ(home.read(u"a"_s), large);
    EXPECT_EQ(inFile->value().body, "");
}

TEST_P(HttpContract, refusesWhatIsTooLargeOrNotThere)
{
    publish(u"/a"_s, QByteArray(2000, 'x'));
    home.write(u"kept"_s, "before");
    const auto large = ask({.address = server.address(u"/a"_s), .file = home.path() + u"/kept"_s, .largest = 1999});
    EXPECT_FALSE(large && *large);
    EXPECT_EQ(home.read(u"kept"_s), "before");
    fake.pages[server.address(u"/none"_s).toString()] = {404, "no", {}};
    const auto none = ask({.address = server.address(u"/none"_s), .file = home.path() + u"/kept"_s});
    ASSERT_TRUE(none && *none);
    EXPECT_EQ(none->value().status, 404);
    EXPECT_EQ(none->value().body, "no");
    EXPECT_EQ(home.read(u"kept"_s), "before");
    server.close();
    const auto dead = ask({.address = server.address(u"/dead"_s)});
    EXPECT_TRUE(dead && !*dead);
}

TEST_P(HttpContract, cancelledAnswersNothing)
{
    publish(u"/a"_s, "x");
    Http &http = GetParam() ? static_cast<Http &>(fake) : *linux_;
    bool answered = false;
    Transfer transfer = http.send({.address = server.address(u"/a"_s)}, [&](const Result<HttpAnswer> &) {
        answered = true;
        transfer.reset();
    });
    transfer.reset();
    (void)ask({.address = server.address(u"/a"_s)});
    EXPECT_FALSE(answered);
    transfer = http.send({.address = server.address(u"/a"_s)}, [&](const Result<HttpAnswer> &) {
        answered = true;
        transfer.reset(); // from inside
    });
    if (GetParam()) fake.deliver();
    EXPECT_TRUE(waitUntil([&] { return answered; }, 10s));
}

INSTANTIATE_TEST_SUITE_P(Both, HttpContract, testing::Bool(),
                         [](const auto &row) { return row.param ? "fake" : "linux"; });

struct TroubleRow {
    const char *test;
    LocalServer::Page page;
};
class HttpTrouble : public testing::TestWithParam<TroubleRow> { };

TEST_P(HttpTrouble, endsInASentence)
{
    LocalServer server;
    server.pages["/a"] = GetParam().page;
    const auto clock = makeClock();
    const auto http = makeHttp(*clock);
    const TemporaryHome home;
    std::optional<Result<HttpAnswer>> result;
    const Transfer transfer = http->send({.address = server.address(u"/a"_s),
                                          .file = home.path() + u"/a"_s,
                                          .largest = 100'000,
                                          .patience = 300ms,
                                          .longest = 5s},
                                         [&](Result<HttpAnswer> answer) { result.emplace(std::move(answer)); });
    ASSERT_TRUE(waitUntil([&] { return result.has_value(); }, 10s));
    EXPECT_FALSE(*result);
    EXPECT_FALSE(QFile::exists(home.path() + u"/a"_s));
    EXPECT_TRUE(QDir(home.path()).isEmpty()) << "nothing half-written is left";
}

INSTANTIATE_TEST_SUITE_P(
    Servers, HttpTrouble,
    testing::Values(
        TroubleRow{"silent", {"", false}}, TroubleRow{"closesAtOnce", {""}}, TroubleRow{"noHttp", {"what?\r\n\r\n"}},
        TroubleRow{"cutShort", {"HTTP/1.1 200 OK\r\nContent-Length: 500\r\n\r\nhalf"}},
        TroubleRow{"stalls", {"HTTP/1.1 200 OK\r\nContent-Length: 500\r\n\r\nhalf", false}},
        TroubleRow{"endless", {"HTTP/1.1 200 OK\r\n\r\n" + QByteArray(1000, 'x'), false, true}},
        TroubleRow{"redirectLoop",
                   {"HTTP/1.1 302 Found\r\nLocation: /a\r\nContent-Length: 0\r\nConnection: close\r\n\r\n"}},
        TroubleRow{
            "toAnotherMachine",
            {"HTTP/1.1 302 Found\r\nLocation: http://192.0.2.1/a\r\nContent-Length: 0\r\nConnection: close\r\n\r\n"}},
        TroubleRow{
            "toAFile",
            {"HTTP/1.1 302 Found\r\nLocation: file:///etc/passwd\r\nContent-Length: 0\r\nConnection: close\r\n\r\n"}}),
    [](const auto &row) { return row.param.test; });

TEST(LinuxHttp, sendsWhatItIsGivenAndFollowsRedirects)
{
    LocalServer server;
    server.pages["/from"] = {"HTTP/1.1 302 Found\r\nLocation: /to\r\nContent-Length: 0\r\nConnection: close\r\n\r\n"};
    server.pages["/to"] = {page("here")};
    server.pages["/post"] = {page("thanks")};
    const auto clock = makeClock();
    const auto http = makeHttp(*clock);
    std::optional<Result<HttpAnswer>> result;
    const auto ask = [&](const HttpRequest &request) {
        result.reset();
        const Transfer transfer = http->send(request, [&](Result<HttpAnswer> answer) { result.emplace(answer); });
        return waitUntil([&] { return result.has_value(); }, 10s) && *result ? result->value() : HttpAnswer{};
    };
    const HttpAnswer moved = ask({.address = server.address(u"/from"_s)});
    EXPECT_EQ(moved.body, "here");
    EXPECT_EQ(moved.address, server.address(u"/to"_s));
    EXPECT_EQ(ask({.address = server.address(u"/post"_s),
                   .body = "hello",
                   .headers = {{"X-Test", "1"}, {"Content-Type", "text/plain"}}})
                  .body,
              "thanks");
    EXPECT_TRUE(server.requests.last().contains("User-Agent: Velko/"));
    EXPECT_TRUE(server.requests.last().contains("X-Test: 1"));
    EXPECT_TRUE(server.requests.last().startsWith("POST "));
    EXPECT_EQ(ask({.address = QUrl(u"http://example.org/"_s)}).status, 0) << "not encrypted";
    EXPECT_EQ(ask({.address = QUrl(u"file:///etc/passwd"_s)}).status, 0);
}

TEST(Endpoints, areReadFromAFileAndWrongOnesStay)
{
    const TemporaryHome home;
    EXPECT_EQ(endpointsFrom({}).rpcs3, QUrl(u"https://rpcs3.net"_s));
    const QString file = home.write(u"e.ini"_s, "rpcs3=http://127.0.0.1:8080/base/\ngithubApi=file:///etc\n");
    EXPECT_EQ(addressAt(endpointsFrom(file).rpcs3, u"/compatibility"_s, u"patch&v=1.2"_s),
              QUrl(u"http://127.0.0.1:8080/base/compatibility?patch&v=1.2"_s));
    EXPECT_EQ(endpointsFrom(file).githubApi, QUrl(u"https://api.github.com"_s));
}
