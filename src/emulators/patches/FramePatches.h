#pragma once

#include "base/Message.h"
#include "emulators/patches/FramePatchAct.h"
#include "emulators/patches/PatchLists.h"
#include "platform/Clock.h"
#include "platform/Endpoints.h"
#include "platform/Http.h"

#include <QHash>
#include <QObject>
#include <QSet>
#include <functional>

class InstalledEmulators;
class Tasks;

/// How a game stands with its 60 FPS patch.
struct FramePatchState {
    enum class Phase { unknown, searching, downloading, available, none, failed };
    Phase phase = Phase::unknown;
    double progress = -1; ///< of the download, 0 to 1; -1: not known
    QString patch; ///< available: its name
    Message message; ///< none, failed
    bool operator==(const FramePatchState &) const = default;
};

/// The 60 FPS patches of PlayStation 3 and 4 games: fetches the lists when they are missing or a week old, and looks
/// games up in them. Main thread only; what it is given outlives it.
class FramePatches : public QObject {
    Q_OBJECT
public:
    FramePatches(const Places &places, const Endpoints &endpoints, const InstalledEmulators &emulators, Http &http,
                 Clock &clock, Tasks &tasks, QObject *parent = nullptr);

    static bool hasPatches(const QString &consoleID) { return consoleID == u"ps3" || consoleID == u"ps4"; }

    FramePatchState state(const QString &gameID) const;

    /// Looks the game up, and fetches the list before when that is due. Does nothing for other consoles.
    void look(const QString &gameID, const QString &consoleID, const QString &path);
    void cancel(const QString &gameID); ///< also the download, when no other game waits for it

    /// Ends the download of the list that this game waits for. All that wait for it make do with an older one or none,
    /// and the next launch does not ask for it again.
    void cancelDownload(const QString &gameID);

    /// Before a launch: `ready` comes at once when there is a list, however old, else when it has come or cannot come,
    /// but no later than a few seconds from now. `cancelled`: there is none because the user has cancelled it.
    void prepare(const QString &consoleID, std::function<void(bool cancelled)> ready);

signals:
    void changed(const QString &gameID);

private:
    struct Look {
        FramePatchGame game;
        int token = 0;
    };
    struct Download {
        Transfer transfer;
        bool underWay = false;
        double progress = -1;
        bool launchWaits = false;
        QList<std::function<void(bool)>> waiting;
    };

    EmulatorFolders foldersFor(const QString &consoleID) const;
    void setState(const QString &gameID, const FramePatchState &state);
    void search(const QString &gameID, int token, bool mayFetch, bool fetchFailed);
    void fetch(const QString &consoleID, std::function<void(bool)> done);
    void fetchPs3(const QByteArray &presentHash);
    void fetchPs4();
    void fetchPs4Archive(const QString &branch);
    void ended(const QString &consoleID, bool good);
    void showProgress(const QString &consoleID, qint64 received, qint64 total);

    Places m_places;
    Endpoints m_endpoints;
    const InstalledEmulators &m_emulators;
    Http &m_http;
    Clock &m_clock;
    Tasks &m_tasks;
    QHash<QString, FramePatchState> m_states;
    QHash<QString, Look> m_looks; ///< under way, by game
    QHash<QString, std::shared_ptr<Download>> m_downloads; ///< by console
    QSet<QString> m_cancelled; ///< consoles whose last download was cancelled
    int m_token = 0;
};
