#include "platform/linux/DoorBell.h"

#include <QFile>

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <linux/input.h>
#include <sys/ioctl.h>

using Bits = std::array<unsigned char, KEY_MAX / 8 + 1>;

static bool has(const Bits &bits, int code)
{
    return bits[size_t(code / 8)] & (1 << code % 8);
}

/// Asks the kernel to leave the thumbsticks' axes out for this descriptor (since Linux 4.4). A controller whose only
/// directions are those axes keeps them.
static void leaveSticksOut(int device)
{
    Bits axes{};
    Bits keys{};
    if (::ioctl(device, EVIOCGBIT(EV_ABS, axes.size()), axes.data()) < 0) return; // no input device
    if (::ioctl(device, EVIOCGBIT(EV_KEY, keys.size()), keys.data()) < 0) return;
    if (!has(axes, ABS_HAT0X) && !has(keys, BTN_DPAD_UP)) return;
    for (const int stick : {ABS_X, ABS_Y, ABS_RX, ABS_RY})
        axes[size_t(stick / 8)] &= static_cast<unsigned char>(~(1 << stick % 8));
    const input_mask wanted{EV_ABS, ABS_MAX / 8 + 1, reinterpret_cast<quintptr>(axes.data())};
    ::ioctl(device, EVIOCSMASK, &wanted);
}

DoorBell::DoorBell(const QString &device, std::function<void()> rung)
    : m_file(::open(QFile::encodeName(device).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY))
{
    if (!m_file) return;
    leaveSticksOut(m_file.number());
    m_notifier.reset(new QSocketNotifier(m_file.number(), QSocketNotifier::Read));
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), std::move(rung));
}

void DoorBell::AfterItsCall::operator()(QSocketNotifier *notifier) const
{
    notifier->setEnabled(false);
    notifier->deleteLater();
}

void DoorBell::mute(bool muted)
{
    if (m_notifier) m_notifier->setEnabled(!muted);
}

bool DoorBell::takeAll()
{
    if (!m_notifier) return false;
    std::array<char, 4096> bytes;
    bool any = false;
    for (;;) {
        const auto count = ::read(m_file.number(), bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0 && errno == EAGAIN) return any;
        if (count <= 0) break;
        any = true;
    }
    m_notifier.reset(); // unplugged: a file at its end would ring for ever
    return true;
}
