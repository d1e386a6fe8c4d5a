#include "ui/focus/PadNavigation.h"

#include "app/Translator.h"
#include "ui/focus/InputMode.h"
#include "ui/focus/PadSurface.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QQuickItem>
#include <QQuickWindow>

using namespace Qt::StringLiterals;

static constexpr int mostHints = 5;

PadNavigation::PadNavigation(QQuickWindow *window, InputMode &input, const Translator &translator)
    : QObject(window), m_window(window), m_input(input), m_translator(translator)
{
    setObjectName(u"padNavigation"_s);
    connect(window, &QQuickWindow::activeFocusItemChanged, this, &PadNavigation::announceLater);
    connect(&input, &InputMode::changed, this, &PadNavigation::announce);
    // What changes what a button does shows: a game has started, a heart has gone.
    connect(window, &QQuickWindow::frameSwapped, this, &PadNavigation::announceLater);
}

void PadNavigation::handle(PadEvent event)
{
    if (!m_window) return;
    m_input.asPad([this, event] { act(event); });
    announceLater();
}

void PadNavigation::act(PadEvent event)
{
    switch (event) {
    case PadEvent::left:
        press(Qt::Key_Left);
        break;
    case PadEvent::right:
        press(Qt::Key_Right);
        break;
    case PadEvent::up:
        press(Qt::Key_Up);
        break;
    case PadEvent::down:
        press(Qt::Key_Down);
        break;
    case PadEvent::confirm:
        press(Qt::Key_Return);
        break;
    case PadEvent::back:
        if (!press(Qt::Key_Back)) press(Qt::Key_Escape);
        break;
    case PadEvent::favorite:
        send(&PadSurface::favoritePressed);
        break;
    case PadEvent::details:
        send(&PadSurface::detailsPressed);
        break;
    case PadEvent::prevShelf:
        send(&PadSurface::tabPressed, -1);
        break;
    case PadEvent::nextShelf:
        send(&PadSurface::tabPressed, 1);
        break;
    case PadEvent::prevGame:
        send(&PadSurface::gamePressed, -1);
        break;
    case PadEvent::nextGame:
        send(&PadSurface::gamePressed, 1);
        break;
    case PadEvent::menu:
        send(&PadSurface::menuPressed);
        break;
    case PadEvent::guide:
        break; // has a receiver of its own
    }
}

/// Whether someone had a use for it.
bool PadNavigation::press(int key)
{
    QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(m_window, &down);
    QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier);
    QCoreApplication::sendEvent(m_window, &up);
    return down.isAccepted();
}

/// To the innermost surface around the focus that listens.
template <class... Arguments>
void PadNavigation::send(void (PadSurface::*signal)(Arguments...), Arguments... arguments)
{
    for (QQuickItem *item = m_window->activeFocusItem(); item; item = item->parentItem()) {
        PadSurface *there = PadSurface::of(item);
        if (there && there->hears(QMetaMethod::fromSignal(signal))) return emit(there->*signal)(arguments...);
    }
}

/// Of the innermost surface around the focus that says something there.
QString PadNavigation::textOf(QString PadSurface::*text) const
{
    for (QQuickItem *item = m_window->activeFocusItem(); item; item = item->parentItem()) {
        const PadSurface *there = PadSurface::of(item);
        if (there && !(there->*text).isEmpty()) return there->*text;
    }
    return {};
}

/// What A does to the focused control, by its own words or by its kind. Empty: nothing.
QString PadNavigation::confirmText() const
{
    for (QQuickItem *item = m_window->activeFocusItem(); item; item = item->parentItem()) {
        const PadSurface *there = PadSurface::of(item);
        if (there && !there->confirm.isEmpty()) return there->confirm;
        if (!item->activeFocusOnTab()) continue;
        const bool emptyList = item->property("count") == QVariant(0);
        if (emptyList || item->property("available") == QVariant(false)) return {};
        const bool changes = item->property("role").toInt() == QAccessible::CheckBox;
        return m_translator.translate(changes ? u"Change"_s : u"Choose"_s);
    }
    return {};
}

/// Focus passes through in-between states, and what a press changes changes a moment later.
void PadNavigation::announceLater()
{
    if (m_announcing || m_input.name() != "pad"_L1) return;
    m_announcing = true;
    QMetaObject::invokeMethod(this, &PadNavigation::announce, Qt::QueuedConnection);
}

void PadNavigation::announce()
{
    m_announcing = false;
    QVariantList list;
    const auto add = [&list](const QStringList &glyphs, const QString &text) {
        if (!text.isEmpty()) list += QVariantMap{{u"glyphs"_s, glyphs}, {u"text"_s, text}};
    };
    if (m_window && m_input.name() == "pad"_L1) {
        add({u"dpad"_s}, m_translator.translate(u"Move with the D-pad"_s));
        add({u"a"_s}, confirmText());
        add({u"x"_s}, textOf(&PadSurface::details));
        add({u"y"_s}, textOf(&PadSurface::favorite));
        const QString games = textOf(&PadSurface::games);
        if (games.isEmpty())
            add({u"lb"_s, u"rb"_s}, textOf(&PadSurface::tabs));
        else
            add({u"lt"_s, u"rt"_s}, games);
        add({u"b"_s}, textOf(&PadSurface::back));
        if (list.size() > mostHints) list.removeFirst(); // everyone finds the D-pad
        if (list.size() < mostHints) add({u"menu"_s}, textOf(&PadSurface::menu));
    }
    if (list == m_hints) return;
    m_hints = list;
    emit hintsChanged();
}
