#pragma once

#include "ui/images/CoverPlate.h"

#include <QQuickAsyncImageProvider>
#include <QSize>
#include <functional>
#include <memory>
#include <optional>

class LibraryStore;
class Tasks;
enum class Host;

/// What an address below "image://cover/" asks for.
struct CoverRequest {
    QString gameID; ///< empty: a console's tile
    QString consoleID; ///< of the tile
    bool faded = false;
    QSize size;
    double radius = 0; ///< device pixels
    bool operator==(const CoverRequest &) const = default;
};

/// Reads "<game>/<w>x<h>", "console:<id>/<w>x<h>" or, for less colour, "console:<id>:off/<w>x<h>", in device pixels. A
/// third number is the radius of the corners in tenths of a pixel ("192x256x80"), else it is that of a cover. What
/// follows a "?" only makes addresses differ. Nothing for anything else or for a picture larger than a screen.
std::optional<CoverRequest> coverRequest(const QString &address);

/// Pictures of games and consoles, painted in the background in the size that is shown, with their corners rounded.
/// What they show is looked up on the main thread when they are asked for; a game that is gone gives an empty plate.
class CoverImageProvider : public QQuickAsyncImageProvider {
public:
    CoverImageProvider(const LibraryStore &library, Tasks &tasks, Host host);

    QQuickImageResponse *requestImageResponse(const QString &address, const QSize &requestedSize) override;

    /// Main thread. Until then requests wait, so that painting does not hold up the window's first frame.
    void begin();

private:
    /// Main thread.
    struct Requests {
        bool begun = false;
        QList<std::function<void()>> waiting;
    };

    const std::shared_ptr<Requests> m_requests = std::make_shared<Requests>();
    const LibraryStore &m_library;
    Tasks &m_tasks;
    const Host m_host;
};

/// What stands in for the cover of that game, or the ground of that console's tile.
CoverPlate coverPlate(const CoverRequest &request, const LibraryStore &library, Host host);
