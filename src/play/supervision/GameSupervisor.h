#pragma once

#include "play/RunningGame.h"
#include "play/supervision/GameWatcher.h"

#include <QObject>
#include <memory>
#include <optional>
#include <vector>

class GameQuit;
class LibraryStore;
class Preferences;
class Workspace;

/// How a started game is brought onto its display.
struct WatchOptions {
    bool fullScreenWanted = true; ///< by the game's settings
    bool fullScreenSuppressed = false; ///< this launch leaves full screen to the emulator
    bool showCurtain = false; ///< over the display of play while the window is placed there
};

/// Watches over the newest game: brings its window onto the display of play, hands control to the user while the
/// emulator asks something, and ends it when asked to. Games that were started before keep their sessions and their
/// windows. Draws nothing: whoever shows notices and the curtain goes by its state and signals. Main thread only.
class GameSupervisor : public QObject {
    Q_OBJECT
public:
    enum class Question { none, launch, quit };

    GameSupervisor(const GameReach &reach, LibraryStore &library, const Workspace &workspace,
                   const Preferences &preferences, QObject *parent = nullptr);
    ~GameSupervisor() override; ///< games go on

    void startWatching(const RunningGame &game, const WatchOptions &options);
    /// The B button while a game is starting: stops it. False when none is: the press means something else then.
    bool cancelLaunch();
    void quit(); ///< the newest game; ignored when there is none, or it is being quit
    void setPaused(bool paused); ///< the user has paused the game: its window is left alone until it goes on
    void endHandOver(); ///< the user wants Velko back while the emulator asks whether to quit: the game goes on

    const std::optional<RunningGame> &game() const { return m_game; } ///< the newest one, until it has ended
    bool placing() const { return m_watcher != nullptr; } ///< its window may still be moved
    bool starting() const; ///< B would cancel the launch
    Question question() const; ///< the emulator asks the user something, before the game starts or ends
    bool leaving() const { return m_quit != nullptr; } ///< it is being quit
    bool isEnding() const { return leaving() || !m_endings.empty(); } ///< so is any game: Velko has to stay for it
    bool handedOver() const; ///< and waits for an answer of the user
    int quitSecondsLeft() const; ///< until it is ended by force; 0 when it is not being quit

signals:
    void changed(); ///< any of the above
    void curtainWanted(const QString &displayName);
    void curtainDone();
    void placed(qint64 pid); ///< once for each start, when the window is where it belongs or has to stay where it is
    void quitFinished(); ///< the game has ended, and its session is counted
    void launchCancelled();

private:
    void watch(GameWatcher::Occasion occasion, bool showCurtain);
    void stopPlacing();
    void displaysChanged();
    std::unique_ptr<GameQuit> makeQuit();
    void finishQuit(qint64 pid);
    void programEnded(qint64 pid);

    GameReach m_reach;
    LibraryStore &m_library;
    const Preferences &m_preferences;
    std::optional<RunningGame> m_game;
    Placement m_placement; ///< of `m_game`
    bool m_separate = false; ///< its display is there, and not the only one
    bool m_paused = false;
    Timer m_rewatch; ///< until the desktop has settled after a change of displays
    std::unique_ptr<GameWatcher> m_watcher; ///< of `m_game`, until its window is left alone
    std::unique_ptr<GameQuit> m_quit; ///< of `m_game`
    bool m_wentOn = false; ///< `m_game` was asked to end before, and the user wanted it back
    std::vector<std::unique_ptr<GameQuit>> m_endings; ///< of cancelled launches, and of games that were quit before
};
