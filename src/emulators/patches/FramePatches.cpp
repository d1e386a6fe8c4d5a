#include "emulators/patches/FramePatches.h"

#include "emulators/finding/InstalledEmulators.h"
#include "platform/Tasks.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

using Phase = FramePatchState::Phase;

static constexpr qint64 largestList = 64 * 1024 * 1024;
static constexpr qint64 largestArchive = 256 * 1024 * 1024;
static constexpr auto launchWaits = 8s;
static const QString repository = u"/illusion0001/PS4-PS5-Game-Patch"_s;

static QString emulatorOf(const QString &consoleID)
{
    return consoleID == "ps3"_L1 ? u"rpcs3"_s : u"shadps4"_s;
}

static QString consoleOf(const FramePatchGame &game)
{
    return game.emulatorID == "rpcs3"_L1 ? u"ps3"_s : u"ps4"_s;
}

static PatchListState listState(const FramePatchGame &game, const Places &places, const QDateTime &now)
{
    return game.emulatorID == "rpcs3"_L1 ? ps3ListState(game.folders, places, now) : ps4ListState(places, now);
}

FramePatches::FramePatches(const Places &places, const Endpoints &endpoints, const InstalledEmulators &emulators,
                           Http &http, Clock &clock, Tasks &tasks, QObject *parent)
    : QObject(parent), m_places(places), m_endpoints(endpoints), m_emulators(emulators), m_http(http), m_clock(clock),
      m_tasks(tasks)
{ }

FramePatchState FramePatches::state(const QString &gameID) const
{
    return m_states.value(gameID);
}

EmulatorFolders FramePatches::foldersFor(const QString &consoleID) const
{
    InstalledEmulator usual;
    usual.emulatorID = emulatorOf(consoleID);
    usual.path = u"/usr/bin/"_s + usual.emulatorID;
    return emulatorFolders(m_emulators.forConsole(consoleID).value_or(usual), m_places);
}

void FramePatches::setState(const QString &gameID, const FramePatchState &state)
{
    if (m_states.value(gameID) == state) return;
    m_states[gameID] = state;
    emit changed(gameID);
}

void FramePatches::look(const QString &gameID, const QString &consoleID, const QString &path)
{
    if (!hasPatches(consoleID)) return;
    const int token = ++m_token;
    m_looks[gameID] = {{emulatorOf(consoleID), path, foldersFor(consoleID)}, token};
    setState(gameID, {Phase::searching, -1, {}, {}});
    search(gameID, token, true, false);
}

void FramePatches::cancel(const QString &gameID)
{
    const auto look = m_looks.find(gameID);
    if (look == m_looks.end()) return;
    const QString consoleID = consoleOf(look->game);
    m_looks.erase(look);
    const bool others =
        std::ranges::any_of(m_looks, [&consoleID](const Look &each) { return consoleOf(each.game) == consoleID; });
    const auto download = m_downloads.value(consoleID);
    if (!others && download && !download->launchWaits) m_downloads.remove(consoleID);
    setState(gameID, {});
}

void FramePatches::cancelDownload(const QString &gameID)
{
    if (state(gameID).phase != Phase::downloading) return;
    const QString consoleID = consoleOf(m_looks.value(gameID).game);
    for (Look &look : m_looks) {
        if (consoleOf(look.game) == consoleID) look.game.listCancelled = true;
    }
    m_cancelled += consoleID;
    ended(consoleID, false);
}

/// What a search in the background finds.
struct Found {
    PatchListState list;
    FramePatchSearch patch;
};

void FramePatches::search(const QString &gameID, int token, bool mayFetch, bool fetchFailed)
{
    const FramePatchGame game = m_looks.value(gameID).game;
    m_tasks.run(
        this,
        [game, mayFetch, places = m_places, now = m_clock.now()] {
            Found found{listState(game, places, now), {}};
            if (found.list.present && (found.list.fresh || !mayFetch)) found.patch = findFramePatch(game, places);
            return found;
        },
        [this, gameID, token, game, mayFetch, fetchFailed](const Found &found) {
            if (m_looks.value(gameID).token != token) return;
            if (mayFetch && !found.list.fresh) {
                setState(gameID, {Phase::downloading, -1, {}, {}});
                return fetch(consoleOf(game), [this, gameID, token](bool good) {
                    if (m_looks.value(gameID).token == token) search(gameID, token, false, !good);
                });
            }
            m_looks.remove(gameID);
            if (!found.patch.name.isEmpty()) return setState(gameID, {Phase::available, -1, found.patch.name, {}});
            if (fetchFailed && !found.list.present)
                return setState(gameID, {Phase::failed, -1, {}, patchListMissing(game)});
            setState(gameID, {Phase::none, -1, {}, found.patch.why});
        });
}

