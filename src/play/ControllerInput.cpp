#include "play/ControllerInput.h"

#include <algorithm>
#include <type_traits>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

static std::optional<PadEvent> directionOf(PadButton button)
{
    switch (button) {
    case PadButton::dpadLeft:
        return PadEvent::left;
    case PadButton::dpadRight:
        return PadEvent::right;
    case PadButton::dpadUp:
        return PadEvent::up;
    case PadButton::dpadDown:
        return PadEvent::down;
    default:
        return {};
    }
}

/// The events of the buttons that mean the same whatever else is held.
static std::optional<PadEvent> eventOf(PadButton button)
{
    switch (button) {
    case PadButton::a:
        return PadEvent::confirm;
    case PadButton::b:
        return PadEvent::back;
    case PadButton::y:
        return PadEvent::favorite;
    case PadButton::x:
        return PadEvent::details;
    case PadButton::leftShoulder:
        return PadEvent::prevShelf;
    case PadButton::rightShoulder:
        return PadEvent::nextShelf;
    case PadButton::leftTrigger:
        return PadEvent::prevGame;
    case PadButton::rightTrigger:
        return PadEvent::nextGame;
    default:
        return {};
    }
}

/// A copy is called, since a callback may clear or replace itself.
template <class Result, class... Arguments>
static Result call(std::function<Result(Arguments...)> callback, std::type_identity_t<Arguments>... arguments)
{
    return callback ? callback(arguments...) : Result();
}

ControllerInput::ControllerInput(Gamepads &gamepads, Clock &clock, QObject *parent)
    : QObject(parent), m_gamepads(gamepads), m_clock(clock)
{
    connect(&gamepads, &Gamepads::connected, this, &ControllerInput::configureController);
    connect(&gamepads, &Gamepads::disconnected, this, &ControllerInput::disconnected);
    connect(&gamepads, &Gamepads::pressed, this, &ControllerInput::pressed);
    connect(&gamepads, &Gamepads::released, this, &ControllerInput::released);
    for (const Pad &pad : gamepads.pads())
        configureController(pad);
}

void ControllerInput::configureController(const Pad &pad)
{
    name(pad.name.isEmpty() ? u"Controller"_s : pad.name);
}

void ControllerInput::disconnected()
{
    const auto left = m_gamepads.pads();
    name(left.isEmpty() ? QString() : left.first().name);
}

void ControllerInput::name(const QString &controller)
{
    if (controller == m_controllerName) return;
    m_controllerName = controller;
    emit controllerNameChanged();
}

bool ControllerInput::isStandard(int pad) const
{
    const auto pads = m_gamepads.pads();
    return std::any_of(pads.begin(), pads.end(), [pad](const Pad &p) { return p.id == pad && p.standard; });
}

void ControllerInput::pressed(int pad, PadButton button)
{
    if (!isStandard(pad)) return;
    if (const auto direction = directionOf(button)) return hold(*direction);
    if (const auto event = eventOf(button)) return dispatch(*event);
    // The chord has no order and no time limit: what counts is whether the other button is down now.
    if (button == PadButton::menu)
        dispatch(m_gamepads.isHeld(pad, PadButton::view) ? PadEvent::guide : PadEvent::menu);
    else if (button == PadButton::view)
        m_gamepads.isHeld(pad, PadButton::menu) ? dispatch(PadEvent::guide) : call(onChordBegun);
    else if (button == PadButton::share)
        call(onShare);
}

void ControllerInput::released(int, PadButton button)
{
    if (const auto direction = directionOf(button)) letGo(*direction);
}

void ControllerInput::hold(PadEvent direction)
{
    m_heldDirection = direction;
    m_repeatTimer = m_clock.after(380ms, [this, direction] {
        if (m_heldDirection != direction) return;
        m_repeatTimer = m_clock.every(110ms, [this] {
            if (m_heldDirection) dispatch(*m_heldDirection);
        });
        dispatch(direction);
    });
    dispatch(direction);
}

void ControllerInput::letGo(PadEvent direction)
{
    if (m_heldDirection != direction) return;
    m_heldDirection.reset();
    m_repeatTimer.reset();
}

void ControllerInput::dispatch(PadEvent event)
{
    if (hidesCursor && call(isActive)) call(hidePointer);
    if (event == PadEvent::guide) return call(onGuide);
    call(onAnyInput);
    if (event == PadEvent::back && call(onCancelLaunch)) return;
    if (overlayHandler) return call(overlayHandler, event);
    if (!call(isActive)) {
        if (!call(acceptsInBackground)) return;
        call(activate);
    }
    call(onEvent, event);
}
