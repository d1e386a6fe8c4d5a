#include "platform/linux/LinuxServices.h"

#include <QTimer>
#include <algorithm>
#include <ctime>
#include <limits>

using namespace std::chrono;

namespace {

class LinuxTimer final : public PendingCall {
public:
    enum class Repeat { once, always };

    // The function lives in the connection, which Qt keeps until the call has returned: a call may destroy its timer.
    LinuxTimer(milliseconds time, Repeat repeat, std::function<void()> call)
    {
        constexpr auto longest = milliseconds(std::numeric_limits<int>::max());
        m_timer.setTimerType(time < 2s ? Qt::PreciseTimer : Qt::CoarseTimer);
        m_timer.setSingleShot(repeat == Repeat::once);
        m_timer.callOnTimeout(std::move(call));
        m_timer.start(std::clamp(time, 0ms, longest));
    }

private:
    QTimer m_timer;
};

class LinuxClock final : public Clock {
    QDateTime now() const override { return QDateTime::currentDateTime(); }

    // CLOCK_MONOTONIC does not count the time that the machine is suspended; CLOCK_BOOTTIME would.
    milliseconds awake() const override
    {
        timespec time{};
        clock_gettime(CLOCK_MONOTONIC, &time);
        return duration_cast<milliseconds>(seconds(time.tv_sec) + nanoseconds(time.tv_nsec));
    }

    Timer after(milliseconds delay, std::function<void()> call) override
    {
        return std::make_unique<LinuxTimer>(delay, LinuxTimer::Repeat::once, std::move(call));
    }
    Timer every(milliseconds period, std::function<void()> call) override
    {
        return std::make_unique<LinuxTimer>(period, LinuxTimer::Repeat::always, std::move(call));
    }
};

}

std::unique_ptr<Clock> makeClock()
{
    return std::make_unique<LinuxClock>();
}
