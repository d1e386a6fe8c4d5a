#include "library/LibraryDisk.h"

#include "base/DayKey.h"
#include "library/LibraryFile.h"
#include "platform/Preferences.h"
#include "platform/VelkoFolder.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSaveFile>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

using namespace Qt::StringLiterals;

static constexpr int keptBackups = 7;

/// Where a chain of symbolic links ends; the file there need not exist.
static QString linkTarget(QString file)
{
    for (int link = 0; link < 40 && QFileInfo(file).isSymLink(); ++link)
        file = QFileInfo(file).symLinkTarget();
    return file;
}

static std::optional<QList<GameEntry>> readGames(const QString &name)
{
    QFile file(name);
    if (!QFileInfo(file).isFile() || !file.open(QFile::ReadOnly)) return {};
    QByteArray json(file.size() + libraryPadding, Qt::Uninitialized);
    const qint64 size = file.read(json.data(), json.size());
    if (size < 0 || !file.atEnd()) return {};
    json.truncate(size);
    return decodeLibrary(std::move(json));
}

static void syncFolder(const QString &folder)
{
    const int handle = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle < 0) return;
    ::fsync(handle);
    ::close(handle);
}

/// Nothing when all went well, else the system's reason. QSaveFile alone would not notice that the disk refused.
static std::optional<QString> writeWhole(const QString &name, const QList<GameEntry> &games,
                                         const QString &velkoFolder = {})
{
    QSaveFile file(name);
    if (!file.open(QFile::WriteOnly) || !writeLibrary(file, games, velkoFolder) || !file.flush())
        return file.errorString();
    if (::fsync(file.handle()) != 0) return qt_error_string();
    if (!file.commit()) return file.errorString();
    syncFolder(QFileInfo(name).path());
    return {};
}

LibraryDisk::LibraryDisk(const Places &places, const Preferences &preferences)
    : m_places(places), m_preferences(preferences), m_file(linkTarget(places.libraryFile()))
{ }

QString LibraryDisk::inDataFolder(const QString &ending) const
{
    return m_places.libraryFile() + ending;
}

QList<GameEntry> LibraryDisk::read(const QDateTime &now)
{
    QDir().mkpath(m_places.dataFolder());
    m_found = Found::nothing;
    if (!QFileInfo::exists(m_file)) return {};
    std::optional<QList<GameEntry>> games = readGames(m_file);
    m_found = games ? Found::good : Found::unreadable;
    m_startedUnreadable = !games;
    if (!games) m_setAside = freeSetAsideName(now);
    return std::move(games).value_or(QList<GameEntry>());
}

QString LibraryDisk::freeSetAsideName(const QDateTime &now) const
{
    const QString name = inDataFolder(u".unreadable-"_s + now.toString(u"yyyy-MM-dd HH.mm.ss"_s));
    QString freeName = name;
    for (int number = 2; QFileInfo::exists(freeName); ++number)
        freeName = name + u' ' + QString::number(number);
    return freeName;
}

bool LibraryDisk::setAside(const QDateTime &now)
{
    if (QFileInfo::exists(m_setAside)) m_setAside = freeSetAsideName(now);
    if (!QFile::rename(m_file, m_setAside)) return false;
    m_found = Found::nothing;
    return true;
}

void LibraryDisk::forgetSetAside()
{
    if (m_found != Found::unreadable) m_setAside.clear();
}

QStringList LibraryDisk::backups() const
{
    static const QRegularExpression day(u"^library\\.json\\.backup-\\d{4}-\\d\\d-\\d\\d$"_s);
    return QDir(m_places.dataFolder()).entryList(QDir::Files, QDir::Name).filter(day);
}

/// A second name for the old file is enough, since the new one is another file that takes over its first name.
void LibraryDisk::keepBackup(const QString &day)
{
    const QString backup = inDataFolder(u".backup-"_s + day);
    if (QFileInfo::exists(backup)) return;
    if (::link(QFile::encodeName(m_file).constData(), QFile::encodeName(backup).constData()) != 0)
        QFile::copy(m_file, backup);
    m_newestBackup.reset();
    const QStringList all = backups();
    for (qsizetype i = 0; i < all.size() - keptBackups; ++i)
        QFile::remove(m_places.dataFolder() + u'/' + all[i]);
}

Result<void> LibraryDisk::write(const QList<GameEntry> &games, const QDateTime &now)
{
    QDir().mkpath(m_places.dataFolder());
    if (m_found == Found::unreadable && !setAside(now)) {
        return Message{u"Velko can't read your library file and can't set it aside, so nothing is saved: %@. Make the "
                       "file readable or move it away; the next change is saved again."_s,
                       {m_file}};
    }
    if (m_found == Found::good) keepBackup(dayKey(now));
    if (const auto reason = writeWhole(m_file, games)) {
        return Message{u"Velko couldn't save your library to %@ (%@). Free some space or make the folder writable; the "
                       "next change is saved again."_s,
                       {m_file, *reason}};
    }
    m_found = Found::good;
    writePortableCopy(games, dayKey(now));
    return {};
}

void LibraryDisk::writePortableCopy(const QList<GameEntry> &games, const QString &day)
{
    if (!m_preferences.get(preference::folderOrganized)) return;
    const QString folder = QDir::cleanPath(velkoFolder(m_places, m_preferences));
    if (!QFileInfo(folder).isDir()) return;
    const QString copy = folder + u"/Velko Library.json"_s;
    QFile::rename(folder + u"/VelkoEmu Library.json"_s, copy); // does nothing when the copy is there already
    // The list began empty, so the copy may be all that there is of the games before.
    if (std::exchange(m_startedUnreadable, false)) QFile::rename(copy, copy + u".backup-"_s + day);
    writeWhole(copy, games, folder);
}

QString LibraryDisk::newestBackup() const
{
    if (m_newestBackup) return *m_newestBackup;
    m_newestBackup = QString();
    const QStringList all = backups();
    for (auto name = all.rbegin(); name != all.rend() && m_newestBackup->isEmpty(); ++name) {
        const QString file = m_places.dataFolder() + u'/' + *name;
        if (readGames(file)) m_newestBackup = file;
    }
    return *m_newestBackup;
}

std::optional<QList<GameEntry>> LibraryDisk::readBackup() const
{
    return readGames(newestBackup());
}
