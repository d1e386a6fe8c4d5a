#include "ui/focus/FocusKeeper.h"

#include "ui/focus/FocusMoves.h"

#include <QQuickWindow>
#include <utility>

/// A list is entered as a whole but left from its current item.
static QRectF placeInWindow(QQuickItem *item)
{
    auto *current = item->property("currentItem").value<QQuickItem *>();
    if (current) item = current;
    return item->mapRectToScene(QRectF(0, 0, item->width(), item->height()));
}

/// The control that the focused item is or belongs to: a list gives the focus on to its current row.
static QQuickItem *controlOf(QQuickItem *item)
{
    while (item && !item->activeFocusOnTab())
        item = item->parentItem();
    return item;
}

static void collectControls(QQuickItem *item, QList<QQuickItem *> &controls)
{
    if (!item->isVisible() || !item->isEnabled()) return;
    if (item->activeFocusOnTab() && item->width() > 0) controls += item;
    const auto children = item->childItems();
    for (QQuickItem *child : children)
        collectControls(child, controls);
}

static QList<QQuickItem *> controlsOf(QQuickItem *root)
{
    QList<QQuickItem *> controls;
    collectControls(root, controls);
    return controls;
}

static QList<QRectF> whole(const QList<QQuickItem *> &controls)
{
    QList<QRectF> places;
    for (QQuickItem *item : controls)
        places += item->mapRectToScene(QRectF(0, 0, item->width(), item->height()));
    return places;
}

/// The bar around an item, which says where the focus enters it and where it goes to from there; null: none.
static QQuickItem *barAround(QQuickItem *item)
{
    while (item && !item->property("focusEntry").isValid())
        item = item->parentItem();
    return item;
}

FocusKeeper::FocusKeeper(QQuickWindow *window) : QObject(window), m_window(window)
{
    connect(window, &QQuickWindow::activeFocusItemChanged, this, &FocusKeeper::focusChanged);
    // What appears on a page is drawn.
    connect(window, &QQuickWindow::frameSwapped, this, &FocusKeeper::leaveBar, Qt::QueuedConnection);
}

// Qt leaves the focus on an item that is hidden.
void FocusKeeper::focusChanged()
{
    if (m_watched) m_watched->disconnect(this);
    m_watched = m_window->activeFocusItem();
    if (m_watched != m_parked) m_parked.clear();
    if (m_watched) {
        connect(m_watched, &QQuickItem::visibleChanged, this, &FocusKeeper::checkSoon);
        connect(m_watched, &QQuickItem::enabledChanged, this, &FocusKeeper::checkSoon);
    }
    checkSoon();
}

// Focus passes through in-between states while a page is taken down and another put up.
void FocusKeeper::checkSoon()
{
    if (!std::exchange(m_checking, true)) QMetaObject::invokeMethod(this, &FocusKeeper::check, Qt::QueuedConnection);
}

void FocusKeeper::check()
{
    m_checking = false;
    if (!m_window) return;
    QQuickItem *item = m_window->activeFocusItem();
    QQuickItem *control = controlOf(item);
    if (control && control->isVisible() && control->isEnabled()) {
        m_last = placeInWindow(control);
        return;
    }
    auto controls = item ? controlsOf(item) : QList<QQuickItem *>();
    if (controls.isEmpty()) controls = controlsOf(m_window->contentItem());
    const auto index = nearest(m_last, whole(controls));
    if (!index) return;
    QQuickItem *target = controls[*index];
    QQuickItem *bar = barAround(target);
    // A page without a control leaves the focus to the bar: at its current tab, wherever the focus was before.
    auto *entry = bar && bar != barAround(item) ? bar->property("focusEntry").value<QQuickItem *>() : nullptr;
    m_lost = m_last;
    focus(entry ? entry : target);
    if (bar && bar != barAround(item)) m_parked = m_window->activeFocusItem();
}

/// Back to a page whose controls were gone for a while.
void FocusKeeper::leaveBar()
{
    if (!m_window || !m_parked || m_parked != m_window->activeFocusItem()) return;
    QQuickItem *bar = barAround(m_parked);
    auto controls = controlsOf(m_window->contentItem());
    controls.removeIf([bar](QQuickItem *other) { return barAround(other) == bar; });
    if (controls.isEmpty()) return;
    // To the place that the page itself gives it; a page that has none gives it to the nearest control.
    if (auto *page = bar->property("focusExit").value<QQuickItem *>()) {
        m_last = m_lost;
        focus(page);
    } else {
        focus(controls[*nearest(m_lost, whole(controls))]);
    }
}

/// What lies wholly above or below on the page comes before the bar at its edge, which is often nearer.
static void stayOnPage(QList<QQuickItem *> &controls, const QRectF &from, int key)
{
    QList<QQuickItem *> onPage = controls;
    onPage.removeIf([&](QQuickItem *other) {
        const QQuickItem *bar = barAround(other);
        if (bar && bar->property("focusExit").isValid()) return true;
        const QRectF place = other->mapRectToScene(QRectF(0, 0, other->width(), other->height()));
        return key == Qt::Key_Up ? place.bottom() > from.top() + 1 : place.top() < from.bottom() - 1;
    });
    if (!onPage.isEmpty()) controls = onPage;
}

bool FocusKeeper::move(int key)
{
    QQuickItem *item = m_window ? controlOf(m_window->activeFocusItem()) : nullptr;
    if (!item) return false;
    auto controls = controlsOf(m_window->contentItem());
    controls.removeOne(item);
    QQuickItem *bar = barAround(item);
    const QRectF from = placeInWindow(item);
    if (key == Qt::Key_Left || key == Qt::Key_Right)
        controls.removeIf([bar](QQuickItem *other) { return barAround(other) != bar; });
    else
        stayOnPage(controls, from, key);
    const Direction direction = key == Qt::Key_Up ? Direction::up
        : key == Qt::Key_Down                     ? Direction::down
        : key == Qt::Key_Left                     ? Direction::left
                                                  : Direction::right;
    const auto index = nextInDirection(from, whole(controls), direction);
    if (!index) return false;
    QQuickItem *target = controls[*index];
    QQuickItem *next = barAround(target);
    if (bar != next) {
        // Into the bar: to its current tab. Out of it: back to where the page was left.
        const QVariant place = next ? next->property("focusEntry") : bar->property("focusExit");
        if (auto *there = place.value<QQuickItem *>()) target = there;
    }
    focus(target);
    return true;
}

void FocusKeeper::focus(QQuickItem *item)
{
    item->forceActiveFocus(Qt::TabFocusReason);
}

qreal FocusKeeper::revealed(QQuickItem *view, QQuickItem *content, qreal position, qreal margin) const
{
    QQuickItem *item = m_window ? m_window->activeFocusItem() : nullptr;
    if (!item || !content->isAncestorOf(item)) return position;
    const QRectF place = item->mapRectToItem(content, QRectF(0, 0, item->width(), item->height()));
    const qreal room = content->height() - view->height();
    if (room <= 0) return position;
    if (place.bottom() + margin > position + view->height()) position = place.bottom() + margin - view->height();
    if (place.top() - margin < position) position = place.top() - margin;
    return qBound(0.0, position, room);
}
