#include "platform/linux/LinuxServices.h"

#include <QObject>
#include <QThread>
#include <QThreadPool>

namespace {

class LinuxTasks final : public Tasks {
public:
    // Work that waits for another program or a disk must not hold up the rest, even on a machine with one core.
    LinuxTasks() { m_pool.setMaxThreadCount(qMax(4, QThread::idealThreadCount())); }

    ~LinuxTasks() override
    {
        m_pool.clear();
        m_pool.waitForDone();
    }

    void post(std::function<void()> call) override
    {
        QMetaObject::invokeMethod(&m_main, std::move(call), Qt::QueuedConnection);
    }

private:
    void start(std::function<void()> work, std::function<void()> done) override
    {
        m_pool.start([this, work = std::move(work), done = std::move(done)]() mutable {
            work();
            // A queued call may go on this thread, after it was made. What `done` holds must go on the main thread.
            const auto call = std::make_shared<std::function<void()>>(std::move(done));
            post([call] { std::exchange(*call, nullptr)(); });
        });
    }

    QObject m_main; // lives on the main thread; calls that have not arrived are dropped with it
    QThreadPool m_pool;
};

}

std::unique_ptr<Tasks> makeTasks()
{
    return std::make_unique<LinuxTasks>();
}
