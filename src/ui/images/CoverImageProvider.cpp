#include "ui/images/CoverImageProvider.h"

#include "catalog/Console.h"
#include "library/LibraryStore.h"
#include "platform/Tasks.h"
#include "ui/images/PictureResponse.h"
#include "ui/models/CoverSource.h"

#include <QPointer>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

static constexpr double coverRadius = 8.0 / 192; // of the width

std::optional<CoverRequest> coverRequest(const QString &address)
{
    static const QRegularExpression form(
        uR"re(^(?:console:([a-z0-9]+)(:off)?|([^/:]+))/([0-9]{1,4})x([0-9]{1,4})(?:x([0-9]{1,4}))?(?:\?.*)?$)re"_s);
    const QRegularExpressionMatch match = form.match(address);
    if (!match.hasMatch()) return {};
    CoverRequest request;
    request.consoleID = match.captured(1);
    request.faded = match.hasCaptured(2) && !match.captured(2).isEmpty();
    request.gameID = gameIDOfCover(match.captured(3));
    request.size = {match.captured(4).toInt(), match.captured(5).toInt()};
    request.radius =
        match.captured(6).isEmpty() ? request.size.width() * coverRadius : match.captured(6).toInt() / 10.0;
    constexpr int screen = 8192;
    if (request.size.isEmpty() || request.size.width() > screen || request.size.height() > screen) return {};
    return request;
}

CoverPlate coverPlate(const CoverRequest &request, const LibraryStore &library, Host host)
{
    CoverPlate plate{
        .consoleID = request.consoleID, .size = request.size, .radius = request.radius, .faded = request.faded};
    const GameEntry *game = request.gameID.isEmpty() ? nullptr : library.game(request.gameID);
    if (!game) return plate;
    plate.title = game->title;
    plate.consoleID = game->consoleID;
    const Console *console = consoleWithID(game->consoleID, host);
    plate.label = console ? console->shortName : game->consoleID;
    return plate;
}

CoverImageProvider::CoverImageProvider(const LibraryStore &library, Tasks &tasks, Host host)
    : m_library(library), m_tasks(tasks), m_host(host)
{ }

QQuickImageResponse *CoverImageProvider::requestImageResponse(const QString &address, const QSize &)
{
    auto *response = new PictureResponse;
    const QPointer<PictureResponse> alive(response);
    // What the answer needs outlives the window; this provider may not.
    const auto answer = [alive, &library = m_library, &tasks = m_tasks, host = m_host,
                         request = coverRequest(address)] {
        if (!alive) return;
        if (!request || !alive->wanted()) return alive->finish({});
        const CoverPlate plate = coverPlate(*request, library, host);
        tasks.run(
            alive.data(), [plate] { return painted(plate); },
            [alive](const QImage &picture) { alive->finish(picture); });
    };
    m_tasks.post([requests = m_requests, answer] {
        if (!requests->begun)
            requests->waiting += answer;
        else
            answer();
    });
    return response;
}

void CoverImageProvider::begin()
{
    m_requests->begun = true;
    const auto waiting = std::exchange(m_requests->waiting, {});
    for (const auto &answer : waiting)
        answer();
}
