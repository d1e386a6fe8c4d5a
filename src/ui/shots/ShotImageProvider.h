#pragma once

#include <QQuickAsyncImageProvider>

class Tasks;
struct Places;

/// Pictures of the folder of screenshots, read in the background in the size that is shown.
class ShotImageProvider : public QQuickAsyncImageProvider {
public:
    ShotImageProvider(const Places &places, Tasks &tasks);
    QQuickImageResponse *requestImageResponse(const QString &address, const QSize &requestedSize) override;

private:
    const QString m_folder;
    const QString m_cache;
    Tasks &m_tasks;
};
