#include "ui/focus/PointerHider.h"

#include <QCursor>
#include <QGuiApplication>
#include <QMouseEvent>

PointerHider::~PointerHider()
{
    show();
}

void PointerHider::hide()
{
    if (m_hidden) return;
    m_hidden = true;
    m_place = QCursor::pos();
    QGuiApplication::setOverrideCursor(Qt::BlankCursor);
    qApp->installEventFilter(this);
}

void PointerHider::show()
{
    if (!m_hidden) return;
    m_hidden = false;
    QGuiApplication::restoreOverrideCursor();
    qApp->removeEventFilter(this);
}

bool PointerHider::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::Wheel:
        show();
        break;
    case QEvent::MouseMove:
        // A window that appears below a resting pointer also reports a movement, to where the pointer is.
        if (static_cast<QMouseEvent *>(event)->globalPosition().toPoint() != m_place) show();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}
