#include "play/supervision/GameWindow.h"

#include "play/supervision/PlayTarget.h"

#include <QStringList>
#include <algorithm>

using namespace Qt::StringLiterals;

static qint64 area(const QSize &size)
{
    return qint64(size.width()) * size.height();
}

static bool isGame(const AppWindow &window)
{
    return window.kind == WindowKind::normal && !isQuestion(window) && window.geometry.width() > 100
        && window.geometry.height() > 100;
}

static bool covers(const QRect &window, const QRect &display)
{
    return window.x() <= display.x() + 1 && window.y() <= display.y() + 1 && window.width() >= display.width() - 2
        && window.height() >= display.height() - 2;
}

// A window manager reports a state that it has not carried out yet, and a window without a frame may cover a display
// and still lie under its panels: on Linux both must hold.
static bool isFullScreen(const AppWindow &window, const QRect &display, Host host)
{
    const bool covering = covers(window.geometry, display);
    return host == Host::mac ? covering || window.fullScreen : covering && window.fullScreen;
}

std::optional<AppWindow> findGameWindow(const QList<AppWindow> &windows)
{
    const AppWindow *game = nullptr;
    for (const AppWindow &window : windows) {
        if (isGame(window) && (!game || area(window.geometry.size()) > area(game->geometry.size()))) game = &window;
    }
    return game ? std::optional(*game) : std::nullopt;
}

std::optional<WindowState> probeGameWindow(const QList<AppWindow> &windows, const PlayTarget &target, Host host)
{
    const auto game = findGameWindow(windows);
    if (!game) return {};
    const QRect &display = target.display.geometry;
    return WindowState{*game, display.contains(game->geometry.center()), isFullScreen(*game, display, host)};
}

bool isLoader(const QSize &window, const QString &engine)
{
    // These show no loader, and a window as small as two or three times the console's screen.
    static const QStringList small{u"melonds"_s, u"mgba"_s, u"ppsspp"_s, u"retroarch"_s};
    if (small.contains(engine)) return false;
    return window.width() < 500 || window.height() < 300;
}

bool isQuestion(const AccessibleWindow &window, const QSize &mainDisplay)
{
    const bool small = window.size.width() > 80 && window.size.height() > 60 && window.size.height() < 340
        && double(area(window.size)) < 0.3 * double(area(mainDisplay));
    const bool dialog = window.role == AccessibleWindow::Role::dialog || window.role == AccessibleWindow::Role::alert;
    return (small || dialog) && window.hasButton;
}

// Splash screens, menus and tool windows are of other kinds, also where they belong to a window.
bool isQuestion(const AppWindow &window)
{
    return window.kind == WindowKind::dialog || (window.kind == WindowKind::normal && window.transientFor != 0)
        || window.modal;
}

std::optional<AppWindow> findQuestion(const QList<AppWindow> &windows)
{
    const auto found = std::ranges::find_if(windows, [](const AppWindow &window) { return isQuestion(window); });
    return found == windows.end() ? std::nullopt : std::optional(*found);
}

QRect placeOn(const QRect &display, const QSize &window)
{
    QRect place(QPoint(), window.boundedTo(display.size()));
    place.moveCenter(display.center());
    return place;
}
