#pragma once

#include "library/GameLauncher.h"

#include <QList>

/// Launches that wait for a test to say how they went.
struct FakeGameLauncher final : GameLauncher {
    QList<LaunchRequest> requests;
    QList<std::function<void(LaunchResult)>> waiting;
    int cancelled = 0; ///< how often; what waits can still be answered, as by a program that had started already
    QString toSetUp; ///< what `controllerToSetUp` answers

    void launch(const LaunchRequest &request, std::function<void(LaunchResult)> done) override
    {
        requests += request;
        waiting += std::move(done);
    }
    void cancel() override { ++cancelled; }
    QString controllerToSetUp(const LaunchRequest &) const override { return toSetUp; }
    void answer(const LaunchResult &result) { waiting.takeFirst()(result); }
};
