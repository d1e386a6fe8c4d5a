#include "ui/focus/InputMode.h"

#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QWindow>

using namespace Qt::StringLiterals;

InputMode::InputMode(QWindow *window) : QObject(window)
{
    window->installEventFilter(this);
}

void InputMode::set(const QString &name)
{
    if (name == m_name) return;
    m_name = name;
    emit changed();
}

void InputMode::asPad(const std::function<void()> &act)
{
    const QScopedValueRollback acting(m_padActs, true);
    set(u"pad"_s);
    act();
}

bool InputMode::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
        set(m_padActs ? u"pad"_s : u"keyboard"_s);
        break;
    case QEvent::MouseButtonPress:
    case QEvent::Wheel:
    case QEvent::TouchBegin:
        set(u"pointer"_s);
        break;
    case QEvent::MouseMove: {
        // A window that moves under a resting pointer also reports movement: the same place is none.
        const QPointF place = static_cast<QMouseEvent *>(event)->globalPosition();
        if (m_pointer != QPointF(-1, -1) && place != m_pointer) set(u"pointer"_s);
        m_pointer = place;
        break;
    }
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}
