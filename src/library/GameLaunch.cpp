#include "library/GameLaunch.h"

#include "library/MovedFile.h"
#include "platform/FileIndex.h"
#include "platform/ProcessControl.h"
#include "platform/Tasks.h"

#include <QFileInfo>
#include <QPointer>
#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

static constexpr auto cloudPatience = 30min;

GameLaunch::GameLaunch(const Places &places, Clock &clock, Tasks &tasks, const FileIndex &index,
                       ProcessControl &processes, GameLauncher &launcher)
    : m_places(places), m_clock(clock), m_tasks(tasks), m_index(index), m_processes(processes), m_launcher(launcher)
{ }

void GameLaunch::begin(const Order &order)
{
    if (m_state) return;
    ++m_token;
    m_order = order;
    m_state = Launching{
        order.gameID, m_clock.now(), m_launcher.engineFor(order.request), order.request.statePath.has_value(), {}};
    emit changed();

    const QString &path = m_order.request.path;
    if (QFileInfo::exists(path))
        handOver();
    else if (m_places.host == Host::mac && QFileInfo::exists(iCloudPlaceholder(path)))
        waitForCloud();
    else
        search();
}

void GameLaunch::waitForCloud()
{
    m_state->note = Message{u"Downloading the game from iCloud…"_s, {}};
    emit changed();
    m_cloudCheck = m_clock.every(500ms, [this, begun = m_clock.awake()] { checkCloud(begun); });
}

void GameLaunch::checkCloud(std::chrono::milliseconds begun)
{
    if (QFileInfo::exists(m_order.request.path)) return handOver();
    if (m_clock.awake() - begun < cloudPatience) return;
    finish();
    emit failed(m_order.gameID,
                Message{u"“%@” is still being downloaded from iCloud. Play again when it has arrived."_s,
                        {m_order.request.title}});
}

void GameLaunch::search()
{
    const MovedFile wanted = movedFile(m_order.request.path);
    const QStringList folders = searchedFolders(m_places, m_order.romFolders);
    m_tasks.run(
        this,
        [&index = m_index, host = m_places.host, wanted, folders] { return placesOf(wanted, index, folders, host); },
        [this, token = m_token](const QStringList &places) {
            if (token == m_token) searched(places);
        });
}

void GameLaunch::searched(const QStringList &places)
{
    const auto place = std::find_if_not(places.begin(), places.end(), m_order.isAnotherGames);
    if (place == places.end()) {
        finish();
        emit missing(m_order.gameID);
        return;
    }
    m_order.request.path = *place;
    emit moved(m_order.gameID, *place);
    handOver();
}

void GameLaunch::handOver()
{
    m_cloudCheck.reset();
    m_launcher.launch(m_order.request, [self = QPointer(this), token = m_token](const LaunchResult &result) {
        if (self) self->launched(token, result);
    });
}

void GameLaunch::launched(int token, const LaunchResult &result)
{
    if (token != m_token) {
        if (result) m_processes.askToQuit(result.value().pid);
        return;
    }
    const Order order = m_order;
    finish();
    if (result)
        emit started(order, result.value());
    else
        emit failed(order.gameID, result.failure());
}

void GameLaunch::finish()
{
    ++m_token;
    m_cloudCheck.reset();
    m_state.reset();
    emit changed();
}

void GameLaunch::cancel()
{
    if (!m_state) return;
    m_launcher.cancel();
    finish();
}
