#include "library/LibraryStore.h"

#include "library/EarlyEnd.h"
#include "library/MovedFile.h"
#include "library/ScanReport.h"
#include "platform/Preferences.h"
#include "platform/Tasks.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

LibraryStore::LibraryStore(const Places &places, Preferences &preferences, Clock &clock, Tasks &tasks, FileIndex &index,
                           Workspace &workspace, ProcessControl &processes, GameLauncher &launcher, QObject *parent)
    : QObject(parent), m_host(places.host), m_preferences(preferences), m_clock(clock), m_tasks(tasks),
      m_disk(places, preferences), m_scan(tasks, places.host), m_launcher(launcher),
      m_launch(places, clock, tasks, index, processes, launcher),
      m_sessions(clock, [this](const auto &stretches, const auto &moment) { countPlayTime(stretches, moment); }),
      m_games(m_disk.read(clock.now())), m_romFolders(preferences.get(preference::romFolders))
{
    connect(&workspace, &Workspace::ended, this, &LibraryStore::programEnded);
    connect(&m_scan, &FolderScan::changed, this, &LibraryStore::scanningChanged);
    connect(&m_scan, &FolderScan::found, this, &LibraryStore::addFound);
    connect(&m_launch, &GameLaunch::changed, this, &LibraryStore::launchingChanged);
    connect(&m_launch, &GameLaunch::missing, this, &LibraryStore::setMissingFile);
    connect(&m_launch, &GameLaunch::failed, this, &LibraryStore::fail);
    connect(&m_launch, &GameLaunch::started, this, &LibraryStore::programStarted);
    connect(&m_launch, &GameLaunch::moved, this,
            [this](const QString &id, const QString &path) { edit(id, [&](GameEntry &game) { game.path = path; }); });
}

