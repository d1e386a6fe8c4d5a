#include "ui/shots/ShotImageProvider.h"

#include "platform/Places.h"
#include "platform/Tasks.h"
#include "play/shots/ScreenshotFiles.h"
#include "ui/images/PictureResponse.h"
#include "ui/shots/ShotPicture.h"

#include <QPointer>

using namespace Qt::StringLiterals;

ShotImageProvider::ShotImageProvider(const Places &places, Tasks &tasks)
    : m_folder(screenshotFolder(places.pictures)), m_cache(places.cache + u"/VelkoEmu/shots"_s), m_tasks(tasks)
{ }

QQuickImageResponse *ShotImageProvider::requestImageResponse(const QString &address, const QSize &)
{
    auto *response = new PictureResponse;
    const QPointer<PictureResponse> alive(response);
    const auto request = shotRequest(address);
    m_tasks.post([alive, request, folder = m_folder, cache = m_cache, &tasks = m_tasks] {
        if (!alive) return;
        if (!request || !alive->wanted()) return alive->finish({});
        tasks.run(
            alive.data(),
            [request = *request, file = folder + u'/' + request->name, cache] {
                return shotPicture(file, request, cache);
            },
            [alive](const QImage &picture) { alive->finish(picture); });
    });
    return response;
}
