#pragma once

#include "base/Message.h"
#include "library/FolderScan.h"
#include "library/GameEntry.h"
#include "library/GameLaunch.h"
#include "library/LibraryDisk.h"
#include "library/SessionClock.h"
#include "platform/Clock.h"
#include "platform/Places.h"
#include "platform/Workspace.h"

#include <QHash>
#include <QObject>
#include <QSet>

class Preferences;

/// An emulator that must be set up before the game can start.
struct SetupIssue {
    QString emulatorID;
    Message message;
    bool operator==(const SetupIssue &) const = default;
};

/// A notice before a launch: the controller must be set up in this emulator.
struct ControllerNotice {
    QString game;
    QString emulatorID;
    bool operator==(const ControllerNotice &) const = default;
};

/// Owns the list of games from start to quit and writes it to disk after every change, before the change is announced.
/// Main thread only; what it is given outlives it.
class LibraryStore : public QObject {
    Q_OBJECT
    Q_PROPERTY(int count READ count NOTIFY gamesChanged)
    Q_PROPERTY(bool scanning READ scanning NOTIFY scanningChanged)
    Q_PROPERTY(int scannedFiles READ scannedFiles NOTIFY scanningChanged)
    Q_PROPERTY(QStringList romFolders READ romFolders NOTIFY romFoldersChanged)
    Q_PROPERTY(QString justAdded READ justAdded NOTIFY justAddedChanged)
    Q_PROPERTY(QString missingFile READ missingFile NOTIFY missingFileChanged)
public:
    LibraryStore(const Places &places, Preferences &preferences, Clock &clock, Tasks &tasks, FileIndex &index,
                 Workspace &workspace, ProcessControl &processes, GameLauncher &launcher, QObject *parent = nullptr);
    ~LibraryStore() override;

    const QList<GameEntry> &games() const { return m_games; } ///< in file order
    int count() const { return int(m_games.size()); }
    std::optional<int> indexOf(const QString &id) const;
    const GameEntry *game(const QString &id) const; ///< valid until the next change

    std::optional<Message> lastError() const { return m_lastError; }
    const QSet<QString> &running() const { return m_running; }
    double sessionSeconds(const QString &id) const
    {
        return m_sessions.seconds(id);
    } ///< up to now, unlike `playSeconds`
    bool resumes(const QString &id) const; ///< it runs, and was started to go on from a save state
    QStringList romFolders() const { return m_romFolders; }
    bool scanning() const { return m_scan.running(); }
    int scannedFiles() const { return m_scan.examined(); } ///< entries looked at so far by the scan under way
    std::optional<Message> scanReport() const { return m_scanReport; }
    bool scanTrouble() const { return m_scanTrouble; } ///< the report asks the user to do something
    QString pendingLaunch() const { return m_pendingLaunch; } ///< empty: none; so for the next three
    QString justAdded() const { return m_justAdded; }
    QString missingFile() const { return m_missingFile; }
    std::optional<ControllerNotice> controllerNotice() const { return m_controllerNotice; }
    std::optional<SetupIssue> setupIssue() const { return m_setupIssue; }
    std::optional<Launching> launching() const { return m_launch.state(); }

    /// The unreadable library file that was found at start, under the name that it has been, or will be before the
    /// first save, set aside; empty when the library was readable.
    QString setAsideFile() const { return m_disk.setAsideFile(); }
    QString newestBackup() const; ///< the newest good copy that can be restored; empty when there is none
    Q_INVOKABLE void restoreBackup(); ///< games that were added since stay, after those of the copy

    /// One save for all; a path that is there already is left out. An `id` that is no UUID or is taken is replaced.
    void add(const QList<GameEntry> &games);
    Q_INVOKABLE void remove(const QString &id); ///< the game's file is not touched, and a running game runs on
    Q_INVOKABLE void setTitle(const QString &id, const QString &title); ///< a blank one is ignored
    Q_INVOKABLE void setFavorite(const QString &id, bool favorite);
    void setStatus(const QString &id, std::optional<GameStatus> status);
    void setSettings(const QString &id, const GameSettings &settings);
    void stateSaved(const QString &id, const QString &path); ///< just now, into that file

    Q_INVOKABLE void addFolder(const QString &folder); ///< remembered in `romFolders` and scanned
    void addFolders(const QStringList &folders);
    /// Game files, and folders that are looked through this once; what is recognised is added, and reported like a
    /// scan.
    Q_INVOKABLE void addFiles(const QStringList &paths);
    Q_INVOKABLE void removeFolder(const QString &folder); ///< forgotten; its games stay
    Q_INVOKABLE void scan(const QStringList &folders); ///< empty: all `romFolders`; ignored while one is under way
    Q_INVOKABLE void cancelScan(); ///< what was found so far is added

