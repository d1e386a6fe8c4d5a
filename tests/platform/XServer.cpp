#include "platform/XServer.h"
#include "platform/WaitUntil.h"
#include "platform/linux/XConnection.h"

#include <QFile>
#include <csignal>
#include <sys/prctl.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

static constexpr auto patience = 20s;

static const char *twoOutputs = R"(
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
        Virtual 3840 1080
    EndSubSection
EndSection
)";

/// Some start a dialog or a session in place of a window manager unless they are told not to.
static QStringList commandOf(const QString &windowManager, const QTemporaryDir &folder)
{
    if (windowManager == "mutter"_L1) return {windowManager, u"--x11"_s};
    QFile settings(folder.filePath(u"settings"_s));
    if (windowManager == "i3"_L1 && settings.open(QFile::WriteOnly)) {
        settings.write("font pango:monospace 8\n");
        return {windowManager, u"-c"_s, settings.fileName()};
    }
    return {windowManager};
}

static void dieWithTest(QProcess &process)
{
    process.setStandardErrorFile(QProcess::nullDevice());
    process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
}

XServer::XServer(Kind kind, const QString &windowManager)
{
    m_ready = startServer(kind) && (kind == Kind::oneOutput || connectOutputs())
        && (windowManager.isEmpty() || manage(windowManager));
}

XServer::~XServer()
{
    for (QProcess *each : {&m_windowManager, &m_bus, &m_server}) {
        each->kill();
        each->waitForFinished();
    }
}

bool XServer::startServer(Kind kind)
{
    dieWithTest(m_server);
    m_server.setProcessEnvironment(environment());
    if (kind == Kind::oneOutput) {
        m_server.start(u"Xvfb"_s, u"-displayfd 1 -screen 0 1280x720x24 -nolisten tcp -noreset"_s.split(u' '));
    } else {
        QFile configuration(m_folder.filePath(u"xorg.conf"_s));
        if (!configuration.open(QFile::WriteOnly)) return false;
        configuration.write(twoOutputs);
        configuration.close();
        QStringList arguments = u"-displayfd 1 -noreset -novtswitch -sharevts -nolisten tcp"_s.split(u' ');
        arguments += {u"-config"_s, configuration.fileName(), u"-logfile"_s, m_folder.filePath(u"x.log"_s)};
        m_server.start(u"Xorg"_s, arguments);
    }
    if (!waitUntil([&] { return m_server.canReadLine() || m_server.state() == QProcess::NotRunning; }, patience))
        return false;
    const QByteArray number = m_server.readLine().trimmed();
    m_display = ':' + number;
    return !number.isEmpty();
}

bool XServer::connectOutputs() const
{
    const auto xrandr = [this](const QString &arguments) { return run(u"xrandr"_s, arguments.split(u' ')); };
    return xrandr(u"--newmode 1080p 148.50 1920 2448 2492 2640 1080 1084 1089 1125 +Hsync +Vsync"_s)
        && xrandr(u"--addmode DUMMY0 1080p"_s) && xrandr(u"--addmode DUMMY1 1080p"_s)
        && xrandr(u"--output DUMMY0 --mode 1080p --pos 0x0 --primary --output DUMMY1 --mode 1080p --pos 1920x0"_s)
        && xrandr(u"--query"_s); // only then the second one counts as connected, without which GTK passes it over
}

QProcessEnvironment XServer::environment() const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"HOME"_s, m_folder.path());
    environment.insert(u"DISPLAY"_s, QString::fromLatin1(m_display));
    environment.insert(u"XDG_RUNTIME_DIR"_s, m_folder.path());
    environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, m_busAddress);
    environment.remove(u"QT_QPA_PLATFORM"_s);
    return environment;
}

bool XServer::run(const QString &program, const QStringList &arguments) const
{
    QProcess process;
    dieWithTest(process);
    process.setProcessEnvironment(environment());
    process.start(program, arguments);
    return process.waitForFinished() && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
}

// A window manager that is just starting overlooks windows that are shown meanwhile, so it is shown again now and then.
static bool manages(XConnection &connection, xcb_window_t probe, QDeadlineTimer &again)
{
    if (again.hasExpired()) {
        again.setRemainingTime(200ms);
        xcb_unmap_window(connection, probe);
        xcb_map_window(connection, probe);
    }
    const auto asked = xcb_get_property(connection, false, connection.root(), connection.atom("_NET_CLIENT_LIST"),
                                        XCB_ATOM_ANY, 0, 64);
    return numbersOf(connection.reply(xcb_get_property_reply, asked)).contains(probe);
}

bool XServer::manage(const QString &windowManager, const QProcessEnvironment &environment)
{
    if (m_windowManager.state() != QProcess::NotRunning) {
        m_windowManager.kill();
        m_windowManager.waitForFinished();
    }
    XConnection connection(m_display);
    xcb_delete_property(connection, connection.root(), connection.atom("_NET_CLIENT_LIST"));
    dieWithTest(m_windowManager);
    m_windowManager.setProcessEnvironment(environment.isEmpty() ? this->environment() : environment);
    const QStringList command = commandOf(windowManager, m_folder);
    m_windowManager.start(command.first(), command.mid(1));
    const xcb_window_t probe = xcb_generate_id(connection);
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, probe, connection.root(), 0, 0, 9, 9, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    QDeadlineTimer again(0);
    return waitUntil([&] { return manages(connection, probe, again); }, patience);
}

QString XServer::startBus()
{
    dieWithTest(m_bus);
    m_bus.setProcessEnvironment(environment());
    m_bus.start(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--print-address=1"_s});
    waitUntil([&] { return m_bus.canReadLine() || m_bus.state() == QProcess::NotRunning; }, patience);
    return m_busAddress = QString::fromUtf8(m_bus.readLine().trimmed());
}

void XServer::kill()
{
    m_server.kill();
    m_server.waitForFinished();
}