void FramePatches::prepare(const QString &consoleID, std::function<void(bool)> ready)
{
    if (!hasPatches(consoleID)) return ready(false);
    const FramePatchGame any{emulatorOf(consoleID), {}, foldersFor(consoleID)};
    if (listIsThere(any, m_places)) return ready(false);
    if (m_cancelled.remove(consoleID)) return ready(true);
    // Whichever comes first.
    struct Wait {
        std::function<void(bool)> ready;
        Timer limit;
    };
    const auto wait = std::make_shared<Wait>(Wait{std::move(ready), nullptr});
    const auto goOn = [this, wait, consoleID] {
        const Timer over = std::move(wait->limit); // holds what holds it
        if (const auto call = std::exchange(wait->ready, nullptr)) call(m_cancelled.remove(consoleID));
    };
    wait->limit = m_clock.after(launchWaits, goOn);
    fetch(consoleID, [goOn](bool) { goOn(); });
    if (const auto download = m_downloads.value(consoleID)) download->launchWaits = true;
}

void FramePatches::fetch(const QString &consoleID, std::function<void(bool)> done)
{
    m_cancelled.remove(consoleID);
    auto &download = m_downloads[consoleID];
    if (!download) download = std::make_shared<Download>();
    download->waiting += std::move(done);
    if (std::exchange(download->underWay, true)) return;
    if (consoleID == "ps4"_L1) return fetchPs4();
    m_tasks.run(
        this, [folders = foldersFor(consoleID)] { return ps3ListHash(folders); },
        [this](const QByteArray &hash) { fetchPs3(hash); });
}

void FramePatches::ended(const QString &consoleID, bool good)
{
    const auto download = m_downloads.take(consoleID);
    if (!download) return;
    for (const auto &done : download->waiting)
        done(good);
}

void FramePatches::showProgress(const QString &consoleID, qint64 received, qint64 total)
{
    const double progress = total > 0 ? double(received) / double(total) : -1;
    for (auto look = m_looks.keyValueBegin(); look != m_looks.keyValueEnd(); ++look) {
        const QString gameID = look->first;
        if (consoleOf(look->second.game) == consoleID && state(gameID).phase == Phase::downloading)
            setState(gameID, {Phase::downloading, progress, {}, {}});
    }
}

void FramePatches::fetchPs3(const QByteArray &presentHash)
{
    const auto download = m_downloads.value(u"ps3"_s);
    if (!download) return; // cancelled meanwhile
    QString query = u"patch&api=v1&v=1.2"_s;
    if (!presentHash.isEmpty()) query += u"&sha256="_s + QString::fromLatin1(presentHash);
    const HttpRequest request{.address = addressAt(m_endpoints.rpcs3, u"/compatibility"_s, query),
                              .largest = largestList};
    download->transfer = m_http.send(
        request,
        [this](const Result<HttpAnswer> &answer) {
            if (!answer || !answer.value().ok()) return ended(u"ps3"_s, false);
            m_tasks.run(
                this,
                [json = answer.value().body, folders = foldersFor(u"ps3"_s), places = m_places, now = m_clock.now()] {
                    return takePs3Answer(json, folders, places, now);
                },
                [this](bool good) { ended(u"ps3"_s, good); });
        },
        [this](qint64 received, qint64 total) { showProgress(u"ps3"_s, received, total); });
}

void FramePatches::fetchPs4()
{
    const auto download = m_downloads.value(u"ps4"_s);
    const HttpRequest request{.address = addressAt(m_endpoints.githubApi, u"/repos"_s + repository)};
    download->transfer = m_http.send(request, [this](const Result<HttpAnswer> &answer) {
        QString branch;
        if (answer && answer.value().ok())
            branch = QJsonDocument::fromJson(answer.value().body)[u"default_branch"_s].toString();
        if (branch.isEmpty()) return ended(u"ps4"_s, false);
        fetchPs4Archive(branch);
    });
}

void FramePatches::fetchPs4Archive(const QString &branch)
{
    const auto download = m_downloads.value(u"ps4"_s);
    if (!download) return;
    const QString file = m_places.cache + u"/VelkoEmu/ps4-patches.zip"_s;
    QDir().mkpath(m_places.cache + u"/VelkoEmu"_s);
    const HttpRequest request{.address =
                                  addressAt(m_endpoints.githubArchive, repository + u"/zip/refs/heads/"_s + branch),
                              .file = file,
                              .largest = largestArchive,
                              .longest = 10min};
    download->transfer = m_http.send(
        request,
        [this, file](const Result<HttpAnswer> &answer) {
            if (!answer || !answer.value().ok()) return ended(u"ps4"_s, false);
            m_tasks.run(
                this,
                [file, places = m_places, now = m_clock.now()] {
                    const bool good = takePs4Archive(file, places, now);
                    QFile::remove(file);
                    return good;
                },
                [this](bool good) { ended(u"ps4"_s, good); });
        },
        [this](qint64 received, qint64 total) { showProgress(u"ps4"_s, received, total); });
}
