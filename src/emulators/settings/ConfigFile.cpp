#include "emulators/settings/ConfigFile.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStringDecoder>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

static constexpr qint64 largest = 16 * 1024 * 1024; // RPCS3's list of patches, the largest known, has 2 MiB

namespace {
using Outcome = ConfigFileEdit::Outcome;

ConfigFileEdit failed(const QString &sentence, const QStringList &arguments)
{
    return {Outcome::failed, {sentence, arguments}};
}

ConfigFileEdit notWritten(const QString &path, const QString &reason)
{
    return failed(u"Velko couldn't change “%@” (%@); it stays as it was. Make the file and its folder writable or free "
                  "some space, then try again."_s,
                  {path, reason});
}

ConfigFileEdit notUnderstood(const QString &path)
{
    return failed(u"Velko left “%@” alone, because it isn't written the way the emulator writes it. Change and save a "
                  "setting in the emulator itself, then try again."_s,
                  {path});
}

/// Closes itself.
struct Handle {
    int number;
    explicit Handle(int opened) : number(opened) { }
    Handle(const Handle &) = delete;
    Handle &operator=(const Handle &) = delete;
    ~Handle()
    {
        if (number >= 0) ::close(number);
    }
};

bool isText(const QByteArray &content)
{
    if (content.contains('\0')) return false;
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder.decode(content);
    return text.isNull() || !decoder.hasError();
}

bool isSame(const struct stat &a, const struct stat &b)
{
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino && a.st_size == b.st_size
        && a.st_mtim.tv_sec == b.st_mtim.tv_sec && a.st_mtim.tv_nsec == b.st_mtim.tv_nsec;
}

void syncFolder(const QString &file)
{
    const Handle folder(
        ::open(QFile::encodeName(QFileInfo(file).path()).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.number >= 0) ::fsync(folder.number);
}

/// Nothing when all went well, else the system's reason.
std::optional<QString> writeBeside(QSaveFile &file, const QByteArray &text, const struct stat &original)
{
    if (!file.open(QFile::WriteOnly)) return file.errorString();
    const bool owned = original.st_uid == ::geteuid() && original.st_gid == ::getegid();
    if (!owned && ::fchown(file.handle(), original.st_uid, original.st_gid) != 0) return qt_error_string();
    if (::fchmod(file.handle(), original.st_mode & 07777) != 0) return qt_error_string();
    if (file.write(text) != text.size() || !file.flush()) return file.errorString();
    if (::fsync(file.handle()) != 0) return qt_error_string();
    return {};
}

std::optional<QString> keepBackup(const QString &path, const QByteArray &text, const struct stat &original)
{
    const QString backup = path + u".velkoemu-backup"_s;
    if (QFileInfo::exists(backup) || QFileInfo(backup).isSymLink()) return {};
    QSaveFile file(backup);
    const auto reason = writeBeside(file, text, original);
    if (reason) return reason;
    return file.commit() ? std::nullopt : std::optional(file.errorString());
}
}

ConfigFileEdit editConfigFile(const QString &path, const TextEdit &edit, BackUp backUp)
{
    const QString target = QFileInfo(path).canonicalFilePath(); // of a symbolic link, which stays
    if (target.isEmpty()) return {Outcome::missing, {}};
    const QByteArray name = QFile::encodeName(target);
    struct stat original, present;
    // A pipe must not keep us waiting.
    const Handle opened(::open(name.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    if (opened.number < 0 || ::fstat(opened.number, &original) != 0) return notWritten(path, qt_error_string());
    if (!S_ISREG(original.st_mode) || original.st_size > largest) return notUnderstood(path);

    QFile file;
    if (!file.open(opened.number, QFile::ReadOnly)) return notWritten(path, file.errorString());
    const QByteArray text = file.read(largest + 1);
    if (text.size() != original.st_size || !isText(text)) return notUnderstood(path);
    const auto edited = edit(text);
    if (!edited) return notUnderstood(path);
    if (backUp == BackUp::once) {
        if (const auto reason = keepBackup(path, text, original)) return notWritten(path, *reason);
    }
    if (*edited == text) return {Outcome::unchanged, {}};

    // A rename would replace a file that the user has made read-only.
    if (::faccessat(AT_FDCWD, name.constData(), W_OK, AT_EACCESS) != 0) return notWritten(path, qt_error_string());
    QSaveFile written(target);
    if (const auto reason = writeBeside(written, *edited, original)) return notWritten(path, *reason);
    if (::stat(name.constData(), &present) != 0 || !isSame(original, present)) {
        return failed(u"“%@” was changed by another program at the same moment, so Velko left it alone. Try again."_s,
                      {path});
    }
    if (!written.commit()) return notWritten(path, written.errorString());
    syncFolder(target);
    return {Outcome::written, {}};
}
