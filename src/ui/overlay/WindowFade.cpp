#include "ui/overlay/WindowFade.h"

#include <QWindow>
#include <utility>

WindowFade::WindowFade(QWindow &window, QEasingCurve::Type easing) : m_window(window)
{
    m_animation.setEasingCurve(easing);
    QObject::connect(&m_animation, &QVariantAnimation::valueChanged, &m_animation,
                     [this](const QVariant &opacity) { m_window.setOpacity(opacity.toDouble()); });
    QObject::connect(&m_animation, &QVariantAnimation::finished, &m_animation, [this] { arrived(); });
}

void WindowFade::come(Time time)
{
    const bool hidden = !m_window.isVisible();
    if (!hidden && !m_going) return;
    if (hidden) m_window.setOpacity(time.composed && time.milliseconds > 0 ? 0 : 1);
    m_going = false;
    m_window.show();
    fade(time, 1);
}

void WindowFade::go(Time time, std::function<void()> gone)
{
    if (!m_window.isVisible() || m_going) return;
    m_going = true;
    m_gone = std::move(gone);
    fade(time, 0);
}

void WindowFade::fade(Time time, double to)
{
    m_animation.stop();
    if (!time.composed || time.milliseconds == 0) {
        m_window.setOpacity(1);
        return arrived();
    }
    m_animation.setStartValue(m_window.opacity());
    m_animation.setEndValue(to);
    m_animation.setDuration(time.milliseconds);
    m_animation.start();
}

void WindowFade::arrived()
{
    if (!std::exchange(m_going, false)) return;
    m_window.hide();
    if (const auto gone = std::exchange(m_gone, nullptr)) gone();
}
