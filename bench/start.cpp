// Start to first frame against an empty window of the same renderer, both started in turn on the present display.
#include "library/LibraryFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <algorithm>
#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

static double secondsToFirstFrame(const QString &program, const QStringList &arguments,
                                  const QProcessEnvironment &environment)
{
    QProcess process;
    process.setProcessEnvironment(environment);
    QElapsedTimer timer;
    timer.start();
    process.start(program, arguments);
    QByteArray printed;
    while (!printed.contains("first frame") && process.waitForReadyRead(20000))
        printed += process.readAllStandardOutput();
    const double seconds = double(timer.nsecsElapsed()) / 1e9;
    process.kill();
    process.waitForFinished(5000);
    return printed.contains("first frame") ? seconds : -1;
}

static void writeLibrary(const QString &home, int games)
{
    static const QStringList consoles{u"gb"_s, u"snes"_s, u"ps2"_s, u"n64"_s, u"gc"_s, u"psp"_s};
    QList<GameEntry> list;
    for (int i = 0; i < games; ++i) {
        GameEntry game{.id = newGameID(),
                       .title = u"Game number %1"_s.arg(i),
                       .consoleID = consoles[i % consoles.size()],
                       .path = u"/games/%1/Game number %2.rom"_s.arg(i % 7).arg(i),
                       .addedAt = {double(700000000 + i)}};
        if (i % 10 == 0) {
            game.playSeconds = i;
            game.lastPlayed = ReferenceDate{double(790000000 + i)};
        }
        list += game;
    }
    QDir().mkpath(home + u"/.local/share/VelkoEmu"_s);
    QFile file(home + u"/.local/share/VelkoEmu/library.json"_s);
    if (file.open(QFile::WriteOnly)) file.write(encodeLibrary(list));
}

static double middle(QList<double> values)
{
    std::ranges::sort(values);
    return values[values.size() / 2];
}

static void startWithGames(benchmark::State &state)
{
    const QTemporaryDir home;
    writeLibrary(home.path(), int(state.range(0)));
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"HOME"_s, home.path());
    environment.insert(u"XDG_RUNTIME_DIR"_s, home.path());
    environment.insert(u"QT_QUICK_BACKEND"_s, u"software"_s);
    environment.insert(u"VELKO_FIRST_FRAME"_s, u"1"_s); // velko prints a line then
    const QString folder = QCoreApplication::applicationDirPath();
    QList<double> ours;
    QList<double> empty;
    for (auto _ : state) {
        empty += secondsToFirstFrame(folder + u"/bench_empty_window"_s, {}, environment);
        ours += secondsToFirstFrame(folder + u"/velko"_s, {}, environment);
        if (ours.last() < 0 || empty.last() < 0) return state.SkipWithError("no first frame: is there a display?");
    }
    state.counters["seconds"] = middle(ours);
    state.counters["empty"] = middle(empty);
    state.counters["ratio"] = middle(ours) / middle(empty);
}
BENCHMARK(startWithGames)->Arg(10000)->Arg(50000)->Iterations(9)->Unit(benchmark::kMillisecond);

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
