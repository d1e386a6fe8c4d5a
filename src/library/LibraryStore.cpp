#include "library/LibraryStore.h"

#include "library/EarlyEnd.h"
#include "library/MovedFile.h"
#include "library/RomScanner.h"
#include "library/ScanReport.h"
#include "platform/FileIndex.h"
#include "platform/Preferences.h"
#include "platform/ProcessControl.h"
#include "platform/Tasks.h"

#include <QDir>
#include <QFileInfo>
#include <QPointer>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

static constexpr auto cloudPatience = 30min;

LibraryStore::LibraryStore(const Places &places, Preferences &preferences, Clock &clock, Tasks &tasks, FileIndex &index,
                           Workspace &workspace, ProcessControl &processes, GameLauncher &launcher, QObject *parent)
    : QObject(parent), m_places(places), m_preferences(preferences), m_clock(clock), m_tasks(tasks), m_index(index),
      m_processes(processes), m_launcher(launcher), m_disk(places, preferences),
      m_sessions(clock, [this](const auto &stretches, const auto &moment) { countPlayTime(stretches, moment); }),
      m_games(m_disk.read(clock.now())), m_romFolders(preferences.get(preference::romFolders))
{
    connect(&workspace, &Workspace::ended, this, &LibraryStore::programEnded);
}

/// The games run on, but their time can't be counted any longer.
LibraryStore::~LibraryStore()
{
    blockSignals(true);
    for (const SessionClock::Ended &session : m_sessions.endAll())
        countSession(session);
    if (m_scanGoesOn) *m_scanGoesOn = false;
}

void LibraryStore::fillIndexes() const
{
    if (!m_indexes.isEmpty()) return;
    m_indexes.reserve(m_games.size());
    for (int i = 0; i < count(); ++i)
        m_indexes.insert(m_games[i].id, i);
}

std::optional<int> LibraryStore::indexOf(const QString &id) const
{
    fillIndexes();
    const auto index = m_indexes.constFind(id);
    return index == m_indexes.constEnd() ? std::nullopt : std::optional(*index);
}

const GameEntry *LibraryStore::game(const QString &id) const
{
    const auto index = indexOf(id);
    return index ? &m_games[*index] : nullptr;
}

// Changes

void LibraryStore::save()
{
    const Result<void> saved = m_disk.write(m_games, m_clock.now());
    if (!saved && !m_saveFailed) setLastError(saved.failure());
    m_saveFailed = !saved;
}

template <class Edit>
void LibraryStore::edit(const QString &id, Edit edit)
{
    const auto index = indexOf(id);
    if (!index) return;
    GameEntry changed = m_games[*index];
    edit(changed);
    if (changed == m_games[*index]) return;
    m_games[*index] = std::move(changed);
    save();
    emit gameChanged(*index);
    emit gamesChanged();
}

void LibraryStore::setTitle(const QString &id, const QString &title)
{
    const QString trimmed = title.trimmed();
    if (!trimmed.isEmpty()) edit(id, [&](GameEntry &game) { game.title = trimmed; });
}

void LibraryStore::setFavorite(const QString &id, bool favorite)
{
    edit(id, [&](GameEntry &game) {
        if (game.favorite.value_or(false) != favorite) game.favorite = favorite;
    });
}

void LibraryStore::setStatus(const QString &id, std::optional<GameStatus> status)
{
    edit(id, [&](GameEntry &game) { game.status = status; });
}

void LibraryStore::setSettings(const QString &id, const GameSettings &settings)
{
    edit(id, [&](GameEntry &game) { game.settings = settings; });
}

/// Answers how many were new.
int LibraryStore::append(const QList<GameEntry> &games)
{
    QSet<QString> paths;
    paths.reserve(m_games.size() + games.size());
    for (const GameEntry &game : std::as_const(m_games))
        paths.insert(QDir::cleanPath(game.path));

    const int before = count();
    fillIndexes();
    for (GameEntry game : games) {
        game.path = QDir::cleanPath(game.path);
        if (paths.contains(game.path)) continue;
        paths.insert(game.path);
        game.id = gameID(game.id).value_or(QString());
        if (game.id.isEmpty() || m_indexes.contains(game.id)) game.id = newGameID();
        m_indexes.insert(game.id, count());
        m_games += std::move(game);
    }
    return count() - before;
}

