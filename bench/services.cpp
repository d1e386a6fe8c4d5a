#include "platform/WaitUntil.h"
#include "platform/XServer.h"
#include "platform/XTestWindow.h"
#include "platform/linux/LinuxServices.h"

#include <QProcess>
#include <benchmark/benchmark.h>

// What the services of a running game cost the main thread. "ofBudget" is the share of 5 ms that the user's button has
// until the game stands still. The display of 1080p needs an administrator.

using namespace Qt::StringLiterals;

namespace {
/// A game of as many processes as asked for, and its main one.
struct Game {
    QProcess process;
    explicit Game(int helpers)
    {
        process.start(u"/bin/sh"_s, {u"-c"_s, u"for i in $(seq %1); do sleep 600 & done; echo; wait"_s.arg(helpers)});
        waitUntil([this] { return process.canReadLine(); }, std::chrono::seconds(20));
    }
    ~Game()
    {
        const auto control = makeProcessControl();
        for (const qint64 each : control->tree(process.processId()))
            control->kill(each);
        process.waitForFinished();
    }
};

struct Shown {
    XServer server{XServer::Kind::twoOutputs};
    std::vector<std::unique_ptr<XTestWindow>> windows;
    std::unique_ptr<Windows> service = makeWindows(server.display());
    QList<qint64> pids{QCoreApplication::applicationPid()};
    explicit Shown(int count)
    {
        for (int i = 0; i < count; ++i)
            windows.push_back(
                std::make_unique<XTestWindow>(server.display(), XTestWindow::Look{.geometry = {0, 0, 1920, 1080}}));
        waitUntil([&] { return service->windowsOf(pids).size() >= count; }, std::chrono::seconds(20));
    }
};

void setShare(benchmark::State &state)
{
    state.counters["ofBudget"] = benchmark::Counter(double(state.iterations()) * 0.005,
                                                    benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}
}

static void freeze(benchmark::State &state)
{
    Game game(int(state.range(0)));
    const auto control = makeProcessControl();
    control->freeze(game.process.processId()); // starts the guard
    for (auto _ : state) {
        state.PauseTiming();
        control->thaw(game.process.processId());
        state.ResumeTiming();
        control->freeze(game.process.processId());
    }
    setShare(state);
}
BENCHMARK(freeze)->Arg(0)->Arg(8)->Iterations(200)->UseRealTime()->Unit(benchmark::kMillisecond);

static void firstFreezeWithItsGuard(benchmark::State &state)
{
    Game game(8);
    for (auto _ : state) {
        state.PauseTiming();
        auto control = makeProcessControl();
        state.ResumeTiming();
        control->freeze(game.process.processId());
        state.PauseTiming();
        control.reset();
        state.ResumeTiming();
    }
    setShare(state);
}
// Games are frozen after `prepareToFreeze`; this is what it spares.
BENCHMARK(firstFreezeWithItsGuard)->Iterations(50)->UseRealTime()->Unit(benchmark::kMillisecond);

static void listWindows(benchmark::State &state)
{
    const Shown shown(int(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(shown.service->windowsOf(shown.pids));
}
BENCHMARK(listWindows)->Arg(1)->Arg(30)->UseRealTime()->Unit(benchmark::kMillisecond);

static void capture1080p(benchmark::State &state)
{
    const Shown shown(1);
    const auto capture = makeScreenCapture(shown.server.display());
    shown.service->setFullScreen(shown.windows[0]->id(), true, 0);
    QImage picture;
    waitUntil([&] { return (picture = capture->window(shown.windows[0]->id())).size() == QSize(1920, 1080); });
    if (picture.size() != QSize(1920, 1080)) return state.SkipWithError("no window of 1080p");
    for (auto _ : state)
        benchmark::DoNotOptimize(capture->window(shown.windows[0]->id()));
}
BENCHMARK(capture1080p)->UseRealTime()->Unit(benchmark::kMillisecond);

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
