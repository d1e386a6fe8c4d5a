#pragma once

#include "platform/Clock.h"
#include "platform/Gamepads.h"
#include "play/PadEvent.h"

#include <functional>
#include <optional>

/// Turns the buttons of all controllers into navigation events and gives each event to exactly one receiver. There is
/// one for the whole run. The surface that has the controller puts its callbacks in; an unset one is skipped, and a
/// callback may replace or clear any of them, itself too. Main thread only; controllers and clock outlive it.
class ControllerInput : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString controllerName READ controllerName NOTIFY controllerNameChanged)
public:
    ControllerInput(Gamepads &gamepads, Clock &clock, QObject *parent = nullptr);

    /// Of the controller connected last, after a disconnection of the first that is left. Empty: none.
    QString controllerName() const { return m_controllerName; }

    std::function<void(PadEvent)> onEvent; ///< the surface in front: main window or Big Picture
    std::function<bool()> acceptsInBackground; ///< true: Velko comes to the front and takes the event; unset: dropped
    std::function<void(PadEvent)> overlayHandler; ///< takes everything but `guide` in place of `onEvent`
    std::function<void()> onGuide;
    std::function<void()> onChordBegun; ///< View went down, and Menu may follow
    std::function<void()> onShare;
    bool hidesCursor = false; ///< each event hides the pointer until it moves, while Velko is the active program
    std::function<void()> onAnyInput; ///< before each event but `guide` is delivered
    std::function<bool()> onCancelLaunch; ///< asked first for `back`; true: a game's start was cancelled with it

    // What the program that is driven can say and do.
    std::function<bool()> isActive; ///< one of Velko's windows has the keyboard; unset: none has
    std::function<void()> activate; ///< brings Velko to the front
    std::function<void()> hidePointer; ///< until the mouse moves

signals:
    void controllerNameChanged();

private:
    void configureController(const Pad &pad);
    void disconnected();
    void pressed(int pad, PadButton button);
    void released(int pad, PadButton button);
    bool isStandard(int pad) const;
    void name(const QString &controller);
    void hold(PadEvent direction);
    void letGo(PadEvent direction);
    void dispatch(PadEvent event);

    Gamepads &m_gamepads;
    Clock &m_clock;
    QString m_controllerName;
    std::optional<PadEvent> m_heldDirection;
    Timer m_repeatTimer;
};
