#pragma once

#include "platform/Clock.h"

#include <QTimeZone>
#include <map>

/// Time that passes only when a test says so.
class ManualClock final : public Clock {
public:
    QDateTime present = QDateTime(QDate(2026, 3, 14), QTime(20, 0), QTimeZone("Europe/Paris"));
    std::chrono::milliseconds awakeTime{0};

    QDateTime now() const override { return present; }
    std::chrono::milliseconds awake() const override { return awakeTime; }
    Timer after(std::chrono::milliseconds delay, std::function<void()> call) override
    {
        return add(delay, {}, std::move(call));
    }
    Timer every(std::chrono::milliseconds period, std::function<void()> call) override
    {
        return add(period, period, std::move(call));
    }

    int pending() const { return int(m_calls->size()); }

    /// Lets time pass, making every call that falls due, in order of time.
    void advance(std::chrono::milliseconds time)
    {
        const auto end = awakeTime + time;
        while (!m_calls->empty() && m_calls->begin()->first.first <= end) {
            auto entry = m_calls->extract(m_calls->begin());
            moveTo(entry.key().first);
            const Call call = entry.mapped();
            if (call.period.count() > 0) {
                entry.key().first += call.period;
                m_calls->insert(std::move(entry));
            }
            call.run();
        }
        moveTo(end);
    }

    /// The machine sleeps: the wall clock goes on, the other stands still.
    void sleep(std::chrono::milliseconds time) { present = present.addMSecs(time.count()); }

private:
    struct Call {
        std::chrono::milliseconds period;
        std::function<void()> run;
    };
    using Key = std::pair<std::chrono::milliseconds, int>;
    using Calls = std::map<Key, Call>;

    struct Pending final : PendingCall {
        std::weak_ptr<Calls> calls;
        int number = 0;
        ~Pending() override
        {
            if (const auto all = calls.lock())
                std::erase_if(*all, [this](const auto &entry) { return entry.first.second == number; });
        }
    };

    Timer add(std::chrono::milliseconds delay, std::chrono::milliseconds period, std::function<void()> call)
    {
        auto pending = std::make_unique<Pending>();
        pending->calls = m_calls;
        pending->number = ++m_last;
        m_calls->insert({{awakeTime + delay, m_last}, {period, std::move(call)}});
        return pending;
    }
    void moveTo(std::chrono::milliseconds moment)
    {
        present = present.addMSecs((moment - awakeTime).count());
        awakeTime = moment;
    }

    std::shared_ptr<Calls> m_calls = std::make_shared<Calls>();
    int m_last = 0;
};
