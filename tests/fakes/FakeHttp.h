#pragma once

#include "platform/Http.h"

#include <QFile>
#include <QList>

/// A network of these pages. Answers wait until a test lets them arrive.
class FakeHttp final : public Http {
public:
    QMap<QString, HttpAnswer> pages; ///< by address; a server that is not here can't be reached
    QList<HttpRequest> requests; ///< all there were

    Transfer send(const HttpRequest &request, Done done, Progress progress) override
    {
        requests += request;
        auto transfer = std::make_unique<FakeTransfer>();
        m_waiting += {request, std::move(done), std::move(progress), transfer->alive};
        return transfer;
    }

    int pending() const
    {
        return int(std::ranges::count_if(m_waiting, [](const Waiting &each) { return !each.alive.expired(); }));
    }

    /// All answers, also those to requests that the answers lead to.
    void deliver()
    {
        while (!m_waiting.isEmpty())
            answer(m_waiting.takeFirst());
    }

private:
    struct FakeTransfer final : HttpTransfer {
        std::shared_ptr<int> alive = std::make_shared<int>();
    };
    struct Waiting {
        HttpRequest request;
        Done done;
        Progress progress;
        std::weak_ptr<int> alive;
    };

    void answer(const Waiting &waiting)
    {
        const auto page = pages.constFind(waiting.request.address.toString());
        if (waiting.alive.expired()) return;
        if (page == pages.constEnd()) return waiting.done(Message{QStringLiteral("“%@” can't be reached."), {}});
        HttpAnswer answer = *page;
        answer.address = waiting.request.address;
        if (answer.status == 0) answer.status = 200;
        if (answer.body.size() > waiting.request.largest)
            return waiting.done(Message{QStringLiteral("The answer is too large."), {}});
        if (waiting.progress) waiting.progress(answer.body.size(), answer.body.size());
        if (waiting.alive.expired()) return;
        QFile file(waiting.request.file);
        if (answer.ok() && !waiting.request.file.isEmpty() && file.open(QFile::WriteOnly)) {
            file.write(std::exchange(answer.body, {}));
            file.close();
        }
        waiting.done(answer);
    }

    QList<Waiting> m_waiting;
};
