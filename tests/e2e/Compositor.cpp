#include "Compositor.h"

#include "Processes.h"
#include "Waiting.h"

#include <QDir>
#include <QFile>
#include <csignal>
#include <pwd.h>
#include <sys/prctl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

bool Compositor::isOne(const QString &windowManager)
{
    return windowManager == "mutter-wayland"_L1 || windowManager == "sway"_L1;
}

Compositor::Compositor(const QString &name, const QProcessEnvironment &environment)
{
    m_process.setStandardErrorFile(QProcess::nullDevice());
    m_process.setStandardOutputFile(QProcess::nullDevice());
    if (name == "sway"_L1)
        startSway(environment);
    else
        startMutter(environment);
    waitFor(20s, [this] { return QFile::exists(notes()) || m_process.state() == QProcess::NotRunning; });
    readEnvironment();
    if (name == "sway"_L1) // whoever else looks for it looks into another folder
        m_told.insert(u"WAYLAND_DISPLAY"_s, m_folder.filePath(m_told.value(u"WAYLAND_DISPLAY"_s)));
    // The programs of this test look for the key to the display where others do.
    if (m_told.contains(u"XAUTHORITY"_s)) qputenv("XAUTHORITY", m_told.value(u"XAUTHORITY"_s).toUtf8());
}

Compositor::~Compositor()
{
    qunsetenv("XAUTHORITY");
    killTree(m_process.processId());
    m_process.waitForFinished(2000);
}

/// What the compositor runs when it is ready.
static QString tellInto(const QString &file)
{
    return u"env -0 > '%1.part' && mv '%1.part' '%1'"_s.arg(file);
}

void Compositor::startMutter(const QProcessEnvironment &environment)
{
    m_process.setProcessEnvironment(environment);
    m_process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    const QString wait = tellInto(notes()) + u"; exec sleep 1000000"_s; // it ends with this program
    m_process.start(u"mutter"_s,
                    {u"--wayland"_s, u"--headless"_s, u"--virtual-monitor"_s, u"1920x1080"_s, u"--virtual-monitor"_s,
                     u"1920x1080"_s, u"--wayland-display"_s, u"velko-test"_s, u"--"_s, u"sh"_s, u"-c"_s, wait});
}

// It refuses to run as root, so then another user lends it a name; that user may enter only a folder of its own.
void Compositor::startSway(QProcessEnvironment environment)
{
    const passwd *other = geteuid() == 0 ? getpwnam("games") : nullptr;
    const uid_t user = other ? other->pw_uid : geteuid();
    const gid_t group = other ? other->pw_gid : getegid();
    for (const auto &[name, value] :
         {std::pair{u"HOME"_s, m_folder.path()}, std::pair{u"XDG_RUNTIME_DIR"_s, m_folder.path()},
          std::pair{u"WLR_BACKENDS"_s, u"headless"_s}, std::pair{u"WLR_LIBINPUT_NO_DEVICES"_s, u"1"_s},
          std::pair{u"WLR_HEADLESS_OUTPUTS"_s, u"2"_s}, std::pair{u"WLR_RENDERER"_s, u"pixman"_s}})
        environment.insert(name, value);
    environment.remove(u"DISPLAY"_s);
    QFile settings(m_folder.filePath(u"config"_s));
    if (!settings.open(QFile::WriteOnly)) return;
    settings.write("xwayland force\noutput HEADLESS-1 resolution 1920x1080 position 0,0\n"
                   "output HEADLESS-2 resolution 1920x1080 position 1920,0\n"
                   "exec xhost +local: && "
                   + tellInto(notes()).toUtf8() + '\n');
    settings.close();
    if (chown(QFile::encodeName(m_folder.path()), user, group) != 0
        || chown(QFile::encodeName(settings.fileName()), user, group) != 0)
        return;
    m_process.setProcessEnvironment(environment);
    m_process.setChildProcessModifier([user, group, change = other != nullptr] {
        if (change && (setgid(group) != 0 || setuid(user) != 0)) _exit(1);
        prctl(PR_SET_PDEATHSIG, SIGKILL);
    });
    m_process.start(u"sway"_s, {u"--config"_s, settings.fileName()});
}

void Compositor::readEnvironment()
{
    QFile file(notes());
    if (!file.open(QFile::ReadOnly)) return;
    for (const QByteArray &line : file.readAll().split('\0'))
        for (const char *name : {"DISPLAY", "XAUTHORITY", "WAYLAND_DISPLAY", "SWAYSOCK"})
            if (line.startsWith(QByteArray(name) + '='))
                m_told.insert(QString::fromLatin1(name), QString::fromUtf8(line.mid(qsizetype(qstrlen(name)) + 1)));
}
