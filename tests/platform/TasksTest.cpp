#include "platform/Tasks.h"
#include "platform/WaitUntil.h"
#include "platform/linux/LinuxServices.h"

#include <QSemaphore>
#include <QThread>
#include <gtest/gtest.h>

TEST(LinuxTasks, workElsewhereAndAnswerOnTheMainThread)
{
    const auto tasks = makeTasks();
    QObject receiver;
    QThread *worker = nullptr, *answerer = nullptr;
    tasks->run(
        &receiver, [] { return QThread::currentThread(); },
        [&](QThread *thread) {
            worker = thread;
            answerer = QThread::currentThread();
        });
    EXPECT_EQ(worker, nullptr);
    ASSERT_TRUE(waitUntil([&] { return worker; }));
    EXPECT_NE(worker, answerer);
    EXPECT_EQ(answerer, QThread::currentThread());
}

TEST(LinuxTasks, doNotWaitForThreeThatHang)
{
    QSemaphore gate;
    QObject receiver;
    int finished = 0;
    bool quick = false;
    const auto tasks = makeTasks();
    for (int i = 0; i < 3; ++i)
        tasks->run(
            &receiver, [&gate] { gate.acquire(); }, [&finished] { ++finished; });
    tasks->run(
        &receiver, [] { return 1; }, [&quick](int) { quick = true; });
    EXPECT_TRUE(waitUntil([&] { return quick; }));
    EXPECT_EQ(finished, 0);
    gate.release(3);
    EXPECT_TRUE(waitUntil([&] { return finished == 3; }));
}

TEST(LinuxTasks, dropTheResultOfAReceiverThatWent)
{
    const auto tasks = makeTasks();
    auto receiver = std::make_unique<QObject>();
    QSemaphore gate;
    bool late = false, afterwards = false;
    tasks->run(
        receiver.get(), [&] { gate.acquire(); }, [&] { late = true; });
    receiver.reset();
    gate.release();
    QObject other;
    tasks->run(
        &other, [] {}, [&] { afterwards = true; });
    EXPECT_TRUE(waitUntil([&] { return afterwards; }));
    EXPECT_FALSE(late);
}

TEST(LinuxTasks, finishRunningWorkAndAnswerNobodyWhenTheyEnd)
{
    QObject receiver;
    QSemaphore begun;
    std::atomic<int> worked = 0;
    int answered = 0;
    auto tasks = makeTasks();
    tasks->run(
        &receiver,
        [&] {
            begun.release();
            ++worked;
        },
        [&] { ++answered; });
    tasks->post([&] { ++answered; });
    begun.acquire();
    tasks.reset();
    EXPECT_EQ(worked, 1);
    waitUntil([&] { return answered > 0; }, std::chrono::milliseconds(20));
    EXPECT_EQ(answered, 0);
}

TEST(LinuxTasks, letNothingOfTheAnswerGoInTheBackground)
{
    const auto tasks = makeTasks();
    QObject receiver;
    int answered = 0, elsewhere = 0;
    constexpr int times = 200;
    for (int i = 0; i < times; ++i) {
        const std::shared_ptr<int> held(new int, [&elsewhere, main = QThread::currentThread()](int *number) {
            elsewhere += QThread::currentThread() != main;
            delete number;
        });
        tasks->run(
            &receiver, [] {}, [held, &answered] { ++answered; });
    }
    ASSERT_TRUE(waitUntil([&] { return answered == times; }));
    EXPECT_EQ(elsewhere, 0);
}
