#include "platform/linux/StartFailure.h"

#include <QFileInfo>
#include <cerrno>
#include <cstring>

using namespace Qt::StringLiterals;

static QString reason(int error, const QFileInfo &file)
{
    switch (error) {
    case EACCES:
        if (file.isDir())
            return u"“%@” can't be started: it is a folder. Choose the program inside it, then play again."_s;
        if (file.exists() && !file.isExecutable())
            return u"“%@” can't be started: it isn't marked as executable. Allow it in the file's properties, then play again."_s;
        return u"“%@” can't be started: the system doesn't allow it there. Move it to your Applications folder, then play again."_s;
    case ENOENT:
    case ENOTDIR:
        if (file.exists()) // the loader, or the interpreter of a script, is what is missing
            return u"“%@” can't be started: a part of the system that it needs is missing. Install it anew, then play again."_s;
        return u"“%@” can't be started: it wasn't found. Install it or choose where it is, then play again."_s;
    case ENOEXEC:
    case ELIBBAD:
        return u"“%@” can't be started: it isn't a program for this computer. Download it anew for this kind of computer, then play again."_s;
    case ENOMEM:
    case EAGAIN:
    case EMFILE:
    case ENFILE:
        return u"“%@” can't be started: too much is running. Close some programs, then play again."_s;
    case ETXTBSY:
        return u"“%@” can't be started: it is still being written. Wait until that is done, then play again."_s;
    case EINVAL:
        return u"“%@” can't be started: the name of a file holds a character that no program accepts. Rename the file, then play again."_s;
    case E2BIG:
        return u"“%@” can't be started: too much is handed to it. Shorten its extra arguments, then play again."_s;
    default:
        return u"“%@” can't be started: %@. Install it anew, then play again."_s;
    }
}

Message startFailure(int error, const QString &program)
{
    const QFileInfo file(program);
    const QString text = reason(error, file);
    QStringList arguments{file.fileName()};
    if (text.count("%@"_L1) > 1) arguments += QString::fromLocal8Bit(strerror(error));
    return {text, arguments};
}
