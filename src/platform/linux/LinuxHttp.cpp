#include "platform/Clock.h"
#include "platform/linux/LinuxServices.h"

#include <QCoreApplication>
#include <QHostAddress>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QPointer>
#include <QSaveFile>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 chunk = 256 * 1024; ///< what may wait unread in memory
constexpr int mostRedirects = 5;

bool isThisMachine(const QUrl &address)
{
    return address.host() == "localhost"_L1 || QHostAddress(address.host()).isLoopback();
}

bool isAllowed(const QUrl &address)
{
    return address.scheme() == "https"_L1 || (address.scheme() == "http"_L1 && isThisMachine(address));
}

class LinuxTransfer final : public QObject, public HttpTransfer {
public:
    LinuxTransfer(const HttpRequest &request, Http::Done done, Http::Progress progress, Clock &clock)
        : m_request(request), m_done(std::move(done)), m_progress(std::move(progress)), m_clock(clock)
    { }

    ~LinuxTransfer() override { drop(); }

    void begin(QNetworkAccessManager &network)
    {
        m_limit = m_clock.after(m_request.longest, [this] { fail(tooSlow()); });
        if (!isAllowed(m_request.address)) return failSoon(notAllowed(m_request.address));
        if (!openFile()) return;
        QNetworkRequest request(m_request.address);
        for (const auto &[name, value] : m_request.headers.asKeyValueRange())
            request.setRawHeader(name, value);
        request.setHeader(QNetworkRequest::UserAgentHeader, u"Velko/"_s + QCoreApplication::applicationVersion());
        request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::UserVerifiedRedirectPolicy);
        request.setMaximumRedirectsAllowed(mostRedirects + 1);
        m_reply = m_request.body ? network.post(request, *m_request.body) : network.get(request);
        m_reply->setParent(this);
        m_reply->setReadBufferSize(chunk);
        connect(m_reply, &QNetworkReply::readyRead, this, [this] { read(); });
        connect(m_reply, &QNetworkReply::finished, this, [this] { finish(); });
        connect(m_reply, &QNetworkReply::redirected, this, [this](const QUrl &address) { redirect(address); });
        connect(m_reply, &QNetworkReply::uploadProgress, this, [this] { m_lastByte = m_clock.awake(); });
        m_lastByte = m_clock.awake();
        watchSilence(m_request.patience);
    }

private:
    /// The clock is asked rarely, not for every piece that comes.
    void watchSilence(std::chrono::milliseconds left)
    {
        m_silence = m_clock.after(left, [this] {
            const auto quiet = m_clock.awake() - m_lastByte;
            if (quiet >= m_request.patience) return fail(tooSlow());
            watchSilence(m_request.patience - quiet);
        });
    }

    bool openFile()
    {
        if (m_request.file.isEmpty()) return true;
        m_file.emplace(m_request.file);
        if (m_file->open(QSaveFile::WriteOnly)) return true;
        failSoon(notWritten());
        return false;
    }

    int status() const { return m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt(); }
    bool goesToFile() const { return m_file && status() >= 200 && status() < 300; }

    void redirect(const QUrl &address)
    {
        const bool downgrade = m_reply->url().scheme() == "https"_L1 && address.scheme() != "https"_L1;
        if (downgrade || !isAllowed(address)) return fail(notAllowed(address));
        // Qt 6.4 ends without an error when it has followed as many as it may.
        if (++m_redirects > mostRedirects) return fail({u"“%@” sends Velko on and on. Try again later."_s, {host()}});
        emit m_reply->redirectAllowed();
    }

    void read()
    {
        m_lastByte = m_clock.awake();
        const QByteArray bytes = m_reply->readAll();
        m_received += bytes.size();
        if (m_received > m_request.largest) return fail({u"The answer of “%@” is too large."_s, {host()}});
        if (goesToFile()) {
            if (m_file->write(bytes) != bytes.size()) return fail(notWritten());
        } else {
            m_body += bytes;
        }
        const qint64 total = m_reply->header(QNetworkRequest::ContentLengthHeader).isValid()
            ? m_reply->header(QNetworkRequest::ContentLengthHeader).toLongLong()
            : -1;
        if (m_progress) m_progress(m_received, total); // may destroy this
    }

    void finish()
    {
        const QPointer<LinuxTransfer> alive(this);
        if (m_reply->bytesAvailable() > 0) read();
        if (!alive || !m_reply) return;
        // A connection that is lost before its answer may end without an error (Qt 6.4), but then with no final status.
        if (!isAnswer()) return fail(unreachable());
        HttpAnswer answer{status(), std::move(m_body), m_reply->url()};
        if (goesToFile() && !m_file->commit()) return fail(notWritten());
        end(std::move(answer));
    }

    /// The server has answered, only not as hoped. A connection that broke off is something else.
    bool isAnswer() const
    {
        const int error = m_reply->error();
        if (error == QNetworkReply::NoError) return status() >= 200;
        return status() >= 400 && error >= QNetworkReply::ContentAccessDenied;
    }

    void fail(const Message &why) { end(why); }

    /// From inside `begin`, whose caller does not expect the answer yet.
    void failSoon(const Message &why)
    {
        m_limit = m_clock.after(std::chrono::milliseconds(0), [this, why] { fail(why); });
    }

    void end(Result<HttpAnswer> result)
    {
        drop();
        // The receiver may destroy this transfer.
        if (const auto done = std::exchange(m_done, nullptr)) done(std::move(result));
    }

    void drop()
    {
        m_limit.reset();
        m_silence.reset();
        m_file.reset();
        if (QNetworkReply *reply = std::exchange(m_reply, nullptr)) {
            reply->disconnect(this);
            reply->setParent(nullptr);
            reply->abort();
            reply->deleteLater();
        }
    }

    QString host() const { return m_request.address.host(); }
    Message tooSlow() const { return {u"“%@” takes too long to answer. Try again later."_s, {host()}}; }
    Message unreachable() const
    {
        return {u"“%@” can't be reached (%@). Check your Internet connection."_s, {host(), m_reply->errorString()}};
    }
    Message notWritten() const { return {u"“%@” can't be written: %@"_s, {m_request.file, m_file->errorString()}}; }
    static Message notAllowed(const QUrl &address)
    {
        return {u"The address “%@” isn't encrypted, so Velko doesn't go there."_s, {address.toDisplayString()}};
    }

    const HttpRequest m_request;
    Http::Done m_done;
    Http::Progress m_progress;
    Clock &m_clock;
    QNetworkReply *m_reply = nullptr;
    std::optional<QSaveFile> m_file;
    QByteArray m_body;
    qint64 m_received = 0;
    int m_redirects = 0;
    std::chrono::milliseconds m_lastByte{0};
    Timer m_limit;
    Timer m_silence;
};

class LinuxHttp final : public Http {
public:
    explicit LinuxHttp(Clock &clock) : m_clock(clock) { }

    Transfer send(const HttpRequest &request, Done done, Progress progress) override
    {
        if (!m_network) m_network.emplace(); // reads certificates: not before it is needed
        auto transfer = std::make_unique<LinuxTransfer>(request, std::move(done), std::move(progress), m_clock);
        transfer->begin(*m_network);
        return transfer;
    }

private:
    Clock &m_clock;
    std::optional<QNetworkAccessManager> m_network;
};

}

std::unique_ptr<Http> makeHttp(Clock &clock)
{
    return std::make_unique<LinuxHttp>(clock);
}
