#include "platform/linux/InstalledApplications.h"
#include "platform/linux/DesktopEntry.h"

#include <QDirIterator>
#include <QFile>
#include <QSet>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

// The longest entries in use, with every translation, have about 100 KiB.
static constexpr qint64 longestEntry = 1024 * 1024;

/// Relative names of the entries below a folder, sorted. Links to folders are not followed, so there are no cycles.
static QStringList entryFiles(const QString &folder)
{
    QStringList names;
    QDirIterator each(folder, {u"*.desktop"_s}, QDir::Files, QDirIterator::Subdirectories);
    while (each.hasNext())
        names += each.next().sliced(folder.size() + 1);
    names.sort();
    return names;
}

static std::optional<DesktopEntry> readEntry(const QString &path)
{
    QFile file(path);
    if (!file.open(QFile::ReadOnly)) return {};
    return parseDesktopEntry(file.read(longestEntry));
}

/// The program with its folder. An AppImage counts although it may not be executable yet: starting it says what to do.
static QString programPath(const QString &program, const Places &places)
{
    if (program.endsWith(".appimage"_L1, Qt::CaseInsensitive) && QFileInfo(program).isAbsolute())
        return QFileInfo(program).isFile() ? QDir::cleanPath(program) : QString();
    return QStandardPaths::findExecutable(program, places.programDirs);
}

static std::optional<Application> application(const DesktopEntry &entry, const QString &id, const QString &file,
                                              const Places &places)
{
    const bool flatpak = !entry.flatpakID.isEmpty();
    Application found{.id = id, .name = entry.name, .command = flatpak ? flatpakCommand(entry) : entry.command};
    const qsizetype index = programIndex(found.command);
    if (!entry.isApplication || index < 0 || found.command[index].isEmpty()) return {};
    if (!entry.tryExec.isEmpty() && programPath(entry.tryExec, places).isEmpty()) return {};

    found.path = programPath(found.command[index], places);
    if (found.path.isEmpty()) return {};
    found.command[index] = found.path;
    if (flatpak) {
        found.kind = ApplicationKind::flatpak;
        found.id = entry.flatpakID;
        found.path = file;
    } else if (found.path.endsWith(".appimage"_L1, Qt::CaseInsensitive)) {
        found.kind = ApplicationKind::appImage;
    }
    return found;
}

QList<Application> installedApplications(const Places &places)
{
    QList<Application> all;
    QSet<QString> seen;
    for (const QString &dataDir : places.dataDirs) {
        const QString folder = dataDir + u"/applications"_s;
        for (const QString &name : entryFiles(folder)) {
            const QString file = folder + u'/' + name;
            const QString id = QString(name).replace(u'/', u'-').chopped(8); // ".desktop"
            auto entry = seen.contains(id) ? std::nullopt : readEntry(file);
            if (!entry) continue;
            seen.insert(id);
            if (entry->hidden) continue;
            if (entry->flatpakID.isEmpty() && file.contains("/flatpak/exports/"_L1)) entry->flatpakID = id;
            if (const auto found = application(*entry, id, file, places)) all += *found;
        }
    }
    return all;
}
