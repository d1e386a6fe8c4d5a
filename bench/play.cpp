// The real way from a controller to a real emulator, on a virtual display of its own: how soon the game stands still
// and the menu is drawn, and what Velko uses while a game runs and while nothing happens. Every "ofBudget" may be 1 at
// most.
#include "ManyGames.h"
#include "Usage.h"

#include "e2e/DemoGame.h"
#include "e2e/Library.h"
#include "e2e/Processes.h"
#include "e2e/Program.h"
#include "e2e/Waiting.h"

#include <QFile>
#include <QStandardPaths>
#include <algorithm>
#include <benchmark/benchmark.h>
#include <thread>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

static constexpr int games = 10000;
static constexpr auto watched = 20s;
static constexpr double stoppedBudget = 5, drawnBudget = 100; ///< milliseconds
static constexpr double cpuBudget = 0.001, wakeUpsBudget = 2, megabytesBudget = 120;

namespace {
/// Velko's window on a display of its own, with many games and a controller.
class Sofa {
public:
    Sofa()
    {
        if (!display.isReady() || !installDemoGame(display)) return;
        const QJsonArray more = QJsonDocument::fromJson(manyGames(games)).array();
        QJsonArray all = libraryOf(display).value_or(QJsonArray());
        for (const QJsonValue game : more)
            all += game;
        display.write(u".local/share/VelkoEmu/library.json"_s, QJsonDocument(all).toJson());
        auto environment = display.environment();
        environment.insert(u"VELKO_OVERLAY_TIMES"_s, u"1"_s);
        environment.insert(u"VELKO_FIRST_FRAME"_s, u"1"_s);
        environment.insert(u"QT_LOGGING_RULES"_s, u"qt.scenegraph.time.renderloop=true"_s); // a line for each frame
        velko.setProcessEnvironment(environment);
        velko.setWorkingDirectory(display.home());
        velko.start(QStringLiteral(VELKO_BUILD_DIR "/velko"), {u"--virtual-pad"_s, u"pad"_s});
        ready = waitFor(20s, [this] { return printed().contains("content frame"); });
        rest(2s); // covers, and what is installed
    }
    ~Sofa()
    {
        killTree(game);
        velko.kill();
        velko.waitForFinished();
    }

    bool startGame()
    {
        Program ask(display, {u"play"_s, demoGameTitle});
        const auto window = waitForDemoGame(display, 30s);
        game = window ? window->pid : 0;
        rest(8s); // until it was seen in its place three times
        return game > 0;
    }
    void press(const QByteArray &lines) const
    {
        QFile pipe(display.home() + u"/pad"_s);
        if (pipe.open(QFile::WriteOnly | QFile::Unbuffered)) pipe.write(lines);
    }
    /// The milliseconds that Velko told next after `what`.
    std::optional<double> told(const QByteArray &what)
    {
        const QByteArray begin = "overlay " + what + ' ';
        qsizetype place = -1, end = -1;
        waitFor(5s, [&] {
            place = printed().indexOf(begin, m_read);
            end = place < 0 ? -1 : m_printed.indexOf(" ms\n", place);
            return end >= 0;
        });
        if (end < 0) return {};
        m_read = end;
        return m_printed.mid(place + begin.size(), end - place - begin.size()).toDouble();
    }
    /// Velko and its helpers, without the game.
    QList<qint64> processes() const
    {
        QList<qint64> all{velko.processId()};
        for (const qint64 pid : descendants(velko.processId()))
            if (commandLine(pid).section(u' ', 0, 0).contains("velko-"_L1)) all += pid;
        return all;
    }
    qsizetype frames()
    {
        m_errors += velko.readAllStandardError();
        return m_errors.count("Frame rendered");
    }
    static void rest(std::chrono::milliseconds time)
    {
        waitFor(time, [] { return false; });
    }

    VirtualDisplay display; ///< with openbox: composing windows without a graphics card costs half a processor and more
    QProcess velko;
    qint64 game = 0;
    bool ready = false;

private:
    QByteArray &printed() { return m_printed += velko.readAllStandardOutput(); }

