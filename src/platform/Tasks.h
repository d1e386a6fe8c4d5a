#pragma once

#include <QPointer>
#include <functional>
#include <memory>
#include <optional>
#include <type_traits>

/// Runs slow work in the background and brings its result back to the main thread.
class Tasks {
public:
    virtual ~Tasks() = default;

    /// Main thread. `work` runs in the background on values it was given; `done` gets its result on the main thread,
    /// unless `receiver` is gone by then. Whoever may have moved on meanwhile compares a token of its own in `done`.
    template <class Work, class Done>
    void run(QObject *receiver, Work work, Done done)
    {
        using Value = std::invoke_result_t<Work>;
        QPointer<QObject> alive(receiver);
        if constexpr (std::is_void_v<Value>) {
            start(std::move(work), [alive, done = std::move(done)] {
                if (alive) done();
            });
        } else {
            auto value = std::make_shared<std::optional<Value>>();
            start([value, work = std::move(work)] { value->emplace(work()); },
                  [alive, value, done = std::move(done)] {
                      if (alive) done(std::move(**value));
                  });
        }
    }

    /// From any thread: `call` runs on the main thread. What it touches must be guarded by the caller (a QPointer
    /// made on the main thread, a token), since it may come after its owner has gone.
    virtual void post(std::function<void()> call) = 0;

protected:
    virtual void start(std::function<void()> work, std::function<void()> done) = 0;
};
