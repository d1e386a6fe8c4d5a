#pragma once

#include "play/PadEvent.h"

#include <QObject>
#include <QPointer>
#include <QVariantList>
#include <qqmlregistration.h>

class InputMode;
class PadSurface;
class QQuickItem;
class QQuickWindow;
class Translator;

/// Drives a window by a controller: directions, A and B are the same moves as the keyboard's, the other buttons are for
/// the innermost item around the focus that has a use for them.
class PadNavigation : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("one for each window")
    Q_PROPERTY(QVariantList hints READ hints NOTIFY hintsChanged)
public:
    PadNavigation(QQuickWindow *window, InputMode &input, const Translator &translator);

    void handle(PadEvent event);
    /// What the buttons do right now, for `HintBar`; at most five. Empty unless a controller is in use.
    QVariantList hints() const { return m_hints; }

signals:
    void hintsChanged();

private:
    bool press(int key);
    void act(PadEvent event);
    template <class... Arguments>
    void send(void (PadSurface::*signal)(Arguments...), Arguments... arguments);
    QString textOf(QString PadSurface::*text) const;
    QString confirmText() const;
    void announceLater();
    void announce();

    QPointer<QQuickWindow> m_window;
    InputMode &m_input;
    const Translator &m_translator;
    QVariantList m_hints;
    bool m_announcing = false;
};
