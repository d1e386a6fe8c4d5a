#include "platform/linux/QuitSignals.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <csignal>
#include <sys/signalfd.h>
#include <unistd.h>

namespace {
class QuitSignals final : public QObject {
public:
    QuitSignals()
    {
        sigset_t signals_;
        sigemptyset(&signals_);
        for (const int signal : {SIGTERM, SIGINT, SIGHUP})
            sigaddset(&signals_, signal);
        pthread_sigmask(SIG_BLOCK, &signals_, nullptr);
        m_descriptor = signalfd(-1, &signals_, SFD_CLOEXEC | SFD_NONBLOCK);
        if (m_descriptor < 0) {
            pthread_sigmask(SIG_UNBLOCK, &signals_, nullptr);
            return;
        }
        auto *notifier = new QSocketNotifier(m_descriptor, QSocketNotifier::Read, this);
        connect(notifier, &QSocketNotifier::activated, this, [this] {
            signalfd_siginfo arrived;
            while (::read(m_descriptor, &arrived, sizeof arrived) > 0) { }
            QCoreApplication::quit();
        });
    }
    ~QuitSignals() override
    {
        if (m_descriptor >= 0) ::close(m_descriptor);
    }

private:
    int m_descriptor = -1;
};
} // namespace

std::unique_ptr<QObject> quitOnSignals()
{
    return std::make_unique<QuitSignals>();
}
