#include "platform/linux/ChildProcess.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <vector>

namespace {

class Actions {
public:
    Actions() { m_error = posix_spawn_file_actions_init(&m_actions); }
    ~Actions() { posix_spawn_file_actions_destroy(&m_actions); }

    void stream(int number, int source)
    {
        if (source >= 0)
            note(posix_spawn_file_actions_adddup2(&m_actions, source, number));
        else
            note(posix_spawn_file_actions_addopen(&m_actions, number, "/dev/null", number == 0 ? O_RDONLY : O_WRONLY,
                                                  0));
    }
    void closeOthers() { note(posix_spawn_file_actions_addclosefrom_np(&m_actions, 3)); }
    void enter(const QByteArray &folder)
    {
        if (!folder.isEmpty()) note(posix_spawn_file_actions_addchdir_np(&m_actions, folder.constData()));
    }

    int error() const { return m_error; }
    const posix_spawn_file_actions_t *get() const { return &m_actions; }

private:
    void note(int error)
    {
        if (m_error == 0) m_error = error;
    }

    posix_spawn_file_actions_t m_actions{};
    int m_error = 0;
};

// A session of its own, not only a process group: when Velko dies, the kernel hangs up on the groups of its session
// that hold a stopped process, and a frozen game would be killed by that.
class Attributes {
public:
    Attributes()
    {
        posix_spawnattr_init(&m_attributes);
        sigset_t set;
        sigfillset(&set);
        posix_spawnattr_setsigdefault(&m_attributes, &set);
        sigemptyset(&set);
        posix_spawnattr_setsigmask(&m_attributes, &set);
        posix_spawnattr_setflags(&m_attributes, POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
    }
    ~Attributes() { posix_spawnattr_destroy(&m_attributes); }
    const posix_spawnattr_t *get() const { return &m_attributes; }

private:
    posix_spawnattr_t m_attributes{};
};

}

static std::vector<char *> pointers(const QList<QByteArray> &texts)
{
    std::vector<char *> all;
    for (const QByteArray &text : texts)
        all.push_back(const_cast<char *>(text.constData())); // posix_spawn promises not to write
    all.push_back(nullptr);
    return all;
}

int spawn(const ChildProcess &child, pid_t &pid)
{
    Actions actions;
    actions.stream(0, child.input);
    actions.stream(1, child.output);
    actions.stream(2, child.errors);
    actions.closeOthers();
    actions.enter(child.folder);
    if (actions.error() != 0) return actions.error();
    const Attributes attributes;
    return posix_spawn(&pid, child.program.constData(), actions.get(), attributes.get(),
                       pointers(child.arguments).data(), pointers(child.environment).data());
}

QString companionProgram(const QString &name)
{
    const QString folder = QCoreApplication::applicationDirPath();
    return QStandardPaths::findExecutable(name, {folder, QDir::cleanPath(folder + QLatin1String("/../lib/velko"))});
}

Descriptor aboveStreams(int number)
{
    Descriptor original(number);
    if (number < 0 || number > 2) return original;
    return Descriptor(fcntl(number, F_DUPFD_CLOEXEC, 3));
}
