#include "platform/linux/ChildProcess.h"
#include "platform/linux/Descriptor.h"
#include "platform/linux/InstalledApplications.h"
#include "platform/linux/LinuxServices.h"
#include "platform/linux/StartFailure.h"

#include <QDir>
#include <QFileInfo>
#include <QSocketNotifier>
#include <QStandardPaths>
#include <csignal>
#include <fcntl.h>
#include <map>
#include <sys/syscall.h>
#include <sys/wait.h>

using namespace Qt::StringLiterals;

/// Our environment with changes, byte for byte.
static QList<QByteArray> environmentWith(const QMap<QString, QString> &changes)
{
    QList<QByteArray> all;
    for (char **each = environ; each && *each; ++each) {
        const QByteArray variable(*each);
        const qsizetype equals = variable.indexOf('=');
        if (!changes.contains(QFile::decodeName(variable.first(qMax<qsizetype>(equals, 0))))) all += variable;
    }
    for (auto change = changes.begin(); change != changes.end(); ++change)
        all += QFile::encodeName(change.key() + u'=' + change.value());
    return all;
}

static QList<QByteArray> encoded(const QStringList &texts)
{
    QList<QByteArray> all;
    for (const QString &text : texts)
        all += QFile::encodeName(text);
    return all;
}

static Descriptor newFile(const QString &path)
{
    QDir().mkpath(QFileInfo(path).path());
    return aboveStreams(
        open(QFile::encodeName(path).constData(), O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_CLOEXEC, 0600));
}

namespace {

class LinuxWorkspace final : public Workspace {
public:
    explicit LinuxWorkspace(const Places &places);

    QList<Application> applications() const override { return installedApplications(m_places); }
    Result<qint64> start(const StartRequest &request) override;
    bool openAddress(const QUrl &address) override;

private:
    enum class End { announced, unnoticed };
    struct Watched {
        Descriptor process;
        std::unique_ptr<QSocketNotifier> notifier;
        End end = End::unnoticed;
    };

    int startWatched(const ChildProcess &child, End end, pid_t &pid);
    Descriptor startLog(const QString &file);
    void reap(pid_t pid);

    Places m_places;
    std::map<pid_t, Watched> m_children;
};

}

// A parent that ignores SIGCHLD hands that down to us, and the kernel would keep no exit status for us to read.
LinuxWorkspace::LinuxWorkspace(const Places &places) : m_places(places)
{
    struct sigaction present { };
    if (sigaction(SIGCHLD, nullptr, &present) == 0 && present.sa_handler == SIG_IGN) signal(SIGCHLD, SIG_DFL);
}

Result<qint64> LinuxWorkspace::start(const StartRequest &request)
{
    const QString name = request.command.value(0);
    const QString program =
        QFileInfo(name).isAbsolute() ? name : QStandardPaths::findExecutable(name, m_places.programDirs);
    if (program.isEmpty()) return startFailure(ENOENT, name);
    if (request.command.join(QString()).contains(QChar())) return startFailure(EINVAL, name);
    if (!request.workingFolder.isEmpty() && !QFileInfo(request.workingFolder).isDir()) {
        return Message{u"“%@” can't be started: the folder “%@” is missing. Create it, then play again."_s,
                       {QFileInfo(name).fileName(), request.workingFolder}};
    }

    const Descriptor log = startLog(request.logFile);
    const ChildProcess child{.program = QFile::encodeName(program),
                             .arguments = encoded(request.command),
                             .environment = environmentWith(request.environment),
                             .folder = QFile::encodeName(request.workingFolder),
                             .output = log.number(),
                             .errors = log.number()};
    pid_t pid = 0;
    if (const int error = startWatched(child, End::announced, pid)) return startFailure(error, program);
    return qint64(pid);
}

/// The end of the pipe that leads to a log writer; none when nothing is to be kept, or cannot be.
Descriptor LinuxWorkspace::startLog(const QString &file)
{
    const QString program = file.isEmpty() ? QString() : companionProgram(u"velko-session-log"_s);
    if (program.isEmpty()) return {};
    const Descriptor kept = newFile(file);
    int ends[2] = {-1, -1};
    if (!kept || pipe2(ends, O_CLOEXEC) != 0) return {};
    const Descriptor reading = aboveStreams(ends[0]);
    Descriptor writing = aboveStreams(ends[1]);
    const ChildProcess writer{.program = QFile::encodeName(program),
                              .arguments = {"velko-session-log"},
                              .folder = "/",
                              .input = reading.number(),
                              .output = kept.number()};
    pid_t pid = 0;
    if (!reading || !writing || startWatched(writer, End::unnoticed, pid) != 0) return {};
    return writing;
}

/// A program that cannot be watched for want of descriptors is ended again: nobody would notice its end.
int LinuxWorkspace::startWatched(const ChildProcess &child, End end, pid_t &pid)
{
    if (const int error = spawn(child, pid)) return error;
    // Not by <sys/pidfd.h>: that of glibc 2.36 has no C linkage.
    Descriptor process(int(syscall(SYS_pidfd_open, pid, 0)));
    if (!process) {
        const int error = errno;
        ::kill(pid, SIGKILL);
        while (waitpid(pid, nullptr, 0) < 0 && errno == EINTR) { }
        return error;
    }
    auto notifier = std::make_unique<QSocketNotifier>(process.number(), QSocketNotifier::Read);
    connect(notifier.get(), &QSocketNotifier::activated, this, [this, pid = pid] { reap(pid); });
    m_children[pid] = {std::move(process), std::move(notifier), end};
    return 0;
}

void LinuxWorkspace::reap(pid_t pid)
{
    const auto child = m_children.extract(pid);
    if (!child) return;
    const Watched &watched = child.mapped();
    siginfo_t how{};
    while (waitid(P_PIDFD, id_t(watched.process.number()), &how, WEXITED) != 0 && errno == EINTR) { }
    child.mapped().notifier->setEnabled(false);
    child.mapped().notifier.release()->deleteLater(); // it is calling us
    if (watched.end == End::unnoticed) return;
    const bool exited = how.si_code == CLD_EXITED;
    emit ended(pid, exited ? ProgramEnd{.exitStatus = how.si_status} : ProgramEnd{.signal = how.si_status});
}

bool LinuxWorkspace::openAddress(const QUrl &address)
{
    const bool web = address.scheme() == "https"_L1 || address.scheme() == "http"_L1;
    const bool folder = address.isLocalFile() && QFileInfo(address.toLocalFile()).isDir();
    const QString opener = QStandardPaths::findExecutable(u"xdg-open"_s, m_places.programDirs);
    if (opener.isEmpty() || !address.isValid() || (!web && !folder)) return false;
    const ChildProcess child{.program = QFile::encodeName(opener),
                             .arguments = {"xdg-open", address.toEncoded()},
                             .environment = environmentWith({}),
                             .folder = QFile::encodeName(m_places.home)};
    pid_t pid = 0;
    return startWatched(child, End::unnoticed, pid) == 0;
}

std::unique_ptr<Workspace> makeWorkspace(const Places &places)
{
    return std::make_unique<LinuxWorkspace>(places);
}
