#include "play/shots/Screenshots.h"

#include "platform/Places.h"
#include "platform/ProcessControl.h"
#include "platform/ScreenCapture.h"
#include "platform/Tasks.h"
#include "platform/Windows.h"
#include "play/shots/ScreenshotFiles.h"
#include "play/supervision/GameWindow.h"

#include <QSaveFile>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

static const QString warning = u"exclamationmark.triangle.fill"_s;

Screenshots::Screenshots(const Places &places, Clock &clock, Tasks &tasks, Windows &windows, ScreenCapture &capture,
                         ProcessControl &processes, QObject *parent)
    : QObject(parent), m_pictures(places.pictures), m_clock(clock), m_tasks(tasks), m_windows(windows),
      m_capture(capture), m_processes(processes)
{ }

void Screenshots::take(const std::optional<RunningGame> &game, bool afterOverlay)
{
    if (m_busy) return;
    if (!game) return finish({u"Start a game, then press Share to capture it"_s, {}}, u"camera.fill"_s);
    m_busy = true;
    if (!afterOverlay) return capture(*game);
    // Until then the game has drawn again what the menu or a notice lay over.
    m_delay = m_clock.after(250ms, [this, game = *game] { capture(game); });
}

QImage Screenshots::picture(const RunningGame &game)
{
    if (const auto window = findGameWindow(m_windows.windowsOf(m_processes.tree(game.pid)))) {
        const QImage picture = m_capture.window(window->id);
        if (!picture.isNull()) return picture;
    }
    const QList<Monitor> displays = m_windows.displays();
    return displays.isEmpty() ? QImage() : m_capture.screen(displays.first().geometry);
}

/// Answers the file; empty when it could not be written.
static QString write(const QImage &picture, const QString &pictures, const QString &title, const QDateTime &moment)
{
    prepareScreenshotFolder(pictures);
    const QString path = screenshotPath(screenshotFolder(pictures), title, moment);
    QSaveFile file(path);
    const bool written = file.open(QSaveFile::WriteOnly) && picture.save(&file, "PNG") && file.commit();
    return written ? path : QString();
}

void Screenshots::capture(const RunningGame &game)
{
    const QImage shot = picture(game);
    if (shot.isNull()) {
        return finish({u"macOS blocked the screenshot: allow Velko in Privacy & Security → Screen Recording."_s, {}},
                      warning);
    }
    emit taken({u"Taking a screenshot…"_s, {}});
    m_tasks.run(
        this,
        [shot, pictures = m_pictures, title = game.title, now = m_clock.now()] {
            return write(shot, pictures, title, now);
        },
        [this](const QString &file) {
            if (file.isEmpty()) {
                return finish({u"The screenshot can't be written to “%@”. Is there room, and may files be added?"_s,
                               {screenshotFolder(m_pictures)}},
                              warning);
            }
            emit saved(file);
            finish({u"Screenshot saved · in your Profile"_s, {}}, u"camera.fill"_s);
        });
}

void Screenshots::finish(const Message &toast, const QString &symbol)
{
    m_busy = false;
    emit finished(toast, symbol);
}
