#pragma once

#include "base/Message.h"
#include "library/GameEntry.h"
#include "library/GameLauncher.h"
#include "platform/Clock.h"
#include "platform/Places.h"
#include "platform/Workspace.h"

#include <QDateTime>
#include <QHash>
#include <QObject>
#include <QSet>
#include <memory>

class FileIndex;
class Preferences;
class Tasks;

/// The launch in progress, from the user's choice until its program runs or the launch failed.
struct Launching {
    QString gameID;
    QDateTime start;
    QString engine; ///< identifier of the emulator, once it is known
    bool loading = false; ///< a save state is being loaded
    std::optional<Message> note;
    bool operator==(const Launching &) const = default;
};

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
                 Workspace &workspace, GameLauncher &launcher, QObject *parent = nullptr);
    ~LibraryStore() override;

    const QList<GameEntry> &games() const { return m_games; } ///< in file order
    int count() const { return int(m_games.size()); }
    std::optional<int> indexOf(const QString &id) const;
    const GameEntry *game(const QString &id) const; ///< valid until the next change

    std::optional<Message> lastError() const { return m_lastError; }
    const QSet<QString> &running() const { return m_running; }
    QStringList romFolders() const { return m_romFolders; }
    bool scanning() const { return m_scanning; }
    int scannedFiles() const { return m_scannedFiles; } ///< entries looked at so far by the scan under way
    std::optional<Message> scanReport() const { return m_scanReport; }
    QString pendingLaunch() const { return m_pendingLaunch; } ///< empty: none; so for the next three
    QString justAdded() const { return m_justAdded; }
    QString missingFile() const { return m_missingFile; }
    std::optional<ControllerNotice> controllerNotice() const { return m_controllerNotice; }
    std::optional<SetupIssue> setupIssue() const { return m_setupIssue; }
    std::optional<Launching> launching() const { return m_launching; }

    /// The unreadable library file that was found at start, under the name that it has been, or will be before the
    /// first save, set aside; empty when the library was readable.
    QString setAsideFile() const;
    QString newestBackup() const; ///< the newest good copy that can be restored; empty when there is none
    Q_INVOKABLE void restoreBackup();

    void add(const QList<GameEntry> &games); ///< one save for all; a path that is there already is left out
    Q_INVOKABLE void remove(const QString &id); ///< the game's file is not touched, and a running game runs on
    Q_INVOKABLE void setTitle(const QString &id, const QString &title);
    Q_INVOKABLE void setFavorite(const QString &id, bool favorite);
    void setStatus(const QString &id, std::optional<GameStatus> status);
    void setSettings(const QString &id, const GameSettings &settings);

    Q_INVOKABLE void addFolder(const QString &folder); ///< remembered in `romFolders` and scanned
    Q_INVOKABLE void removeFolder(const QString &folder); ///< forgotten; its games stay
    Q_INVOKABLE void scan(const QStringList &folders); ///< empty: all `romFolders`; ignored while one is under way
    Q_INVOKABLE void cancelScan(); ///< what was found so far is added

    Q_INVOKABLE void launch(const QString &id); ///< ignored while another launch is under way
    Q_INVOKABLE void resume(const QString &id); ///< the same, from the game's last save state
    Q_INVOKABLE void cancelLaunch();
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
    void launchingChanged();
    void setAsideChanged();
    void gameStarted(const QString &id, qint64 pid);
    void launchFailed(const QString &id, const Message &why);
    void gameEnded(const QString &id, double sessionSeconds); ///< after the session is counted and saved

private:
    QList<GameEntry> m_games;
    std::optional<Message> m_lastError;
    QSet<QString> m_running;
    QStringList m_romFolders;
    bool m_scanning = false;
    int m_scannedFiles = 0;
    std::optional<Message> m_scanReport;
    QString m_pendingLaunch;
    QString m_justAdded;
    QString m_missingFile;
    std::optional<ControllerNotice> m_controllerNotice;
    std::optional<SetupIssue> m_setupIssue;
    std::optional<Launching> m_launching;
};
