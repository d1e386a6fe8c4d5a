#pragma once

#include "platform/Tasks.h"

#include <deque>

/// Background work that waits until a test lets it happen.
class FakeTasks final : public Tasks {
public:
    bool immediate = false; ///< work and result happen inside `run`
    std::deque<std::pair<std::function<void()>, std::function<void()>>> waiting;

    void post(std::function<void()> call) override { call(); }

    /// Does all waiting work, and what that work starts in turn.
    void finish()
    {
        while (!waiting.empty()) {
            const auto [work, done] = std::move(waiting.front());
            waiting.pop_front();
            work();
            done();
        }
    }

private:
    void start(std::function<void()> work, std::function<void()> done) override
    {
        waiting.emplace_back(std::move(work), std::move(done));
        if (immediate) finish();
    }
};
