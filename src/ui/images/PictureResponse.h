#pragma once

#include <QCoreApplication>
#include <QQuickImageProvider>
#include <atomic>

/// One picture on its way to a screen. Lives on the main thread, where the tasks bring the result, although it is asked
/// for on the thread that reads pictures.
class PictureResponse : public QQuickImageResponse {
public:
    PictureResponse() { moveToThread(QCoreApplication::instance()->thread()); }

    bool wanted() const { return m_wanted; } ///< false once it has scrolled out of sight; from any thread
    void finish(const QImage &picture) ///< a null one: there is no such picture
    {
        m_image = picture;
        emit finished();
    }

    QQuickTextureFactory *textureFactory() const override
    {
        return QQuickTextureFactory::textureFactoryForImage(m_image);
    }
    QString errorString() const override { return m_image.isNull() ? QStringLiteral("no such picture") : QString(); }
    void cancel() override { m_wanted = false; }

private:
    QImage m_image;
    std::atomic_bool m_wanted = true;
};
