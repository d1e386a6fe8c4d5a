#pragma once

#include "platform/Windows.h"

#include <QSet>
#include <functional>
#include <utility>
#include <vector>

/// Windows and displays that exist only in these lists. Commands are carried out at once, but where a test says
/// otherwise.
class FakeWindows final : public Windows {
public:
    bool available = true;
    QList<Monitor> connected{{QStringLiteral("LEFT"), {0, 0, 1920, 1080}, true}};
    QList<AppWindow> windows; ///< of all programs, the oldest first
    quint64 active = 0;
    bool composed = false;
    bool choosesDisplay = true; ///< full screen goes to the display that is asked for, else to the window's own
    QSet<quint64> unmovable, neverFull, unclosable; ///< windows that ignore these commands
    QList<quint64> closeRequests;
    bool late = false; ///< moves and full screen wait for `carryOut`

    bool isAvailable() const override { return available; }
    QList<Monitor> displays() const override { return available ? connected : QList<Monitor>(); }
    QList<AppWindow> windowsOf(const QList<qint64> &pids) const override
    {
        QList<AppWindow> all = available ? windows : QList<AppWindow>();
        all.removeIf([&](const AppWindow &each) { return !pids.contains(each.pid); });
        return all;
    }
    std::optional<AppWindow> activeWindow() const override
    {
        for (const AppWindow &each : windows) {
            if (each.id == active) return each;
        }
        return {};
    }

    bool isComposed() const override { return composed; }

    void move(quint64 window, const QRect &place) override
    {
        if (late) return m_waiting.push_back([=, this] { move(window, place); });
        AppWindow *moved = find(window);
        if (!moved || unmovable.contains(window)) return;
        moved->fullScreen = false;
        moved->geometry = place;
    }
    void setFullScreen(quint64 window, bool fullScreen, int display) override
    {
        if (late) return m_waiting.push_back([=, this] { setFullScreen(window, fullScreen, display); });
        AppWindow *changed = find(window);
        if (!changed || neverFull.contains(window)) return;
        changed->fullScreen = fullScreen;
        if (!fullScreen) return;
        const int own = displayOf(changed->geometry);
        changed->geometry = connected.value(choosesDisplay ? display : own, connected.value(own)).geometry;
    }
    bool haveLayers() const override { return true; }
    void activate(quint64 window) override
    {
        if (find(window)) becomeActive(window);
    }
    void requestClose(quint64 window) override
    {
        if (!find(window)) return;
        closeRequests += window;
        if (!unclosable.contains(window)) close(window);
    }

    void carryOut()
    {
        const bool wasLate = std::exchange(late, false);
        for (const auto &command : std::exchange(m_waiting, {}))
            command();
        late = wasLate;
    }
    AppWindow *find(quint64 window)
    {
        for (AppWindow &each : windows) {
            if (each.id == window) return &each;
        }
        return nullptr;
    }
    void close(quint64 window)
    {
        windows.removeIf([window](const AppWindow &each) { return each.id == window; });
        if (active == window) becomeActive(0);
    }
    void becomeActive(quint64 window)
    {
        if (active == window) return;
        active = window;
        emit activeChanged();
    }
    void connectDisplays(const QList<Monitor> &now)
    {
        connected = now;
        emit displaysChanged();
    }

private:
    int displayOf(const QRect &geometry) const
    {
        for (int i = 0; i < connected.size(); ++i) {
            if (connected[i].geometry.contains(geometry.center())) return i;
        }
        return 0;
    }

    std::vector<std::function<void()>> m_waiting;
};