void LibraryStore::add(const QList<GameEntry> &games)
{
    const int first = count();
    const int added = append(games);
    if (added == 0) return;
    m_justAdded = m_games.last().id;
    save();
    emit gamesAdded(first, added);
    emit gamesChanged();
    emit justAddedChanged();
}

void LibraryStore::remove(const QString &id)
{
    const auto index = indexOf(id);
    if (!index) return;
    m_games.removeAt(*index);
    m_indexes.clear();
    save();
    emit gameRemoved(*index);
    emit gamesChanged();
    if (m_missingFile == id) dismissMissingFile();
}

QString LibraryStore::newestBackup() const
{
    return m_disk.newestBackup();
}

void LibraryStore::restoreBackup()
{
    std::optional<QList<GameEntry>> copy = m_disk.readBackup();
    if (!copy) {
        setLastError(Message{u"There is no earlier copy of your library that can be read."_s, {}});
        return;
    }
    const QList<GameEntry> addedSince = std::exchange(m_games, *std::move(copy));
    m_indexes.clear();
    append(addedSince);
    save();
    m_disk.forgetSetAside();
    emit libraryReplaced();
    emit gamesChanged();
    emit setAsideChanged();
}

void LibraryStore::setLastError(std::optional<Message> error)
{
    if (m_lastError == error) return;
    m_lastError = std::move(error);
    emit lastErrorChanged();
}

void LibraryStore::dismissError()
{
    setLastError({});
}

void LibraryStore::setMissingFile(const QString &id)
{
    if (m_missingFile == id) return;
    m_missingFile = id;
    emit missingFileChanged();
}

void LibraryStore::dismissMissingFile()
{
    setMissingFile({});
}

// Scanning

void LibraryStore::addFolder(const QString &folder)
{
    addFolders({folder});
}

void LibraryStore::addFolders(const QStringList &folders)
{
    QStringList added;
    for (const QString &folder : folders)
        added += QDir::cleanPath(QDir(folder).absolutePath());
    QStringList all = m_romFolders + added;
    all.removeDuplicates();
    if (all != m_romFolders) {
        m_romFolders = all;
        m_preferences.set(preference::romFolders, m_romFolders);
        emit romFoldersChanged();
    }
    addFiles(added);
}

void LibraryStore::addFiles(const QStringList &paths)
{
    if (m_scanning)
        m_pathsToScan += paths;
    else
        startScan(paths);
}

void LibraryStore::removeFolder(const QString &folder)
{
    if (!m_romFolders.removeOne(folder)) return;
    m_preferences.set(preference::romFolders, m_romFolders);
    emit romFoldersChanged();
}

void LibraryStore::scan(const QStringList &folders)
{
    if (!m_scanning) startScan(folders.isEmpty() ? m_romFolders : folders);
}

void LibraryStore::startScan(const QStringList &paths)
{
    m_scanning = true;
    m_scannedFiles = 0;
    m_scanGoesOn = std::make_shared<std::atomic<bool>>(true);
    const RomScanner::GoOn goOn = [this, self = QPointer(this), &tasks = m_tasks, goesOn = m_scanGoesOn](int examined) {
        tasks.post([this, self, goesOn, examined] {
            if (!self || m_scanGoesOn != goesOn) return;
            m_scannedFiles = examined;
            emit scanningChanged();
        });
        return goesOn->load();
    };
    m_tasks.run(
        this, [host = m_places.host, paths, goOn] { return RomScanner(host).scan(paths, goOn); },
        [this](const ScanFindings &findings) { finishScan(findings); });
    emit scanningChanged();
}