    /// Ignored while another launch is under way. May wait for the user first: see `controllerNotice`.
    Q_INVOKABLE void launch(const QString &id);
    void launchWithoutAsking(const QString &id);
    Q_INVOKABLE void resume(const QString &id); ///< the same, from the game's last save state
    Q_INVOKABLE void cancelLaunch(); ///< a program that has started meanwhile is asked to quit
    Q_INVOKABLE void goBackTo(const QString &id); ///< brings a running game to the front; another one is left alone
    void setPaused(const QString &id, bool paused); ///< the play time of a paused game stands still
    void expectEnd(qint64 pid); ///< the user ends the program: it is no failure, however short the session was
    void endSession(qint64 pid); ///< the program counts as ended, even if the system has not noticed or can't end it
    Q_INVOKABLE void goOn(); ///< with the launch that waits for the user
    Q_INVOKABLE void dismissControllerNotice(); ///< and the launch that waits for it
    Q_INVOKABLE void dismissSetupIssue();
    Q_INVOKABLE void dismissError();
    Q_INVOKABLE void dismissMissingFile();

signals:
    void gamesChanged(); ///< the list as a whole: sizes, order; after any of the three below as well
    void gamesAdded(int first, int count);
    void gameRemoved(int index);
    void gameChanged(int index);
    void libraryReplaced(); ///< read anew, as after a restored backup
    void lastErrorChanged();
    void runningChanged();
    void romFoldersChanged();
    void scanningChanged();
    void scanReportChanged();
    void justAddedChanged();
    void missingFileChanged();
    void setupIssueChanged();
    void controllerNoticeChanged(); ///< and `pendingLaunch`
    void launchingChanged();
    void setAsideChanged();
    void gameStarted(const QString &id, const StartedGame &program);
    void backToGameWanted(const QString &id);
    void launchFailed(const QString &id, const Message &why);
    void launchCancelled(const QString &id);
    /// After the session is counted and saved. `closedAtOnce` follows when it was too short.
    void gameEnded(const QString &id, double sessionSeconds, bool tooShort);
    void closedAtOnce(const QString &id, const Message &why);

private:
    /// A program that runs for a game.
    struct RunningProgram {
        QString gameID;
        QString title;
        QString logFile;
        bool resumes = false; ///< started to go on from a save state
        bool endExpected = false;
    };

    void fillIndexes() const;
    void save();
    int append(const QList<GameEntry> &games);
    void setLastError(std::optional<Message> error);
    void setMissingFile(const QString &id);
    template <class Edit>
    void edit(const QString &id, Edit edit);

    void addFound(const ScanFindings &findings);

    enum class Asking { no, yes };
    void begin(const QString &id, bool resume, Asking asking);
    void wait(const QString &id, bool resume, const QString &emulatorID);
    void fail(const QString &id, const LaunchRefusal &why);
    void programStarted(const GameLaunch::Order &order, const StartedGame &program);
    void programEnded(qint64 pid, ProgramEnd end);
    void countPlayTime(const QList<PlayedStretch> &stretches, const QDateTime &moment);
    void countSession(const SessionClock::Ended &session);
    void explainEarlyEnd(const RunningProgram &program, ProgramEnd end);

    Host m_host;
    Preferences &m_preferences;
    Clock &m_clock;
    Tasks &m_tasks;
    LibraryDisk m_disk;
    FolderScan m_scan;
    GameLauncher &m_launcher;
    GameLaunch m_launch;
    SessionClock m_sessions;
    QHash<qint64, RunningProgram> m_programs;
    QHash<qint64, ProgramEnd> m_endedEarly; ///< programs that ended during a launch, before we knew whose they are
    bool m_saveFailed = false; ///< and the user was told
    mutable QHash<QString, int> m_indexes; ///< by identifier; made when asked for, emptied when indexes change

    QList<GameEntry> m_games;
    std::optional<Message> m_lastError;
    QSet<QString> m_running;
    QStringList m_romFolders;
    std::optional<Message> m_scanReport;
    bool m_scanTrouble = false;
    QString m_pendingLaunch;
    bool m_pendingResume = false; ///< from its save state
    QString m_justAdded;
    QString m_missingFile;
    std::optional<ControllerNotice> m_controllerNotice;
    std::optional<SetupIssue> m_setupIssue;
};
