#include "library/LibraryDisk.h"
#include "library/LibraryFile.h"
#include "library/RomScanner.h"
#include "platform/Preferences.h"

#include "fakes/TemporaryHome.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <simdjson.h>
#include <spawn.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

// Each measurement stands beside a peer, taken in turn with it, and reports "ratio": ours divided by the peer.
// What the ratio may be at most is in the benchmark's name.

using namespace Qt::StringLiterals;

/// A large collection as it looks after some years: one game in three was played, one in five has settings.
static QList<GameEntry> collection(int count)
{
    const QStringList consoles{u"snes"_s, u"gba"_s, u"ps1"_s, u"ps2"_s, u"genesis"_s, u"n64"_s, u"nds"_s};
    QList<GameEntry> games;
    for (int i = 0; i < count; ++i) {
        GameEntry &game = games.emplaceBack();
        game.id = newGameID();
        game.title = u"The Long Adventure of Number %1"_s.arg(i);
        game.consoleID = consoles[i % consoles.size()];
        game.path = u"/home/ann/Games/%1/%2 (Europe) (En,Fr,De) [!].zip"_s.arg(game.consoleID, game.title);
        game.addedAt.seconds = 790000000.25 + i;
        game.sourceFolder = u"/home/ann/Games"_s;
        if (i % 3 == 0) {
            game.lastPlayed = ReferenceDate{793000000.5 + i};
            game.playSeconds = 20.0 * (i % 900) + 7.123;
            game.sessionCount = i % 30;
            game.lastSessionSeconds = 1234.567;
            game.daily.emplace();
            for (int day = 0; day < 5; ++day)
                game.daily->insert(u"2026-%1-%2"_s.arg(i % 12 + 1, 2, 10, QLatin1Char('0')).arg(day + 10),
                                   20.0 * day + 0.042);
        }
        if (i % 5 == 0) game.settings = GameSettings{.resolutionScale = i % 4 + 1, .quality = QualityPreset::maximum};
        if (i % 10 == 0) game.favorite = true;
        if (i % 7 == 0) game.status = GameStatus::backlog;
    }
    return games;
}

static double seconds(const auto &work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return double(timer.nsecsElapsed()) / 1e9;
}

/// Runs ours and the peer in turn and reports the medians, which a busy machine disturbs least.
static void compare(benchmark::State &state, const auto &ours, const auto &peer)
{
    std::vector<double> mine, theirs;
    for ([[maybe_unused]] auto step : state) {
        theirs.push_back(peer());
        mine.push_back(ours());
        state.SetIterationTime(mine.back());
    }
    const auto median = [](std::vector<double> &times) {
        std::nth_element(times.begin(), times.begin() + qsizetype(times.size() / 2), times.end());
        return times[times.size() / 2];
    };
    state.counters["ratio"] = median(mine) / median(theirs);
    state.counters["ours_ms"] = median(mine) * 1000;
    state.counters["peer_ms"] = median(theirs) * 1000;
}

static double processorTime()
{
    timespec time;
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return double(time.tv_sec) + double(time.tv_nsec) / 1e9;
}

static const char *once = "--once"; ///< then "velko" or "simdjson", and a library file

/// What this program does when it is called with `once`: reads the library and prints the processor time. At a start,
/// memory is new to the program and every page of it costs, so each measurement has a process of its own. Nothing is
/// destroyed: a program that has read its library keeps it.
static int readOnce(const QByteArray &reader, const QString &name)
{
    QFile file(name);
    if (!file.open(QFile::ReadOnly)) return 1;
    QByteArray json(file.size() + libraryPadding, Qt::Uninitialized);
    json.truncate(file.read(json.data(), file.size()));

    const double start = processorTime();
    bool done = false;
    if (reader == "velko") {
        const auto *games = new std::optional<QList<GameEntry>>(decodeLibrary(std::move(json)));
        done = games->has_value() && (*games)->size() == 100000;
    } else {
        auto *parser = new simdjson::dom::parser;
        done = parser->parse(json.constData(), size_t(json.size()), false).error() == simdjson::SUCCESS;
    }
    std::printf("%.6f\n", processorTime() - start);
    return done ? 0 : 1;
}

