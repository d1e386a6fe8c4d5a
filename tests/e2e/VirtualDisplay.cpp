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

VirtualDisplay::VirtualDisplay()
{
    adoptOrphans();
    QDir().mkpath(home());
    QDir().mkpath(m_folder.filePath(u"run"_s));
    QFile::setPermissions(m_folder.filePath(u"run"_s), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    const QByteArray number = start(
        m_server, u"Xvfb"_s,
        {u"-displayfd"_s, u"1"_s, u"-screen"_s, u"0"_s, u"1280x720x24"_s, u"-nolisten"_s, u"tcp"_s, u"-noreset"_s});
    if (number.isEmpty()) return;
    m_display = ':' + number;
    m_busAddress = start(m_bus, u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--print-address=1"_s});
    m_windowManager.setProcessEnvironment(environment());
    m_windowManager.setStandardErrorFile(QProcess::nullDevice());
    m_windowManager.start(u"openbox"_s, {u"--sm-disable"_s});
    m_desktop = std::make_unique<Desktop>(m_display);
    waitFor(20s, [this] { return m_desktop->hasWindowManager(); });
}

VirtualDisplay::~VirtualDisplay()
{
    m_desktop.reset();
    for (const qint64 pid : programs())
        killTree(pid);
    for (QProcess *service : {&m_windowManager, &m_bus, &m_server}) {
        if (service->state() == QProcess::NotRunning) continue;
        for (const qint64 pid : descendants(service->processId()))
            kill(pid_t(pid), SIGKILL);
        service->kill();
        service->waitForFinished(2000);
    }
    while (waitpid(-1, nullptr, WNOHANG) > 0) { } // orphans that were adopted
}

/// Starts a service that ends with this program, and waits for the one line that it tells about itself.
QByteArray VirtualDisplay::start(QProcess &service, const QString &program, const QStringList &arguments)
{
    service.setProcessEnvironment(environment());
    service.setStandardErrorFile(QProcess::nullDevice());
    service.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    service.start(program, arguments);
    waitFor(20s, [&] { return service.canReadLine() || service.state() == QProcess::NotRunning; });
    return service.readLine().trimmed();
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
    insert("DISPLAY", QString::fromLatin1(m_display));
    insert("DBUS_SESSION_BUS_ADDRESS", QString::fromLatin1(m_busAddress));
    insert("SDL_AUDIODRIVER", u"dummy"_s); // mGBA stands still when there is no sound device
    for (const char *kept : {"ASAN_OPTIONS", "UBSAN_OPTIONS", "TZ"})
        if (qEnvironmentVariableIsSet(kept)) insert(kept, qEnvironmentVariable(kept));
    return environment;
}

QList<qint64> VirtualDisplay::programs() const
{
    QList<qint64> all = descendants(QCoreApplication::applicationPid());
    for (const QProcess *service : {&m_server, &m_bus, &m_windowManager}) {
        const QList<qint64> own = QList<qint64>{service->processId()} + descendants(service->processId());
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
