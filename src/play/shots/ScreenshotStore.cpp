#include "play/shots/ScreenshotStore.h"

#include "base/Result.h"
#include "library/LibraryStore.h"
#include "platform/Tasks.h"
#include "platform/Trash.h"

#include <algorithm>

ScreenshotStore::ScreenshotStore(const Places &places, Tasks &tasks, Trash &trash, const LibraryStore &library,
                                 QObject *parent)
    : QObject(parent), m_folder(screenshotFolder(places.pictures)), m_tasks(tasks), m_trash(trash), m_library(library)
{ }

void ScreenshotStore::load()
{
    m_tasks.run(
        this, [folder = m_folder] { return listScreenshots(folder); },
        [this, token = ++m_token](const QList<Screenshot> &shots) {
            if (token != m_token || (m_loaded && shots == m_all)) return;
            m_all = shots;
            m_loaded = true;
            emit changed();
        });
}

void ScreenshotStore::add(const QString &file)
{
    if (!m_loaded) return load();
    ++m_token; // a listing under way may not have seen the file
    m_tasks.run(
        this, [file] { return listedScreenshot(file); },
        [this](const QList<Screenshot> &shots) {
            // A listing that came meanwhile may have it.
            if (shots.isEmpty() || m_all.contains(shots.first())) return;
            m_all.insert(std::upper_bound(m_all.begin(), m_all.end(), shots.first(), isNewer), shots.first());
            emit changed();
        });
}

void ScreenshotStore::remove(const QString &url)
{
    m_tasks.run(
        this, [&trash = m_trash, url] { return trash.move(url); },
        [this, url](const Result<QString> &moved) {
            if (!moved) {
                emit removeFailed(moved.failure());
                return;
            }
            ++m_token; // a listing under way may still have the file
            if (m_all.removeIf([&](const Screenshot &shot) { return shot.url == url; }) > 0) emit changed();
        });
}

QList<ScreenshotGroup> ScreenshotStore::groups() const
{
    QHash<QString, const GameEntry *> games;
    for (const GameEntry &game : m_library.games()) {
        const QString title = fileTitle(game.title);
        if (!games.contains(title)) games.insert(title, &game);
    }
    QList<ScreenshotGroup> groups;
    QHash<QString, int> places;
    for (const Screenshot &shot : m_all) {
        if (!places.contains(shot.title)) {
            places.insert(shot.title, int(groups.size()));
            const GameEntry *game = games.value(shot.title);
            groups += {shot.title, game ? game->title : shot.title, game ? game->id : QString(), {}};
        }
        groups[places[shot.title]].shots += shot;
    }
    return groups;
}
