#include "play/FrontWindow.h"

#include <utility>

std::optional<AppWindow> frontWindow(const QList<AppWindow> &windows)
{
    const auto weight = [](const AppWindow &window) {
        return std::pair(window.fullScreen, qint64(window.geometry.width()) * window.geometry.height());
    };
    std::optional<AppWindow> front;
    for (const AppWindow &window : windows) {
        if (window.kind != WindowKind::normal || window.transientFor != 0 || window.geometry.isEmpty()) continue;
        if (!front || weight(window) > weight(*front)) front = window;
    }
    return front;
}
