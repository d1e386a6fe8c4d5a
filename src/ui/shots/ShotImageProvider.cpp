#include "ui/shots/ShotImageProvider.h"

#include "platform/Places.h"
#include "platform/Tasks.h"
#include "play/ScreenshotFiles.h"
#include "ui/shots/ShotPicture.h"

#include <QCoreApplication>
#include <QPointer>

using namespace Qt::StringLiterals;

/// One picture on its way. Lives on the main thread, where the tasks bring the result, although it is asked for on the
/// thread that reads pictures.
class ShotResponse : public QQuickImageResponse {
public:
    ShotResponse() { moveToThread(QCoreApplication::instance()->thread()); }
    bool wanted() const { return m_wanted; }
    QQuickTextureFactory *textureFactory() const override
    {
        return QQuickTextureFactory::textureFactoryForImage(m_image);
    }
    QString errorString() const override { return m_image.isNull() ? u"no such picture"_s : QString(); }
    void cancel() override { m_wanted = false; }
    void finish(const QImage &picture)
    {
        m_image = picture;
        emit finished();
    }

private:
    QImage m_image;
    std::atomic_bool m_wanted = true; ///< false once it has scrolled out of sight
};

ShotImageProvider::ShotImageProvider(const Places &places, Tasks &tasks)
    : m_folder(screenshotFolder(places.pictures)), m_cache(places.cache + u"/VelkoEmu/shots"_s), m_tasks(tasks)
{ }

QQuickImageResponse *ShotImageProvider::requestImageResponse(const QString &address, const QSize &)
{
    auto *response = new ShotResponse;
    const QPointer<ShotResponse> alive(response);
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
