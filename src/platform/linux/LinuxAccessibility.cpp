#include "platform/linux/AtspiReader.h"
#include "platform/linux/LinuxServices.h"

#include <QFileInfo>
#include <QObject>
#include <QStandardPaths>
#include <QTimer>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// A bus that was just started is empty until its registry runs.
constexpr auto lookAgainAfter = 100ms;
constexpr int looks = 11;

class LinuxAccessibility final : public Accessibility {
public:
    LinuxAccessibility(Tasks &tasks, const QString &sessionBus) : m_tasks(tasks), m_sessionBus(sessionBus) { }

    bool isAvailable() const override;
    void windows(const QList<qint64> &pids, std::function<void(QList<AccessibleWindow>)> done) override;
    void menu(const QList<qint64> &pids, const QStringList &opened,
              std::function<void(QList<MenuEntry>)> done) override;
    void press(const MenuEntry &entry, std::function<void(bool)> done) override;

private:
    template <class Found>
    using Read = std::function<Found(AtspiReader &, const QList<AtspiNode> &programs)>;
    template <class Found>
    using Done = std::function<void(Found)>;

    template <class Found>
    void ask(const QList<qint64> &pids, Read<Found> read, Done<Found> done, int looksLeft = looks);
    template <class Work, class Handle>
    void run(Work work, Handle handle);

    Tasks &m_tasks;
    const QString m_sessionBus;
    QString m_address; ///< of the accessibility bus, once it is known
    QObject m_alive; ///< answers that come later than its end are dropped
};

}

/// Without looking for it on the bus, which may take long: its starter is installed, and there is a session bus.
bool LinuxAccessibility::isAvailable() const
{
    const bool hasSession = !m_sessionBus.isEmpty() || qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS")
        || QFileInfo::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + u"/bus"_s);
    const auto starter = u"dbus-1/services/org.a11y.Bus.service"_s;
    return hasSession
        && (QFileInfo::exists(u"/usr/share/"_s + starter)
            || !QStandardPaths::locate(QStandardPaths::GenericDataLocation, starter).isEmpty());
}

/// Work with a bus in the background, and its result on the main thread. Nothing is asked where nobody can answer.
template <class Work, class Handle>
void LinuxAccessibility::run(Work work, Handle handle)
{
    struct Outcome {
        QString address;
        std::invoke_result_t<Work, AtspiReader &> found{};
    };
    const bool available = isAvailable();
    m_tasks.run(
        &m_alive,
        [work = std::move(work), address = m_address, session = m_sessionBus, available] {
            Outcome outcome;
            if (!available) return outcome;
            AtspiBus bus(address, session);
            if (!bus.isOpen()) return outcome;
            AtspiReader reader(bus);
            outcome = {bus.address(), work(reader)};
            return outcome;
        },
        [this, handle = std::move(handle)](Outcome outcome) {
            m_address = outcome.address;
            handle(std::move(outcome.found));
        });
}

template <class Found>
void LinuxAccessibility::ask(const QList<qint64> &pids, Read<Found> read, Done<Found> done, int looksLeft)
{
    run(
        [pids, read](AtspiReader &reader) -> std::optional<Found> {
            const auto programs = reader.programs(pids);
            return programs ? std::optional(read(reader, *programs)) : std::nullopt;
        },
        [this, pids, read, done, looksLeft](std::optional<Found> found) {
            const bool isStarting = !found && !m_address.isEmpty() && looksLeft > 1;
            if (!isStarting) return done(found.value_or(Found()));
            QTimer::singleShot(lookAgainAfter, &m_alive,
                               [this, pids, read, done, looksLeft] { ask<Found>(pids, read, done, looksLeft - 1); });
        });
}

void LinuxAccessibility::windows(const QList<qint64> &pids, std::function<void(QList<AccessibleWindow>)> done)
{
    ask<QList<AccessibleWindow>>(
        pids, [](AtspiReader &reader, const QList<AtspiNode> &programs) { return reader.windows(programs); },
        std::move(done));
}

void LinuxAccessibility::menu(const QList<qint64> &pids, const QStringList &opened,
                              std::function<void(QList<MenuEntry>)> done)
{
    ask<QList<MenuEntry>>(
        pids, [opened](AtspiReader &reader, const QList<AtspiNode> &programs) { return reader.menu(programs, opened); },
        std::move(done));
}

void LinuxAccessibility::press(const MenuEntry &entry, std::function<void(bool)> done)
{
    run([entry](AtspiReader &reader) { return entry.pressable && reader.press(entry); }, std::move(done));
}

std::unique_ptr<Accessibility> makeAccessibility(Tasks &tasks, const QString &sessionBus)
{
    return std::make_unique<LinuxAccessibility>(tasks, sessionBus);
}
