#pragma once

#include "base/Message.h"
#include "play/shots/ScreenshotFiles.h"

#include <QObject>

class LibraryStore;
class Tasks;
class Trash;
struct Places;

/// The pictures of one game.
struct ScreenshotGroup {
    QString id; ///< the title
    QString title; ///< of the library's game, else as the files have it
    QString game; ///< identifier of the library's game of that title; empty: none
    QList<Screenshot> shots; ///< the newest first
    bool operator==(const ScreenshotGroup &) const = default;
};

/// All pictures that were taken, the newest first. The folder is read when asked to, in the background. Main thread
/// only; what it is given outlives it.
class ScreenshotStore : public QObject {
    Q_OBJECT
    Q_PROPERTY(int count READ count NOTIFY changed)
    Q_PROPERTY(bool loaded READ loaded NOTIFY changed)
public:
    ScreenshotStore(const Places &places, Tasks &tasks, Trash &trash, const LibraryStore &library,
                    QObject *parent = nullptr);

    const QList<Screenshot> &all() const { return m_all; }
    int count() const { return int(m_all.size()); }
    bool loaded() const { return m_loaded; } ///< the first listing is over
    QList<ScreenshotGroup> groups() const; ///< that of the newest picture first

    Q_INVOKABLE void load();
    void add(const QString &file); ///< one that has just been taken
    Q_INVOKABLE void remove(const QString &url); ///< to the Trash; it leaves the list once it is there

signals:
    void changed(); ///< the list
    void removeFailed(const Message &why); ///< nothing has changed

private:
    const QString m_folder;
    Tasks &m_tasks;
    Trash &m_trash;
    const LibraryStore &m_library;
    QList<Screenshot> m_all;
    bool m_loaded = false;
    int m_token = 0; ///< a listing that comes back with an older one is dropped
};
