#pragma once

#include "library/GameLauncher.h"

#include <QList>

/// Launches that wait for a test to say how they went.
struct FakeGameLauncher final : GameLauncher {
    QList<LaunchRequest> requests;
    QList<std::function<void(Result<StartedGame>)>> waiting;

    void launch(const LaunchRequest &request, std::function<void(Result<StartedGame>)> done) override
    {
        requests += request;
        waiting += std::move(done);
    }
    void answer(const Result<StartedGame> &result) { waiting.takeFirst()(result); }
};
