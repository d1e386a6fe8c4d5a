#pragma once

#include "platform/RequestChannel.h"

/// Collects what the owner answers.
struct FakeRequestAnswer final : RequestAnswer {
    QString output, errors;
    std::optional<int> status;

    void print(const QString &text) override
    {
        if (!status) output += text;
    }
    void printError(const QString &text) override
    {
        if (!status) errors += text;
    }
    void finish(int value) override
    {
        if (!status) status = value;
    }
};

/// A channel whose other end is the test: it asks an owner by `ask`, and answers a client by emitting the signals.
class FakeRequestChannel final : public RequestChannel {
public:
    bool ownedElsewhere = false;
    std::optional<Message> refusal; ///< what `claim` answers instead
    QList<Request> sent;

    Result<bool> claim() override
    {
        if (refusal) return *refusal;
        return !ownedElsewhere;
    }
    void send(const Request &request) override { sent += request; }

    std::shared_ptr<FakeRequestAnswer> ask(const Request &request)
    {
        auto answer = std::make_shared<FakeRequestAnswer>();
        emit requested(request, answer);
        return answer;
    }
};