/// The games run on, but their time can't be counted any longer.
LibraryStore::~LibraryStore()
{
    blockSignals(true);
    for (const SessionClock::Ended &session : m_sessions.endAll())
        countSession(session);
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

void LibraryStore::stateSaved(const QString &id, const QString &path)
{
    edit(id, [&](GameEntry &game) {
        game.stateSavedAt = ReferenceDate::from(m_clock.now());
        game.statePath = path;
    });
}

bool LibraryStore::resumes(const QString &id) const
{
    return std::any_of(m_programs.begin(), m_programs.end(),
                       [&id](const RunningProgram &program) { return program.gameID == id && program.resumes; });
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
    if (m_pendingLaunch == id) dismissControllerNotice();
    if (launching() && launching()->gameID == id) cancelLaunch();
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
    m_scan.start(paths);
}

void LibraryStore::removeFolder(const QString &folder)
{
    if (!m_romFolders.removeOne(folder)) return;
    m_preferences.set(preference::romFolders, m_romFolders);
    emit romFoldersChanged();
}

void LibraryStore::scan(const QStringList &folders)
{
    if (!scanning()) m_scan.start(folders.isEmpty() ? m_romFolders : folders);
}

void LibraryStore::cancelScan()
{
    m_scan.cancel();
}

/// A name that is all brackets would leave a game without a title.
static QString titleOf(const Hit &hit)
{
    const QString name = movedFile(hit.url).name;
    const QString withoutExtension = QFileInfo(name).completeBaseName();
    return !hit.title.isEmpty() ? hit.title : withoutExtension.isEmpty() ? name : withoutExtension;
}

void LibraryStore::addFound(const ScanFindings &findings)
{
    QList<GameEntry> found;
    found.reserve(findings.hits.size());
    const ReferenceDate now = ReferenceDate::from(m_clock.now());
    for (const Hit &hit : findings.hits) {
        GameEntry &game = found.emplaceBack();
        game.title = titleOf(hit);
        game.consoleID = hit.consoleID;
        game.path = hit.url;
        game.addedAt = now;
        if (!hit.root.isEmpty()) game.sourceFolder = hit.root;
    }
    const int before = count();
    add(found);
    m_scanReport = ::scanReport(findings, count() - before);
    m_scanTrouble = findings.hasTrouble();
    emit scanReportChanged();
}

// Launching

void LibraryStore::launch(const QString &id)
{
    begin(id, false, Asking::yes);
}

void LibraryStore::launchWithoutAsking(const QString &id)
{
    begin(id, false, Asking::no);
}

void LibraryStore::resume(const QString &id)
{
    begin(id, true, Asking::yes);
}

void LibraryStore::begin(const QString &id, bool resume, Asking asking)
{
    if (!game(id) || launching()) return;
    m_endedEarly.clear();
    // A game that was added while it lay in iCloud only has the placeholder's path.
    if (const auto file = iCloudFile(game(id)->path); file && m_host == Host::mac)
        edit(id, [&](GameEntry &game) { game.path = *file; });

    const GameEntry *entry = game(id);
    GameSettings defaults;
    defaults.fps60 = m_preferences.get(preference::default60FPS);
    GameLaunch::Order order{
        id, {entry->title, entry->path, entry->consoleID, entry->settings.value_or(defaults), {}}, m_romFolders, {}};
    if (resume) order.request.statePath = entry->statePath;
    order.isAnotherGames = [this](const QString &path) {
        return std::any_of(m_games.begin(), m_games.end(), [&](const GameEntry &game) { return game.path == path; });
    };
    const QString toSetUp = asking == Asking::yes ? m_launcher.controllerToSetUp(order.request) : QString();
    if (!toSetUp.isEmpty()) return wait(id, resume, toSetUp);
    m_launch.begin(order);
}

void LibraryStore::wait(const QString &id, bool resume, const QString &emulatorID)
{
    m_pendingLaunch = id;
    m_pendingResume = resume;
    m_controllerNotice = ControllerNotice{id, emulatorID};
    emit controllerNoticeChanged();
}

void LibraryStore::goOn()
{
    const QString id = m_pendingLaunch;
    dismissControllerNotice();
    begin(id, m_pendingResume, Asking::no);
}

void LibraryStore::dismissControllerNotice()
{
    if (!m_controllerNotice) return;
    m_controllerNotice.reset();
    m_pendingLaunch.clear();
    emit controllerNoticeChanged();
}

void LibraryStore::dismissSetupIssue()
{
    if (!m_setupIssue) return;
    m_setupIssue.reset();
    emit setupIssueChanged();
}

void LibraryStore::cancelLaunch()
{
    if (!launching()) return;
    const QString id = launching()->gameID;
    m_launch.cancel();
    emit launchCancelled(id);
}

void LibraryStore::fail(const QString &id, const LaunchRefusal &why)
{
    if (why.emulatorToSetUp.isEmpty()) {
        setLastError(why.message);
    } else {
        m_setupIssue = SetupIssue{why.emulatorToSetUp, why.message};
        emit setupIssueChanged();
    }
    emit launchFailed(id, why.message);
}

void LibraryStore::programStarted(const GameLaunch::Order &order, const StartedGame &program)
{
    m_programs.insert(program.pid,
                      {order.gameID, order.request.title, program.logFile, order.request.statePath.has_value(), false});
    m_sessions.start(order.gameID, program.pid);
    m_running.insert(order.gameID);
    const auto endedEarly = std::exchange(m_endedEarly, {});
    edit(order.gameID, [this](GameEntry &game) { game.lastPlayed = ReferenceDate::from(m_clock.now()); });
    emit runningChanged();
    emit gameStarted(order.gameID, program);
    if (!program.shortcomings.isEmpty()) setLastError(program.shortcomings.first());
    if (endedEarly.contains(program.pid)) programEnded(program.pid, endedEarly[program.pid]);
}

// Sessions

void LibraryStore::goBackTo(const QString &id)
{
    if (m_running.contains(id)) emit backToGameWanted(id);
}

void LibraryStore::setPaused(const QString &id, bool paused)
{
    m_sessions.setPaused(id, paused);
}

void LibraryStore::expectEnd(qint64 pid)
{
    const auto program = m_programs.find(pid);
    if (program != m_programs.end()) program->endExpected = true;
}

void LibraryStore::endSession(qint64 pid)
{
    if (m_programs.contains(pid)) programEnded(pid, {});
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
        if (launching()) m_endedEarly.insert(pid, end);
        return;
    }
    const RunningProgram program = m_programs.take(pid);
    const auto session = m_sessions.end(pid);
    if (!session) return;
    countSession(*session);
    m_running.remove(program.gameID);
    emit runningChanged();
    const bool tooShort = session->seconds < earlyEndSeconds && !program.endExpected;
    emit gameEnded(program.gameID, session->seconds, tooShort);
    if (tooShort) explainEarlyEnd(program, end);
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
