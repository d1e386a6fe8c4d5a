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

static const QByteArray twoOutputs = R"(
Section "ServerFlags"
    Option "AutoAddDevices" "false"
    Option "AutoAddGPU" "false"
    Option "DontVTSwitch" "true"
EndSection
Section "Device"
    Identifier "device"
    Driver "dummy"
    VideoRam 256000
EndSection
Section "Monitor"
    Identifier "monitor"
    HorizSync 5-1000
    VertRefresh 5-200
EndSection
Section "Screen"
    Identifier "screen"
    Device "device"
    Monitor "monitor"
    DefaultDepth 24
    SubSection "Display"
        Depth 24
        Virtual 2560 720
    EndSubSection
EndSection
)";

VirtualDisplay::VirtualDisplay(Screens screens, const QString &windowManager)
{
    adoptOrphans();
    QDir().mkpath(home());
    QDir().mkpath(m_folder.filePath(u"run"_s));
    QFile::setPermissions(m_folder.filePath(u"run"_s), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    const QByteArray number = startServer(screens);
    if (number.isEmpty()) return;
    m_display = ':' + number;
    if (screens == Screens::twoOutputs && !addOutputs()) return;
    m_busAddress = start(m_bus, u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--print-address=1"_s});
    m_windowManager.setProcessEnvironment(environment());
    m_windowManager.setStandardErrorFile(QProcess::nullDevice());
    m_windowManager.start(windowManager,
                          windowManager == "openbox"_L1 ? QStringList{u"--sm-disable"_s} : QStringList());
    m_desktop = std::make_unique<Desktop>(m_display);
    waitFor(20s, [this] { return m_desktop->hasWindowManager(); });
}

QByteArray VirtualDisplay::startServer(Screens screens)
{
    QStringList arguments{u"-displayfd"_s, u"1"_s, u"-nolisten"_s, u"tcp"_s, u"-noreset"_s};
    if (screens == Screens::one)
        return start(m_server, u"Xvfb"_s, arguments + QStringList{u"-screen"_s, u"0"_s, u"1280x720x24"_s});
    const QString configuration = write(u"xorg.conf"_s, twoOutputs);
    arguments +=
        {u"-config"_s, configuration, u"-novtswitch"_s, u"-sharevts"_s, u"-logfile"_s, home() + u"/xorg.log"_s};
    return start(m_server, u"Xorg"_s, arguments);
}

bool VirtualDisplay::addOutputs()
{
    const QString mode = u"720p"_s;
    return setOutputs({u"--newmode"_s, mode, u"74.25"_s, u"1280"_s, u"1390"_s, u"1430"_s, u"1650"_s, u"720"_s, u"725"_s,
                       u"730"_s, u"750"_s})
        && setOutputs({u"--addmode"_s, u"DUMMY0"_s, mode}) && setOutputs({u"--addmode"_s, u"DUMMY1"_s, mode})
        && setOutputs({u"--output"_s, u"DUMMY0"_s, u"--mode"_s, mode, u"--pos"_s, u"0x0"_s, u"--primary"_s,
                       u"--output"_s, u"DUMMY1"_s, u"--mode"_s, mode, u"--pos"_s, u"1280x0"_s});
}

bool VirtualDisplay::setOutputs(const QStringList &arguments) const
{
    QProcess xrandr;
    xrandr.setProcessEnvironment(environment());
    xrandr.start(u"xrandr"_s, arguments);
    return xrandr.waitForFinished(10000) && xrandr.exitStatus() == QProcess::NormalExit && xrandr.exitCode() == 0;
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
