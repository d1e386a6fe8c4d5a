#include "platform/linux/NameSearch.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QSet>
#include <deque>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

bool isDiscarded(const QString &path, const Places &places)
{
    const QString folders = path + u'/';
    for (const QLatin1String part :
         {"/.local/share/Trash/"_L1, "/.Trash/"_L1, "/.Trash-"_L1, "/.cache/"_L1, "/Library/Caches/"_L1}) {
        if (folders.contains(part)) return true;
    }
    const qsizetype flatpak = folders.indexOf("/.var/app/"_L1);
    return folders.startsWith(places.cache + u'/') || folders.startsWith(places.data + u"/Trash/"_s)
        || (flatpak >= 0 && folders.sliced(flatpak).section(u'/', 4, 4) == "cache"_L1);
}

QString literalPattern(const QString &text)
{
    QString pattern;
    for (const QChar c : text) {
        if (u"*?[]\\"_s.contains(c)) pattern += u'\\';
        pattern += c;
    }
    return pattern;
}

// A pattern without "*", "?" or "[" would fit anywhere in a name, so the last character goes into brackets. plocate
// 1.1.18 does not take a backslash for a reason to match the whole name.
QString exactPattern(const QString &name)
{
    const qsizetype last = name.back().isLowSurrogate() && name.size() > 1 ? 2 : 1;
    return literalPattern(name.chopped(last)) + u"[\\"_s + name.last(last) + u']';
}

namespace {

class FolderSearch {
public:
    FolderSearch(const QString &name, const Places &places, const SearchLimits &limits)
        : m_name(QFile::encodeName(name)), m_places(places), m_limits(limits), m_deadline(limits.time)
    { }

    QStringList run(const QStringList &folders)
    {
        for (const QString &folder : folders)
            m_waiting.push_back({QFile::encodeName(folder), 1});
        while (!m_waiting.empty() && m_entries < m_limits.entries && !m_deadline.hasExpired()) {
            const Folder next = m_waiting.front();
            m_waiting.pop_front();
            look(next);
        }
        m_found.removeDuplicates();
        return m_found;
    }

private:
    struct Folder {
        QByteArray path;
        int level;
    };

    void look(const Folder &folder)
    {
        const std::unique_ptr<DIR, int (*)(DIR *)> open(opendir(folder.path.constData()), closedir);
        if (!open || !isNew(dirfd(open.get()))) return;
        while (const dirent *entry = readdir(open.get())) {
            const QByteArray name(entry->d_name);
            if (name == "." || name == "..") continue;
            if (++m_entries > m_limits.entries) return;
            const QByteArray path = (folder.path == "/" ? QByteArray() : folder.path) + '/' + name;
            if (name == m_name) add(path);
            if (folder.level < m_limits.levels && isFolder(dirfd(open.get()), *entry) && mayEnter(path))
                m_waiting.push_back({path, folder.level + 1});
        }
    }

    /// The same folder may be reached twice: by overlapping folders, or by a mount.
    bool isNew(int folder)
    {
        struct stat status { };
        if (fstat(folder, &status) != 0) return false;
        const std::pair<quint64, quint64> identity(status.st_dev, status.st_ino);
        const bool known = m_seen.contains(identity);
        m_seen.insert(identity);
        return !known;
    }

    static bool isFolder(int parent, const dirent &entry)
    {
        if (entry.d_type != DT_UNKNOWN) return entry.d_type == DT_DIR;
        struct stat status { };
        return fstatat(parent, entry.d_name, &status, AT_SYMLINK_NOFOLLOW) == 0 && S_ISDIR(status.st_mode);
    }

    bool mayEnter(const QByteArray &path) const
    {
        return path != "/proc" && path != "/sys" && path != "/dev" && !isDiscarded(QFile::decodeName(path), m_places);
    }

    void add(const QByteArray &path)
    {
        const QString found = QFile::decodeName(path);
        if (QFile::exists(found) && !isDiscarded(found, m_places)) m_found += found;
    }

    QByteArray m_name;
    const Places &m_places;
    SearchLimits m_limits;
    QDeadlineTimer m_deadline;
    std::deque<Folder> m_waiting;
    QSet<std::pair<quint64, quint64>> m_seen;
    int m_entries = 0;
    QStringList m_found;
};

}

QStringList searchFolders(const QString &name, const QStringList &folders, const Places &places,
                          const SearchLimits &limits)
{
    return FolderSearch(name, places, limits).run(folders);
}
