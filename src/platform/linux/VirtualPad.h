#pragma once

#include "base/Result.h"
#include "platform/Gamepads.h"
#include "platform/linux/Descriptor.h"

#include <QByteArray>
#include <QSocketNotifier>
#include <functional>
#include <memory>

/// What one line asks of the virtual controller. "press A" is a press and a release.
struct PadCommand {
    enum class Kind { press, hold, release, plugIn, unplug };
    Kind kind = Kind::press;
    PadButton button = PadButton::a; ///< of the first three
    bool operator==(const PadCommand &) const = default;
};

/// "press A", "hold View", "release View", "unplug", "plug"; upper and lower case are the same. Nothing for other
/// lines.
std::optional<PadCommand> parsePadCommand(const QByteArray &line);

/// A named pipe whose lines are commands for a controller without hardware. Writers may come and go.
class CommandPipe {
public:
    /// Makes the pipe where there is nothing yet. Lines that are no command are left out and named in the log.
    static Result<std::unique_ptr<CommandPipe>> open(const QString &path, std::function<void(PadCommand)> command);

private:
    CommandPipe(Descriptor pipe, std::function<void(PadCommand)> command);
    void read();
    void take(const QByteArray &line);

    Descriptor m_pipe;
    std::function<void(PadCommand)> m_command;
    QByteArray m_line; ///< its beginning, as long as its end is missing
    int m_refused = 0;
    QSocketNotifier m_notifier;
};
