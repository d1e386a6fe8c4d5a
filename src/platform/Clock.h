#pragma once

#include <QDateTime>
#include <chrono>
#include <functional>
#include <memory>

/// A call that is still to come. Destroying it cancels the call.
class PendingCall {
public:
    virtual ~PendingCall() = default;
};
using Timer = std::unique_ptr<PendingCall>;

/// The only source of time. Main thread only; calls come from the event loop, never from inside `after` or `every`.
class Clock {
public:
    virtual ~Clock() = default;
    virtual QDateTime now() const = 0; ///< in the user's time zone
    virtual std::chrono::milliseconds awake() const = 0; ///< monotonic; stands still while the machine sleeps
    [[nodiscard]] virtual Timer after(std::chrono::milliseconds delay, std::function<void()> call) = 0;
    [[nodiscard]] virtual Timer every(std::chrono::milliseconds period, std::function<void()> call) = 0;
};