void LibraryStore::finishScan(const ScanFindings &findings)
{
    QList<GameEntry> found;
    found.reserve(findings.hits.size());
    const ReferenceDate now = ReferenceDate::from(m_clock.now());
    for (const Hit &hit : findings.hits) {
        GameEntry &game = found.emplaceBack();
        game.title = hit.title;
        game.consoleID = hit.consoleID;
        game.path = hit.url;
        game.addedAt = now;
        if (!hit.root.isEmpty()) game.sourceFolder = hit.root;
    }
    const int before = count();
    add(found);
    m_scanning = false;
    m_scanGoesOn.reset();
    m_scanReport = ::scanReport(findings, count() - before);
    m_scanTrouble = findings.hasTrouble();
    emit scanningChanged();
    emit scanReportChanged();
    if (!m_pathsToScan.isEmpty()) startScan(std::exchange(m_pathsToScan, {}));
}

void LibraryStore::cancelScan()
{
    m_pathsToScan.clear();
    if (m_scanGoesOn) *m_scanGoesOn = false;
}

// Launching

void LibraryStore::launch(const QString &id)
{
    begin(id, false);
}

void LibraryStore::resume(const QString &id)
{
    begin(id, true);
}

void LibraryStore::begin(const QString &id, bool resume)
{
    if (m_launching || !game(id)) return;
    if (m_places.host == Host::mac) takeRealName(id);
    const GameEntry *entry = game(id);
    ++m_launchToken;
    m_resuming = resume && entry->statePath;
    m_launching = Launching{id, m_clock.now(), {}, m_resuming, {}};
    emit launchingChanged();

    if (QFileInfo::exists(entry->path))
        handOver();
    else if (m_places.host == Host::mac && QFileInfo::exists(iCloudPlaceholder(entry->path)))
        waitForCloud();
    else
        searchMovedFile();
}

/// A game that was added while it lay in iCloud only has the placeholder's path.
void LibraryStore::takeRealName(const QString &id)
{
    if (const auto file = iCloudFile(game(id)->path)) edit(id, [&](GameEntry &game) { game.path = *file; });
}

void LibraryStore::waitForCloud()
{
    m_launching->note = Message{u"Downloading the game from iCloud…"_s, {}};
    emit launchingChanged();
    const auto begun = m_clock.awake();
    m_cloudCheck = m_clock.every(500ms, [this, begun] {
        const GameEntry *entry = game(m_launching->gameID);
        if (!entry) {
            cancelLaunch();
        } else if (QFileInfo::exists(entry->path)) {
            handOver();
        } else if (m_clock.awake() - begun >= cloudPatience) {
            failLaunch(
                {u"“%@” is still being downloaded from iCloud. Play again when it has arrived."_s, {entry->title}});
        }
    });
}

void LibraryStore::searchMovedFile()
{
    const MovedFile wanted = movedFile(game(m_launching->gameID)->path);
    const QStringList folders = searchedFolders(m_places, m_romFolders);
    m_tasks.run(
        this,
        [&index = m_index, host = m_places.host, wanted, folders] { return placesOf(wanted, index, folders, host); },
        [this, token = m_launchToken](const QStringList &places) {
            if (token == m_launchToken && m_launching) movedFileFound(places);
        });
}

/// A place that another game of the library has is that game's file.
void LibraryStore::movedFileFound(const QStringList &places)
{
    const QString id = m_launching->gameID;
    const auto taken = [this](const QString &place) {
        return std::any_of(m_games.begin(), m_games.end(), [&](const GameEntry &game) { return game.path == place; });
    };
    const auto place = std::find_if_not(places.begin(), places.end(), taken);
    if (place == places.end()) {
        endLaunch();
        if (game(id)) setMissingFile(id);
        return;
    }
    edit(id, [&](GameEntry &game) { game.path = *place; });
    handOver();
}