    QByteArray m_printed, m_errors;
    qsizetype m_read = 0;
};

const char *whatIsMissing()
{
    if (QStandardPaths::findExecutable(u"Xvfb"_s).isEmpty() || QStandardPaths::findExecutable(u"openbox"_s).isEmpty())
        return "There is no virtual display: install xvfb and openbox.";
    if (QStandardPaths::findExecutable(u"mgba-qt"_s, {u"/usr/games"_s, u"/usr/bin"_s}).isEmpty())
        return "There is no emulator to play in: install mgba-qt.";
    return nullptr;
}

double middle(QList<double> values)
{
    std::ranges::sort(values);
    return values[values.size() / 2];
}

/// Watches it from outside without running itself, for some time.
void watch(benchmark::State &state, Sofa &sofa)
{
    const QList<qint64> processes = sofa.processes();
    const Usage before = usageOf(processes);
    const qsizetype frames = sofa.frames();
    std::this_thread::sleep_for(watched);
    const Usage after = usageOf(processes);
    const double seconds = std::chrono::duration<double>(watched).count();
    const double cpu = (after.cpuSeconds - before.cpuSeconds) / seconds;
    const double wakeUps = double(after.wakeUps - before.wakeUps) / seconds;
    Sofa::rest(100ms); // what it has written arrives
    state.counters["cpuPercent"] = 100 * cpu;
    state.counters["cpuOfBudget"] = cpu / cpuBudget;
    state.counters["wakeUpsPerSecond"] = wakeUps;
    state.counters["wakeUpsOfBudget"] = wakeUps / wakeUpsBudget;
    state.counters["MB"] = megabytesOf(processes);
    state.counters["memoryOfBudget"] = megabytesOf(processes) / megabytesBudget;
    state.counters["frames"] = double(sofa.frames() - frames);
}
} // namespace

static void chordToMenu(benchmark::State &state)
{
    if (const char *missing = whatIsMissing()) return state.SkipWithError(missing);
    Sofa sofa;
    if (!sofa.ready || !sofa.startGame()) return state.SkipWithError("The game did not begin.");
    QList<double> stopped, drawn;
    for (auto _ : state) {
        sofa.press("hold View\npress Menu\nrelease View\n");
        const auto still = sofa.told("stopped");
        const auto shown = sofa.told("drawn");
        if (!still || !shown) return state.SkipWithError("The menu did not open.");
        stopped += *still;
        drawn += *shown;
        Sofa::rest(700ms);
        sofa.press("press A\n"); // goes on
        Sofa::rest(1500ms);
    }
    state.counters["stoppedMs"] = middle(stopped);
    state.counters["stoppedWorstMs"] = std::ranges::max(stopped);
    state.counters["stoppedOfBudget"] = middle(stopped) / stoppedBudget;
    state.counters["drawnMs"] = middle(drawn);
    state.counters["drawnFirstMs"] = drawn.first();
    state.counters["drawnWorstMs"] = std::ranges::max(drawn);
    state.counters["drawnOfBudget"] = middle(drawn) / drawnBudget;
}
BENCHMARK(chordToMenu)->Iterations(10)->Unit(benchmark::kMillisecond);

static void whileAGameRuns(benchmark::State &state)
{
    if (const char *missing = whatIsMissing()) return state.SkipWithError(missing);
    Sofa sofa;
    if (!sofa.ready || !sofa.startGame()) return state.SkipWithError("The game did not begin.");
    for (auto _ : state)
        watch(state, sofa);
}
BENCHMARK(whileAGameRuns)->Iterations(1)->Unit(benchmark::kMillisecond);

static void whileNothingHappens(benchmark::State &state)
{
    if (const char *missing = whatIsMissing()) return state.SkipWithError(missing);
    Sofa sofa;
    if (!sofa.ready) return state.SkipWithError("The window did not open.");
    sofa.press("press RB\npress Down\n"); // the list of all games
    Sofa::rest(5s);
    if (sofa.frames() == 0) return state.SkipWithError("No frame is told, so none can be counted.");
    for (auto _ : state)
        watch(state, sofa);
}
BENCHMARK(whileNothingHappens)->Iterations(1)->Unit(benchmark::kMillisecond);

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
