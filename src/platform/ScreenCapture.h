#pragma once

#include <QImage>
#include <QRect>

/// Pictures of what is on the screen, in its pixels. Null when the desktop refuses. A window that another one covers
/// shows what covers it, unless the desktop composes windows. Main thread only, 15 to 150 ms.
class ScreenCapture {
public:
    virtual ~ScreenCapture() = default;
    virtual QImage window(quint64 id) = 0;
    virtual QImage screen(const QRect &place) = 0; ///< in the coordinates of `Monitor::geometry`
};
