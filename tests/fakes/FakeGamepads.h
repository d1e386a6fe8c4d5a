#pragma once

#include "platform/Gamepads.h"

#include <set>
#include <utility>

/// Controllers that a test plugs in and whose buttons it presses.
class FakeGamepads final : public Gamepads {
public:
    QList<Pad> plugged;
    std::set<std::pair<int, PadButton>> held;

    void start() override { }
    Result<void> attachVirtual(const QString &) override { return {}; }
    QList<Pad> pads() const override { return plugged; }
    bool isHeld(int pad, PadButton button) const override { return held.contains({pad, button}); }

    int plugIn(const QString &name = QStringLiteral("Pad"), bool standard = true)
    {
        plugged += Pad{++m_last, name, standard};
        emit connected(plugged.last());
        return m_last;
    }
    void unplug(int pad)
    {
        for (const auto &[holder, button] : std::set(held))
            if (holder == pad) release(button, pad);
        plugged.removeIf([pad](const Pad &p) { return p.id == pad; });
        emit disconnected(pad);
    }
    void press(PadButton button, int pad = 1)
    {
        held.insert({pad, button});
        emit pressed(pad, button);
    }
    void release(PadButton button, int pad = 1)
    {
        held.erase({pad, button});
        emit released(pad, button);
    }
    void tap(PadButton button, int pad = 1)
    {
        press(button, pad);
        release(button, pad);
    }

private:
    int m_last = 0;
};
