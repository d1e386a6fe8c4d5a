#pragma once

#include "platform/linux/Descriptor.h"

#include <QSocketNotifier>
#include <QString>
#include <functional>
#include <memory>

/// A second look at a controller's device file, only to hear that there is something to read elsewhere. It costs
/// nothing while the controller lies still. Movements of thumbsticks, which no one waits for here, do not ring where
/// the kernel can leave them out.
class DoorBell {
public:
    /// `rung` may destroy the bell.
    DoorBell(const QString &device, std::function<void()> rung);

    bool works() const { return m_notifier != nullptr; } ///< false: the file cannot be opened, or is gone
    void mute(bool muted);
    bool takeAll(); ///< reads what is there; whether there was something, the device's end included

private:
    /// It may be the one that is ringing now.
    struct AfterItsCall {
        void operator()(QSocketNotifier *notifier) const;
    };

    Descriptor m_file;
    std::unique_ptr<QSocketNotifier, AfterItsCall> m_notifier;
};
