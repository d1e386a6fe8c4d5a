#pragma once

#include "base/Result.h"

#include <QByteArray>
#include <QMap>
#include <QUrl>
#include <QUrlQuery>
#include <chrono>
#include <functional>
#include <memory>

/// What to ask a server for.
struct HttpRequest {
    QUrl address; ///< https; plain http only to this machine
    std::optional<QByteArray> body; ///< present: a POST
    QMap<QByteArray, QByteArray> headers; ///< such as "Content-Type"; the User-Agent is always ours
    QString file; ///< the answer is written here, whole or not at all; empty: it is kept in memory
    qint64 largest = 8 * 1024 * 1024; ///< bytes of the answer, unpacked; more is a failure
    std::chrono::milliseconds patience = std::chrono::seconds(20); ///< without a single byte
    std::chrono::milliseconds longest = std::chrono::minutes(2); ///< from start to end
};

/// What came back. An answer of unannounced length that breaks off may seem whole (Qt 6.4): judge what it holds. A
/// status other than 2xx is an answer, too; then nothing is written to a file.
struct HttpAnswer {
    int status = 0;
    QByteArray body; ///< empty when it went to a file
    QUrl address; ///< after redirects
    bool ok() const { return status >= 200 && status < 300; }
};

/// A request under way. Destroying it ends the request; its `done` does not come then.
class HttpTransfer {
public:
    virtual ~HttpTransfer() = default;
};
using Transfer = std::unique_ptr<HttpTransfer>;

/// The network. Main thread only. Certificates are always checked; redirects are followed to https, or from plain http
/// to plain http, as long as that is this machine.
class Http {
public:
    using Done = std::function<void(Result<HttpAnswer>)>;
    using Progress = std::function<void(qint64 received, qint64 total)>; ///< total -1: not known

    virtual ~Http() = default;

    /// `done` comes once, never from inside `send`. Whoever keeps the transfer may destroy it in `done`.
    [[nodiscard]] virtual Transfer send(const HttpRequest &request, Done done, Progress progress = {}) = 0;
};
