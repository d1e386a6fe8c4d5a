// Start to first frame against an empty window of the same renderer, both started in turn on the present display.
// "ratio": the first frame, which shows where things will stand; "gamesRatio": the first one with the games in it.
#include "ManyGames.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <algorithm>
#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

static constexpr double limit = 1.3; ///< for the first frame, as a ratio to the empty window's
static constexpr double manyGamesLimit = 0.6; ///< for the first frame with 50,000 games in it, in seconds

namespace {
/// A program that prints a line when it has drawn something.
class Start {
public:
    Start(const QString &program, const QProcessEnvironment &environment)
    {
        m_process.setProcessEnvironment(environment);
        m_timer.start();
        m_process.start(program, QStringList());
    }
    ~Start()
    {
        m_process.kill();
        m_process.waitForFinished(5000);
    }
    std::optional<double> secondsTo(const char *line)
    {
        while (!m_printed.contains(line) && m_process.waitForReadyRead(20000))
            m_printed += m_process.readAllStandardOutput();
        return m_printed.contains(line) ? std::optional(double(m_timer.nsecsElapsed()) / 1e9) : std::nullopt;
    }

private:
    QProcess m_process;
    QElapsedTimer m_timer;
    QByteArray m_printed;
};
} // namespace

static void writeLibrary(const QString &home, int games)
{
    QDir().mkpath(home + u"/.local/share/VelkoEmu"_s);
    QFile file(home + u"/.local/share/VelkoEmu/library.json"_s);
    if (file.open(QFile::WriteOnly)) file.write(manyGames(games));
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
    environment.insert(u"VELKO_FIRST_FRAME"_s, u"1"_s); // velko prints a line for both frames then
    const QString folder = QCoreApplication::applicationDirPath();
    QList<double> first, games, empty;
    for (auto _ : state) {
        const auto peer = Start(folder + u"/bench_empty_window"_s, environment).secondsTo("first frame");
        Start velko(folder + u"/velko"_s, environment);
        const auto drawn = velko.secondsTo("first frame");
        const auto filled = velko.secondsTo("content frame");
        if (!peer || !drawn || !filled) return state.SkipWithError("No first frame. Is there a display?");
        empty += *peer;
        first += *drawn;
        games += *filled;
    }
    state.counters["empty"] = middle(empty);
    state.counters["first"] = middle(first);
    state.counters["games"] = middle(games);
    state.counters["ratio"] = middle(first) / middle(empty);
    state.counters["ofBudget"] =
        state.range(0) < 50000 ? middle(first) / middle(empty) / limit : middle(games) / manyGamesLimit;
    state.counters["gamesRatio"] = middle(games) / middle(empty);
}
BENCHMARK(startWithGames)->Arg(10000)->Arg(50000)->Iterations(15)->Unit(benchmark::kMillisecond);

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
