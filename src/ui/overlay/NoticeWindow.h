#pragma once

#include "ui/overlay/WindowFade.h"

#include <QQuickView>

class NoticeFacts;

/// The small window with a notice, at the top right of the game's display. A desktop that composes windows shows it
/// with its shadow, and it comes and goes softly; elsewhere it is cut out, which is sharp, since what moves below it
/// can't be blended with it. Once shown it draws nothing, unless something is being waited for.
class NoticeWindow {
public:
    NoticeWindow(QQmlEngine &engine, NoticeFacts &facts);

    void show(QScreen &screen, bool composed, bool clickable);
    void hide(bool composed, const std::function<void()> &gone);
    QQuickView &view() { return m_view; }

private:
    void place(const QScreen &screen, bool composed);

    QQuickView m_view;
    WindowFade m_fade{m_view};
};
