#pragma once

#include "base/Message.h"
#include "platform/Clock.h"
#include "play/RunningGame.h"

#include <QImage>
#include <QObject>
#include <optional>

class ProcessControl;
class ScreenCapture;
class Tasks;
class Windows;
struct Places;

/// Takes pictures of the game that runs: of its window alone, else of the main display. One at a time; another request
/// meanwhile is ignored. Main thread only; what it is given outlives it.
class Screenshots : public QObject {
    Q_OBJECT
public:
    Screenshots(const Places &places, Clock &clock, Tasks &tasks, Windows &windows, ScreenCapture &capture,
                ProcessControl &processes, QObject *parent = nullptr);

    /// `afterOverlay`: something of ours has just been taken off the screen, which needs a moment to be gone.
    void take(const std::optional<RunningGame> &game, bool afterOverlay);
    bool busy() const { return m_busy; }

signals:
    /// The picture is taken and now written. Comes no earlier, since a notice would be in the picture.
    void taken(const Message &notice);
    void saved(const QString &file); ///< before `finished`
    void finished(const Message &toast, const QString &symbol);

private:
    void capture(const RunningGame &game);
    QImage picture(const RunningGame &game);
    void finish(const Message &toast, const QString &symbol);

    const QString m_pictures;
    Clock &m_clock;
    Tasks &m_tasks;
    Windows &m_windows;
    ScreenCapture &m_capture;
    ProcessControl &m_processes;
    bool m_busy = false;
    Timer m_delay;
};
