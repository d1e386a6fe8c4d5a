#include "ui/images/CoverPlate.h"
#include "ui/models/GameListModel.h"
#include "ui/models/SidebarModel.h"

#include "ui/ListHouse.h"

#include <QGuiApplication>
#include <benchmark/benchmark.h>

// What the lists of games cost the main thread; the number is the number of games. A frame is 16 ms.

using namespace Qt::StringLiterals;

namespace {
struct Shelves : ListHouse {
    explicit Shelves(qint64 count)
    {
        QList<GameEntry> games;
        for (int i = 0; i < count; ++i)
            games += game(u"The Long Adventure of Number %1"_s.arg((i * 7919LL) % count), i % 3 ? u"snes"_s : u"ps2"_s);
        store->add(games);
    }
};
}

static void makeList(benchmark::State &state)
{
    Shelves shelves(state.range(0));
    for (auto _ : state)
        GameListModel(*shelves.store, shelves.translator, Host::linux);
}
BENCHMARK(makeList)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

static void searchKeystroke(benchmark::State &state)
{
    Shelves shelves(state.range(0));
    GameListModel model(*shelves.store, shelves.translator, Host::linux);
    const QStringList typed{u"a"_s, u"ad"_s, u"adv"_s, u"adv 4"_s, u"adv 42"_s};
    int key = 0;
    for (auto _ : state)
        model.setSearch(typed[++key % typed.size()]);
}
BENCHMARK(searchKeystroke)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

static void sortByTitle(benchmark::State &state)
{
    Shelves shelves(state.range(0));
    GameListModel model(*shelves.store, shelves.translator, Host::linux);
    bool title = false;
    for (auto _ : state)
        model.setSort((title = !title) ? u"title"_s : u"added"_s);
}
BENCHMARK(sortByTitle)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

static void paintCover(benchmark::State &state)
{
    const CoverPlate plate{
        .title = u"The Long Adventure"_s, .label = u"PS2"_s, .consoleID = u"ps2"_s, .size = {192, 256}, .radius = 8};
    for (auto _ : state)
        benchmark::DoNotOptimize(painted(plate));
}
BENCHMARK(paintCover)->Unit(benchmark::kMillisecond);

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
