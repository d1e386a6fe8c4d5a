#pragma once

#include "base/Host.h"
#include "platform/Accessibility.h"
#include "platform/Windows.h"

#include <optional>

struct PlayTarget;

/// A game's window, seen against the display of play.
struct WindowState {
    AppWindow window;
    bool onTarget = false; ///< its centre is on the display
    bool fullScreen = false;
    bool operator==(const WindowState &) const = default;
};

/// The game's window among those of its processes: the largest that is no question and exceeds 100 points both ways,
/// the oldest of equally large ones. Nothing: there is none yet.
std::optional<AppWindow> findGameWindow(const QList<AppWindow> &windows);
std::optional<WindowState> probeGameWindow(const QList<AppWindow> &windows, const PlayTarget &target, Host host);

/// Whether a window is too small for a game: a splash or a loader.
bool isLoader(const QSize &window, const QString &engine);

/// A window in which a program asks the user something: on the Mac as accessibility describes it, on Linux by its
/// type and by the window that it belongs to.
bool isQuestion(const AccessibleWindow &window, const QSize &mainDisplay);
bool isQuestion(const AppWindow &window);

/// Nothing: the program asks nothing.
std::optional<AppWindow> findQuestion(const QList<AppWindow> &windows);

/// Where a window of this size goes on the display: into its middle, as large as it is, but no larger than the display.
QRect placeOn(const QRect &display, const QSize &window);
