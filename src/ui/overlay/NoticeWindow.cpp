#include "ui/overlay/NoticeWindow.h"

#include "ui/overlay/NoticeFacts.h"
#include "ui/overlay/OverlaySurface.h"

#include <QQuickItem>
#include <QScreen>
#include <cmath>

using namespace Qt::StringLiterals;

static constexpr int comesIn = 220, goesIn = 160; // milliseconds
static constexpr int fromRight = 24, fromTop = 40;

NoticeWindow::NoticeWindow(QQmlEngine &engine, NoticeFacts &facts) : m_view(&engine, nullptr)
{
    m_view.setFlags(overGame);
    m_view.setColor(Qt::transparent); // asks for a window that can be blended
    m_view.setResizeMode(QQuickView::SizeViewToRootObject);
    loadOverlay(m_view, u"NoticePanel.qml"_s, {{u"facts"_s, QVariant::fromValue(&facts)}});
}

/// The pixels of a rounded rectangle that are covered at least by half.
static QRegion rounded(const QSize &size, double radius)
{
    QRegion region;
    for (int y = 0; y < size.height(); ++y) {
        const double outside = qMax(0.0, radius - qMin(y + 0.5, size.height() - y - 0.5)); // above the corner's centre
        const int inset = qRound(radius - std::sqrt(radius * radius - outside * outside));
        region += QRect(inset, y, size.width() - 2 * inset, 1);
    }
    return region;
}

/// Rows and columns lay their items out only before they are drawn, which is too late for the window's size.
static void layOut(QQuickItem *item)
{
    const auto children = item->childItems();
    for (QQuickItem *child : children)
        layOut(child);
    item->ensurePolished();
}

void NoticeWindow::place(const QScreen &screen, bool composed)
{
    QQuickItem *panel = m_view.rootObject();
    layOut(panel);
    const QSize size = panel->size().toSize();
    const QRect display = screen.geometry();
    const double u = overlayScale(display.size());
    const QPoint corner(display.right() + 1 - qRound(fromRight * u), display.top() + qRound(fromTop * u));
    m_view.setGeometry(QRect(corner - panel->property("card").toRectF().topRight().toPoint(), size));
    m_view.setMask(composed ? QRegion() : rounded(size, panel->property("radius").toReal()));
}

void NoticeWindow::show(QScreen &screen, bool composed, bool clickable)
{
    m_view.setFlag(Qt::WindowTransparentForInput, !clickable);
    m_view.rootObject()->setProperty("blended", composed);
    m_view.setColor(composed ? QColor(Qt::transparent) : m_view.rootObject()->property("ground").value<QColor>());
    m_view.setScreen(&screen);
    place(screen, composed);
    m_fade.come({comesIn, composed});
    m_view.raise();
}

void NoticeWindow::hide(bool composed, const std::function<void()> &gone)
{
    m_fade.go({goesIn, composed}, gone);
}
