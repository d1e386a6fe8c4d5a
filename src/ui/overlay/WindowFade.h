#pragma once

#include <QEasingCurve>
#include <QVariantAnimation>
#include <functional>

class QWindow;

/// Lets a window come and go softly. The desktop blends it, so the window itself draws nothing for it; a desktop that
/// composes no windows gets it at once. The window outlives the fade.
class WindowFade {
public:
    explicit WindowFade(QWindow &window, QEasingCurve::Type easing = QEasingCurve::OutCubic);

    struct Time {
        int milliseconds = 0;
        bool composed = false; ///< the desktop can do it
    };
    void come(Time time); ///< shows the window, also one that is going
    void go(Time time, std::function<void()> gone = {}); ///< hides the window in the end
    bool isGoing() const { return m_going; }

private:
    void fade(Time time, double to);
    void arrived();

    QWindow &m_window;
    QVariantAnimation m_animation;
    std::function<void()> m_gone;
    bool m_going = false;
};
