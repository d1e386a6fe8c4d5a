#pragma once

#include <QObject>
#include <QPointer>
#include <QQuickItem>
#include <QRectF>
#include <qqmlregistration.h>

/// Keeps exactly one control of a window in focus: moves it by arrow keys to the nearest control, and gives it to the
/// nearest neighbour when the control that had it is gone, hidden or disabled. Controls are the items that Tab reaches.
class FocusKeeper : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("one for each window")
public:
    explicit FocusKeeper(QQuickWindow *window);

    /// An arrow key; false at the edge. Left and right stay inside an item that has a `focusEntry`, such as a bar; up
    /// and down enter it there and leave it to its `focusExit`. One that has a `focusExit` lies at the page's edge and
    /// is entered last.
    Q_INVOKABLE bool move(int key);
    /// The scroll position at which the focused control is wholly visible in this view, or where it stands already.
    Q_INVOKABLE qreal revealed(QQuickItem *view, QQuickItem *content, qreal position, qreal margin) const;

private:
    void focusChanged();
    void checkSoon();
    void check();
    void leaveBar();
    void focus(QQuickItem *item);

    QPointer<QQuickWindow> m_window;
    QPointer<QQuickItem> m_watched; ///< the item in focus, which may be hidden where it is
    QRectF m_last; ///< where the focus was, in the window
    QPointer<QQuickItem> m_parked; ///< in a bar: has the focus until the page has a control again
    QRectF m_lost; ///< where the page's last control was
    bool m_checking = false;
};
