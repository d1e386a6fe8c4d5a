#include "emulators/finding/EmulatorSearch.h"

#include "base/SearchForm.h"
#include "emulators/finding/AppImageName.h"
#include "platform/FileIndex.h"
#include "platform/VelkoFolder.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>
#include <QSysInfo>

using namespace Qt::StringLiterals;

/// Thrown away, or a download that may vanish at any time.
static bool isDiscarded(const QString &path)
{
    static const QStringList places{u"/.Trash/"_s, u"/.Trash-"_s, u"/Trash/files/"_s, u"/Library/Caches/"_s,
                                    u"/.cache/"_s};
    return std::any_of(places.begin(), places.end(), [&path](const QString &place) { return path.contains(place); });
}

static ApplicationKind kindOf(const QString &path)
{
    // A link on PATH may lead to an AppImage.
    const QString file = QFileInfo(path).canonicalFilePath();
    return file.endsWith(".appimage"_L1, Qt::CaseInsensitive) ? ApplicationKind::appImage : ApplicationKind::native;
}

static InstalledEmulator bareCopy(const EmulatorDef &def, const QString &path)
{
    return {def.id, kindOf(path), path, {}, {path}};
}

static InstalledEmulator bundleCopy(const EmulatorDef &def, const QString &path)
{
    return {def.id, ApplicationKind::bundle, path, def.bundleIDs.value(0), {path}};
}

static QStringList flatpakCommand(const EmulatorDef &def, const Application &application)
{
    QStringList command = application.command;
    const qsizetype run = command.indexOf("run"_L1);
    if (run < 1 || command.last() != application.id) return {u"flatpak"_s, u"run"_s, application.id};
    // The Flatpak's own command is the launcher, which takes other arguments.
    if (def.id == "shadps4"_L1) {
        command.removeIf([](const QString &argument) { return argument.startsWith("--command="_L1); });
        command.insert(run + 1, u"--command=shadps4"_s);
    }
    return command;
}

/// Nothing for an entry that starts the program through a shell: a game's path must never meet one.
static std::optional<InstalledEmulator> registeredCopy(const EmulatorDef &def, const Application &application)
{
    switch (application.kind) {
    case ApplicationKind::bundle:
        return InstalledEmulator{def.id, application.kind, application.path, application.id, {application.path}};
    case ApplicationKind::flatpak:
        return InstalledEmulator{def.id, application.kind, application.path, application.id,
                                 flatpakCommand(def, application)};
    case ApplicationKind::native:
    case ApplicationKind::appImage:
        static const QStringList shells{u"sh"_s, u"bash"_s, u"dash"_s, u"zsh"_s};
        const QStringList command = application.command.isEmpty() ? QStringList{application.path} : application.command;
        for (const QString &argument : command) {
            if (shells.contains(QFileInfo(argument).fileName())) return {};
        }
        return InstalledEmulator{def.id, kindOf(application.path), application.path, application.id, command};
    }
    return {};
}

EmulatorSearch::EmulatorSearch(const Places &places, const Workspace &workspace, const FileIndex &index,
                               const EmulatorChoices &choices)
    : m_places(places), m_workspace(workspace), m_index(index), m_choices(choices)
{ }

std::optional<InstalledEmulator> EmulatorSearch::first(const EmulatorDef &def)
{
    for (const auto step : {&EmulatorSearch::remembered, &EmulatorSearch::registered, &EmulatorSearch::inFolders,
                            &EmulatorSearch::onPath, &EmulatorSearch::indexed}) {
        const QList<InstalledEmulator> found = (this->*step)(def);
        if (!found.isEmpty()) return found.first();
    }
    return {};
}

QList<InstalledEmulator> EmulatorSearch::all(const EmulatorDef &def)
{
    QList<InstalledEmulator> found = remembered(def) + registered(def) + inFolders(def) + onPath(def) + indexed(def);
    QSet<QString> seen;
    found.removeIf([&seen](const InstalledEmulator &copy) {
        const QString file = QFileInfo(copy.path).canonicalFilePath();
        const bool again = seen.contains(file);
        seen += file;
        return again;
    });
    return found;
}

QList<InstalledEmulator> EmulatorSearch::remembered(const EmulatorDef &def)
{
    const QString path = m_choices.pathByEmulator.value(def.id);
    const QFileInfo file(path);
    if (path.isEmpty() || !file.exists()) return {};
    if (m_places.host == Host::mac) return {bundleCopy(def, path)};
    for (const Application &application : applications()) {
        if (application.path != path) continue;
        if (const auto copy = registeredCopy(def, application)) return {*copy};
    }
    if (file.isDir()) return appImagesIn(def, path) + programsIn(def, path);
    return path.endsWith(".desktop"_L1) ? QList<InstalledEmulator>() : QList{bareCopy(def, path)};
}

