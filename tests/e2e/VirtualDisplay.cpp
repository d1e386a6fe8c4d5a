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

VirtualDisplay::VirtualDisplay(XServer::Kind kind, const QString &windowManager)
{
    adoptOrphans();
    QDir().mkpath(home());
    QDir().mkpath(m_folder.filePath(u"run"_s));
    QFile::setPermissions(m_folder.filePath(u"run"_s), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    startBus(); // some window managers ask for their settings there
    if (Compositor::isOne(windowManager)) {
        m_compositor = std::make_unique<Compositor>(windowManager, environment());
        if (!m_compositor->isReady()) return;
    } else {
        m_server = std::make_unique<XServer>(kind, QString());
        if (!m_server->isReady() || !m_server->manage(windowManager, environment())) return;
    }
    m_desktop = std::make_unique<Desktop>(name());
    waitFor(10s, [this] { return m_desktop->hasWindowManager(); });
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
    if (m_server) return m_server->run(program, arguments);
    QProcess process;
    process.setProcessEnvironment(environment());
    process.start(program, arguments);
    return process.waitForFinished() && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
}

QString VirtualDisplay::secondOutput() const
{
    return m_compositor ? u"XWAYLAND1"_s : u"DUMMY1"_s;
}

bool VirtualDisplay::pressKey(const QString &key) const
{
    // Without a device, sway has a keyboard only while a program lends it one, and needs a moment to hand it on.
    return run(u"xdotool"_s, {u"key"_s, key}) || run(u"wtype"_s, {u"-s"_s, u"300"_s, u"-k"_s, key, u"-s"_s, u"300"_s});
}

bool VirtualDisplay::turnSecondOff() const
{
    return m_server && run(u"xrandr"_s, {u"--output"_s, secondOutput(), u"--off"_s});
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
    if (m_compositor) environment.insert(m_compositor->told());
    if (m_server) insert("DISPLAY", QString::fromLatin1(m_server->display()));
    insert("DBUS_SESSION_BUS_ADDRESS", QString::fromLatin1(m_busAddress));
    insert("SDL_AUDIODRIVER", u"dummy"_s); // mGBA stands still when there is no sound device
    for (const char *kept : {"ASAN_OPTIONS", "UBSAN_OPTIONS", "TZ"})
        if (qEnvironmentVariableIsSet(kept)) insert(kept, qEnvironmentVariable(kept));
    return environment;
}

QList<qint64> VirtualDisplay::programs() const
{
    QList<qint64> all = descendants(QCoreApplication::applicationPid());
    QList<qint64> services{m_bus.processId()};
    if (m_server) services += m_server->processes();
    if (m_compositor) services += m_compositor->pid();
    all.removeIf([](qint64 pid) { return commandLine(pid).startsWith("Xwayland"_L1); }); // its compositor lets it go
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