void LibraryStore::handOver()
{
    m_cloudCheck.reset();
    const GameEntry *entry = game(m_launching->gameID);
    if (!entry) return cancelLaunch();
    GameSettings defaults;
    defaults.fps60 = m_preferences.get(preference::default60FPS);
    LaunchRequest request{entry->title, entry->path, entry->consoleID, entry->settings.value_or(defaults), {}};
    if (m_resuming) request.statePath = entry->statePath;
    m_launcher.launch(request, [self = QPointer(this), token = m_launchToken](const Result<StartedGame> &result) {
        if (self) self->programStarted(token, result);
    });
}

void LibraryStore::endLaunch()
{
    ++m_launchToken;
    m_cloudCheck.reset();
    m_launching.reset();
    emit launchingChanged();
}

void LibraryStore::failLaunch(const Message &why)
{
    const QString id = m_launching->gameID;
    endLaunch();
    setLastError(why);
    emit launchFailed(id, why);
}

void LibraryStore::cancelLaunch()
{
    if (!m_launching) return;
    const QString id = m_launching->gameID;
    endLaunch();
    emit launchCancelled(id);
}

void LibraryStore::programStarted(int token, const Result<StartedGame> &result)
{
    if (token != m_launchToken) {
        if (result) m_processes.askToQuit(result.value().pid);
        return;
    }
    if (!result) return failLaunch(result.failure());

    const StartedGame &started = result.value();
    const QString id = m_launching->gameID;
    const GameEntry *entry = game(id);
    m_programs.insert(started.pid, {id, entry ? entry->title : QString(), started.logFile});
    m_sessions.start(id, started.pid);
    m_running.insert(id);
    const auto endedEarly = m_endedEarly.constFind(started.pid);
    const std::optional<ProgramEnd> end =
        endedEarly == m_endedEarly.constEnd() ? std::nullopt : std::optional(*endedEarly);
    m_endedEarly.clear();
    edit(id, [this](GameEntry &game) { game.lastPlayed = ReferenceDate::from(m_clock.now()); });
    endLaunch();
    emit runningChanged();
    emit gameStarted(id, started.pid);
    if (end) programEnded(started.pid, *end);
}

// Sessions

void LibraryStore::setPaused(const QString &id, bool paused)
{
    m_sessions.setPaused(id, paused);
}

void LibraryStore::countPlayTime(const QList<PlayedStretch> &stretches, const QDateTime &moment)
{
    QList<int> changed;
    for (const PlayedStretch &stretch : stretches) {
        const auto index = indexOf(stretch.gameID);
        if (!index) continue;
        addPlayTime(m_games[*index], stretch.seconds, moment);
        changed += *index;
    }
    if (changed.isEmpty()) return;
    save();
    for (const int index : std::as_const(changed))
        emit gameChanged(index);
    emit gamesChanged();
}

void LibraryStore::countSession(const SessionClock::Ended &session)
{
    edit(session.gameID, [&](GameEntry &game) {
        game.sessionCount = game.sessionCount.value_or(0) + 1;
        game.lastSessionSeconds = session.seconds;
    });
}

void LibraryStore::programEnded(qint64 pid, ProgramEnd end)
{
    if (!m_programs.contains(pid)) {
        if (m_launching) m_endedEarly.insert(pid, end);
        return;
    }
    const RunningProgram program = m_programs.take(pid);
    const auto session = m_sessions.end(pid);
    if (!session) return;
    countSession(*session);
    m_running.remove(program.gameID);
    emit runningChanged();
    emit gameEnded(program.gameID, session->seconds);
    if (session->seconds < earlyEndSeconds) explainEarlyEnd(program, end);
}

void LibraryStore::explainEarlyEnd(const RunningProgram &program, ProgramEnd end)
{
    m_tasks.run(
        this, [logFile = program.logFile] { return lastWords(logFile); },
        [this, program, end](const QString &words) {
            const Message why = closedAtOnceMessage(program.title, end, words);
            setLastError(why);
            emit closedAtOnce(program.gameID, why);
        });
}