static void read(benchmark::State &state)
{
    const TemporaryHome home;
    const QByteArray json = encodeLibrary(collection(100000));
    const QString file = home.write(u"library.json"_s, json);
    state.counters["MB"] = double(json.size()) / 1e6;
    const auto timeOf = [&](const QString &reader) {
        QProcess process;
        process.start(u"/proc/self/exe"_s, {QLatin1String(once), reader, file});
        if (!process.waitForFinished() || process.exitCode() != 0) state.SkipWithError("not read");
        return process.readAllStandardOutput().trimmed().toDouble();
    };
    compare(
        state, [&] { return timeOf(u"velko"_s); }, [&] { return timeOf(u"simdjson"_s); });
}

static void writePlainly(const QByteArray &name, const QByteArray &content)
{
    const QByteArray temporary = name + ".new";
    const int file = ::open(temporary.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    if (::write(file, content.constData(), size_t(content.size())) != content.size() || ::fsync(file) != 0)
        qFatal("cannot write");
    ::close(file);
    ::rename(temporary.constData(), name.constData());
    const int folder = ::open(name.left(name.lastIndexOf('/')).constData(), O_RDONLY | O_DIRECTORY);
    ::fsync(folder);
    ::close(folder);
}

static void save(benchmark::State &state)
{
    const TemporaryHome home;
    const Preferences preferences(home.places().preferencesFile());
    const QList<GameEntry> games = collection(100000);
    const QByteArray json = encodeLibrary(games);
    LibraryDisk disk(home.places(), preferences);
    const QDateTime now = QDateTime::currentDateTime();
    disk.read(now);
    const QByteArray plain = home.path().toUtf8() + "/plain.json";
    compare(
        state,
        [&] {
            return seconds([&] {
                if (!disk.write(games, now)) state.SkipWithError("not saved");
            });
        },
        [&] { return seconds([&] { writePlainly(plain, json); }); });
}

static void findWithStat(const QByteArray &folder)
{
    pid_t pid = 0;
    const char *arguments[] = {"find", folder.constData(), "-size", "+999G", nullptr};
    if (::posix_spawnp(&pid, "find", nullptr, nullptr, const_cast<char **>(arguments), environ) != 0) qFatal("no find");
    ::waitpid(pid, nullptr, 0);
}

static void scan(benchmark::State &state)
{
    const TemporaryHome home;
    const QStringList folders{u"Nintendo DS"_s, u"PlayStation 2/Action"_s, u"Sega - Mega Drive"_s, u"SNES"_s};
    // With the folders themselves just below the number of entries that a scan looks at.
    for (int i = 0; i < 19900; ++i) {
        const char *extensions[] = {"zip", "iso", "bin", "sfc", "txt"};
        home.write(u"Roms/%1/%2/Game Number %3 (Europe) [!].%4"_s.arg(folders[i % 4])
                       .arg(i % 20)
                       .arg(i)
                       .arg(QLatin1String(extensions[i % 5])));
    }
    const QString root = home.path() + u"/Roms"_s;
    qsizetype hits = 0;
    compare(
        state,
        [&] {
            return seconds([&] {
                const ScanFindings findings = RomScanner(Host::linux).scan({root}, [](int) { return true; });
                hits = findings.hits.size();
                if (hits < 5000 || !findings.cutShort.isEmpty()) state.SkipWithError("not all was scanned");
            });
        },
        [&] { return seconds([&] { findWithStat(root.toUtf8()); }); });
    state.counters["hits"] = double(hits);
}

BENCHMARK(read)
    ->Name("library/read 100000 games/at most 3")
    ->UseManualTime()
    ->Iterations(15)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(save)
    ->Name("library/save 100000 games/at most 3")
    ->UseManualTime()
    ->Iterations(9)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(scan)
    ->Name("library/scan 20000 files/at most 2")
    ->UseManualTime()
    ->Iterations(15)
    ->Unit(benchmark::kMillisecond);

int main(int argc, char **argv)
{
    if (argc == 4 && qstrcmp(argv[1], once) == 0) return readOnce(argv[2], QString::fromLocal8Bit(argv[3]));
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
