#include "ui/shots/ScreenshotGallery.h"

#include "platform/Places.h"
#include "platform/Workspace.h"
#include "ui/shots/ShotPicture.h"

#include <QDir>

ScreenshotGallery::ScreenshotGallery(ScreenshotStore &store, Workspace &workspace, const Places &places,
                                     const QLocale &locale, QObject *parent)
    : QObject(parent), m_store(store), m_workspace(workspace), m_folder(screenshotFolder(places.pictures)),
      m_groups(locale)
{
    connect(&store, &ScreenshotStore::changed, this, &ScreenshotGallery::update);
}

void ScreenshotGallery::setActive(bool active)
{
    if (active == m_active) return;
    m_active = active;
    if (active) {
        m_store.load();
        update();
    }
    emit activeChanged();
}

void ScreenshotGallery::update()
{
    if (!m_active) return;
    const QString url = shown(ShotListModel::Url);
    m_groups.show(m_store.groups());
    if (m_viewing) {
        // A new picture comes before the one that is shown; the neighbour of one that is gone takes its place.
        const ShotListModel *now = shots();
        const auto place =
            now ? now->match(now->index(0), ShotListModel::Url, url, 1, Qt::MatchExactly) : QModelIndexList();
        if (now) m_index = place.isEmpty() ? qMin(m_index, now->count() - 1) : place.first().row();
        m_viewing = shots() && m_index >= 0;
        emit viewChanged();
    }
    emit changed();
}

ShotListModel *ScreenshotGallery::shots() const
{
    return m_viewing ? m_groups.shotsOf(m_viewed) : nullptr;
}

void ScreenshotGallery::setIndex(int index)
{
    if (!viewing() || index == m_index || index < 0 || index >= shots()->count()) return;
    m_index = index;
    emit viewChanged();
}

QString ScreenshotGallery::shown(ShotListModel::Role role) const
{
    return viewing() ? shots()->data(shots()->index(m_index), role).toString() : QString();
}

QString ScreenshotGallery::title() const
{
    return shown(ShotListModel::Title);
}

QString ScreenshotGallery::dateText() const
{
    return shown(ShotListModel::DateText);
}

QString ScreenshotGallery::source() const
{
    return shown(ShotListModel::Source);
}

void ScreenshotGallery::view(const QString &groupID, int index)
{
    const ShotListModel *shots = m_groups.shotsOf(groupID);
    if (!shots || index < 0 || index >= shots->count()) return;
    m_viewed = groupID;
    m_viewing = true;
    m_index = index;
    emit viewChanged();
}

void ScreenshotGallery::close()
{
    if (!m_viewing) return;
    m_viewing = false;
    emit viewChanged();
}

QString ScreenshotGallery::askedSource() const
{
    return shotSource(m_asked);
}

void ScreenshotGallery::ask(const QString &url)
{
    m_asked = url;
    emit askingChanged();
}

void ScreenshotGallery::askForShown()
{
    if (viewing()) ask(shown(ShotListModel::Url));
}

void ScreenshotGallery::answer(bool remove)
{
    const QString url = std::exchange(m_asked, {});
    emit askingChanged();
    if (remove) m_store.remove(url);
}

void ScreenshotGallery::openFolder()
{
    QDir().mkpath(m_folder);
    m_workspace.openAddress(QUrl::fromLocalFile(m_folder));
}