QList<InstalledEmulator> EmulatorSearch::registered(const EmulatorDef &def)
{
    QStringList ids = def.bundleIDs;
    if (!def.flatpakID.isEmpty()) ids += def.flatpakID;
    ids.removeDuplicates();
    QList<InstalledEmulator> found;
    for (const QString &id : ids) {
        for (const Application &application : applications()) {
            if (application.id != id || isDiscarded(application.path) || !QFileInfo::exists(application.path)) continue;
            if (const auto copy = registeredCopy(def, application)) found += *copy;
        }
    }
    return found;
}

QStringList EmulatorSearch::usualFolders() const
{
    const QString home = m_places.home;
    if (m_places.host == Host::mac)
        return m_places.applicationDirs
            + QStringList{home + u"/Applications"_s, home + u"/Downloads"_s, home + u"/Desktop"_s};
    return QStringList{home + u"/Applications"_s, home + u"/AppImages"_s, home + u"/.local/bin"_s}
    + m_places.applicationDirs
        + QStringList{home + u"/Downloads"_s, home + u"/Desktop"_s,
                      velkoFolder(m_places, m_choices.velkoFolder) + u"/Emulators"_s};
}

QList<InstalledEmulator> EmulatorSearch::inFolders(const EmulatorDef &def)
{
    QList<InstalledEmulator> found;
    for (const QString &folder : usualFolders()) {
        if (m_places.host == Host::mac) {
            found += bundlesIn(def, folder);
            continue;
        }
        found += appImagesIn(def, folder) + programsIn(def, folder);
        // Archives are unpacked into a folder of their own: /opt/rpcs3/rpcs3.AppImage.
        for (const QString &name : entries(folder)) {
            const QString inner = folder + u'/' + name;
            if (beginsLikeAppImageOf(def, name) && QFileInfo(inner).isDir())
                found += appImagesIn(def, inner) + programsIn(def, inner);
        }
    }
    return found;
}

QList<InstalledEmulator> EmulatorSearch::onPath(const EmulatorDef &def)
{
    QList<InstalledEmulator> found;
    for (const QString &program : def.programs) {
        for (const QString &folder : m_places.programDirs) {
            const QFileInfo file(folder + u'/' + program);
            if (file.isFile() && file.isExecutable()) found += bareCopy(def, file.filePath());
        }
    }
    return found;
}

QList<InstalledEmulator> EmulatorSearch::indexed(const EmulatorDef &def)
{
    const bool mac = m_places.host == Host::mac;
    QList<InstalledEmulator> found;
    for (const QString &prefix : mac ? def.appNames : def.appImagePrefixes) {
        QStringList paths = m_index.beginningWith(prefix, mac ? u".app"_s : u".appimage"_s);
        paths.removeIf([&](const QString &path) {
            const QString name = path.sliced(path.lastIndexOf(u'/') + 1);
            const bool fits = mac ? name.startsWith(prefix, Qt::CaseInsensitive)
                                  : isAppImageOf(def, name, QSysInfo::currentCpuArchitecture());
            return !fits || isDiscarded(path) || !QFileInfo::exists(path);
        });
        for (const QString &path : mac ? paths : newestFirst(paths))
            found += mac ? bundleCopy(def, path) : bareCopy(def, path);
    }
    return found;
}

QList<InstalledEmulator> EmulatorSearch::appImagesIn(const EmulatorDef &def, const QString &folder)
{
    QStringList names = entries(folder);
    names.removeIf([&](const QString &name) {
        return !isAppImageOf(def, name, QSysInfo::currentCpuArchitecture())
            || !QFileInfo(folder + u'/' + name).isFile();
    });
    QList<InstalledEmulator> found;
    for (const QString &name : newestFirst(names))
        found += bareCopy(def, folder + u'/' + name);
    return found;
}

QList<InstalledEmulator> EmulatorSearch::programsIn(const EmulatorDef &def, const QString &folder)
{
    QList<InstalledEmulator> found;
    for (const QString &program : def.programs) {
        const QFileInfo file(folder + u'/' + program);
        if (file.isFile() && file.isExecutable()) found += bareCopy(def, file.filePath());
    }
    return found;
}

QList<InstalledEmulator> EmulatorSearch::bundlesIn(const EmulatorDef &def, const QString &folder)
{
    QList<InstalledEmulator> found;
    for (const QString &appName : def.appNames) {
        for (const QString &name : entries(folder)) {
            if (name.endsWith(".app"_L1) && searchForm(name.chopped(4)).startsWith(searchForm(appName)))
                found += bundleCopy(def, folder + u'/' + name);
        }
    }
    return found;
}

const QList<Application> &EmulatorSearch::applications()
{
    if (!m_applications) m_applications = m_workspace.applications();
    return *m_applications;
}

const QStringList &EmulatorSearch::entries(const QString &folder)
{
    const auto known = m_entries.constFind(folder);
    if (known != m_entries.constEnd()) return *known;
    return *m_entries.insert(folder, QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name));
}
