#include "platform/linux/VirtualPad.h"

#include <QDebug>
#include <QFile>

#include <array>
#include <fcntl.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

static constexpr qsizetype longestLine = 64;
static constexpr int mostComplaints = 20; ///< in the log

static std::optional<PadButton> buttonNamed(const QByteArray &name)
{
    static constexpr std::pair<const char *, PadButton> names[] = {
        {"left", PadButton::dpadLeft},
        {"right", PadButton::dpadRight},
        {"up", PadButton::dpadUp},
        {"down", PadButton::dpadDown},
        {"a", PadButton::a},
        {"b", PadButton::b},
        {"x", PadButton::x},
        {"y", PadButton::y},
        {"lb", PadButton::leftShoulder},
        {"rb", PadButton::rightShoulder},
        {"lt", PadButton::leftTrigger},
        {"rt", PadButton::rightTrigger},
        {"view", PadButton::view},
        {"menu", PadButton::menu},
        {"share", PadButton::share},
        {"ls", PadButton::leftStick},
        {"rs", PadButton::rightStick},
    };
    for (const auto &[known, button] : names)
        if (name == known) return button;
    return {};
}

std::optional<PadCommand> parsePadCommand(const QByteArray &line)
{
    const auto words = line.simplified().toLower().split(' ');
    if (words.size() == 1 && words[0] == "unplug") return PadCommand{.kind = PadCommand::Kind::unplug};
    if (words.size() == 1 && words[0] == "plug") return PadCommand{.kind = PadCommand::Kind::plugIn};
    if (words.size() != 2) return {};
    const auto button = buttonNamed(words[1]);
    if (!button) return {};
    if (words[0] == "press") return PadCommand{PadCommand::Kind::press, *button};
    if (words[0] == "hold") return PadCommand{PadCommand::Kind::hold, *button};
    if (words[0] == "release") return PadCommand{PadCommand::Kind::release, *button};
    return {};
}

Result<std::unique_ptr<CommandPipe>> CommandPipe::open(const QString &path, std::function<void(PadCommand)> command)
{
    const QByteArray name = QFile::encodeName(path);
    struct stat found { };
    if (::mkfifo(name.constData(), 0600) != 0 && (::stat(name.constData(), &found) != 0 || !S_ISFIFO(found.st_mode)))
        return Message{u"“%@” is no named pipe and can't be made one. Give another path."_s, {path}};
    // Open for writing as well, so that the pipe does not end when its writer does.
    Descriptor pipe(::open(name.constData(), O_RDWR | O_NONBLOCK | O_CLOEXEC));
    if (!pipe) return Message{u"“%@” can't be read. Give another path."_s, {path}};
    return std::unique_ptr<CommandPipe>(new CommandPipe(std::move(pipe), std::move(command)));
}

CommandPipe::CommandPipe(Descriptor pipe, std::function<void(PadCommand)> command)
    : m_pipe(std::move(pipe)), m_command(std::move(command)), m_notifier(m_pipe.number(), QSocketNotifier::Read)
{
    QObject::connect(&m_notifier, &QSocketNotifier::activated, &m_notifier, [this] { read(); });
}

/// One piece at a time: a writer that never stops does not stop the program.
void CommandPipe::read()
{
    std::array<char, 4096> bytes;
    const auto count = ::read(m_pipe.number(), bytes.data(), bytes.size());
    for (auto i = 0; i < count; ++i) {
        if (bytes[size_t(i)] == '\n')
            take(std::exchange(m_line, {}));
        else if (m_line.size() <= longestLine)
            m_line += bytes[size_t(i)];
    }
}

void CommandPipe::take(const QByteArray &line)
{
    const auto command = line.size() <= longestLine ? parsePadCommand(line) : std::nullopt;
    if (command)
        m_command(*command);
    else if (!line.trimmed().isEmpty() && ++m_refused <= mostComplaints)
        qWarning() << "virtual controller: not understood:" << line; // escapes what is not printable
}
