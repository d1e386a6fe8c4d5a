#pragma once

#include "platform/Clock.h"
#include "platform/ScreenCapture.h"
#include "platform/Windows.h"

#include <optional>

/// Takes the picture of a game that stands still, without the notice that lies over it. Main thread only.
class GamePicture {
public:
    GamePicture(ScreenCapture &capture, const Windows &windows, const Clock &clock)
        : m_capture(capture), m_windows(windows), m_clock(clock)
    { }

    void noticeComes(const QRect &place); ///< on the screen
    void noticeGoes() { m_noticeGone = m_clock.awake(); }

    /// The whole display, with what lies around a game in a window. Where the desktop gives only windows, the game's
    /// alone. Null when there is none to be had.
    QImage take(const QRect &display, const std::optional<AppWindow> &game);

private:
    bool isCovered();

    ScreenCapture &m_capture;
    const Windows &m_windows;
    const Clock &m_clock;
    QRect m_notice; ///< where it lies, or lay a moment ago; empty: nowhere
    std::optional<std::chrono::milliseconds> m_noticeGone;
};
