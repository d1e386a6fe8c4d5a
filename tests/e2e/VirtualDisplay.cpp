#include "VirtualDisplay.h"

#include "Processes.h"
#include "Waiting.h"

#include <QDir>
#include <QFile>
#include <csignal>
#include <sys/prctl.h>
#include <sys/wait.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

VirtualDisplay::VirtualDisplay(XServer::Kind kind, const QString &windowManager) : m_server(kind, QString())
{
    adoptOrphans();
    QDir().mkpath(home());
    QDir().mkpath(m_folder.filePath(u"run"_s));
    QFile::setPermissions(m_folder.filePath(u"run"_s), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    if (!m_server.isReady()) return;
    startBus();
    if (!m_server.manage(windowManager, environment()))
        return; // some window managers ask for their settings on the bus
    m_desktop = std::make_unique<Desktop>(m_server.display());
}

VirtualDisplay::~VirtualDisplay()
{
    m_desktop.reset();
    for (const qint64 pid : programs())
        killTree(pid);
    for (const qint64 pid : descendants(m_bus.processId()))
        kill(pid_t(pid), SIGKILL);
    m_bus.kill();
    m_bus.waitForFinished(2000);
    while (waitpid(-1, nullptr, WNOHANG) > 0) { } // orphans that were adopted
}

/// A message bus that ends with this program.
void VirtualDisplay::startBus()
{
    m_bus.setProcessEnvironment(environment());
    m_bus.setStandardErrorFile(QProcess::nullDevice());
    m_bus.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    m_bus.start(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--print-address=1"_s});
    waitFor(20s, [this] { return m_bus.canReadLine() || m_bus.state() == QProcess::NotRunning; });
    m_busAddress = m_bus.readLine().trimmed();
}

bool VirtualDisplay::run(const QString &program, const QStringList &arguments) const
{
    return m_server.run(program, arguments);
}

QProcessEnvironment VirtualDisplay::environment() const
{
    QProcessEnvironment environment;
    const auto insert = [&](const char *name, const QString &value) {
        environment.insert(QString::fromLatin1(name), value);
    };
    insert("PATH", u"/usr/local/bin:/usr/bin:/bin"_s); // without /usr/games, as for services
    insert("LANG", u"C.UTF-8"_s);
    insert("HOME", home());
    insert("XDG_RUNTIME_DIR", m_folder.filePath(u"run"_s));
    insert("DISPLAY", QString::fromLatin1(m_server.display()));
    insert("DBUS_SESSION_BUS_ADDRESS", QString::fromLatin1(m_busAddress));
    insert("SDL_AUDIODRIVER", u"dummy"_s); // mGBA stands still when there is no sound device
    for (const char *kept : {"ASAN_OPTIONS", "UBSAN_OPTIONS", "TZ"})
        if (qEnvironmentVariableIsSet(kept)) insert(kept, qEnvironmentVariable(kept));
    return environment;
}

QList<qint64> VirtualDisplay::programs() const
{
    QList<qint64> all = descendants(QCoreApplication::applicationPid());
    QList<qint64> services = m_server.processes();
    services += m_bus.processId();
    for (const qint64 service : std::as_const(services)) {
        const QList<qint64> own = QList<qint64>{service} + descendants(service);
        all.removeIf([&](qint64 pid) { return own.contains(pid); });
    }
    return all;
}

QString VirtualDisplay::write(const QString &name, const QByteArray &content, bool executable) const
{
    const QString path = home() + u'/' + name;
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QFile::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(path));
    if (executable) file.setPermissions(file.permissions() | QFile::ExeOwner | QFile::ExeUser);
    return path;
}

QByteArray VirtualDisplay::read(const QString &name) const
{
    QFile file(home() + u'/' + name);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}
