#include "play/states/StateFiles.h"

#include "base/IniText.h"
#include "base/TomlText.h"
#include "emulators/bios/XemuSetup.h"
#include "emulators/finding/EmulatorFolders.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

static QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return QFileInfo(path).isFile() && file.open(QFile::ReadOnly) ? file.read(2 * 1024 * 1024) : QByteArray();
}

/// A folder as settings name it: absent, in quotes, in the home, or below the emulator's own folder.
static QString folderOr(QString setting, const QString &root, const QString &home, const QString &usual)
{
    if (setting.size() > 1 && setting.startsWith(u'"') && setting.endsWith(u'"'))
        setting = setting.sliced(1, setting.size() - 2);
    if (setting.startsWith("~/"_L1)) setting = home + setting.sliced(1);
    if (setting.isEmpty() || setting == "default"_L1) return usual;
    return QDir::cleanPath(QDir::isAbsolutePath(setting) ? setting : root + u'/' + setting);
}

static StatePlace retroArchPlace(const QByteArray &config, const QString &root, const QString &beside,
                                 const QString &home)
{
    const auto setting = [&config](const QString &key) { return iniValues(config, {}, key).value(0); };
    QString folder = folderOr(setting(u"savestate_directory"_s), root, home, root + u"/states"_s);
    if (setting(u"savestates_in_content_dir"_s).contains("true"_L1)) folder = beside;
    // In a folder for each core, for each folder of games, or both.
    return {folder, folder == beside ? 0 : 2, uR"re(.+\.state\d*)re"_s};
}

static QList<StatePlace> xemuPlaces(const QByteArray &settings)
{
    const QFileInfo disk(xemuSystemFiles(QString::fromUtf8(settings)).value(u"hdd_path"_s));
    if (disk.fileName().isEmpty()) return {};
    return {{disk.absolutePath(), 0, QRegularExpression::escape(disk.fileName())}};
}

static QList<StatePlace> placesOf(const InstalledEmulator &copy, const QString &beside, const Places &places)
{
    const QString &id = copy.emulatorID;
    const EmulatorFolders folders = emulatorFolders(copy, places);
    const QByteArray settings = contentOf(settingsFile(id, folders));
    const auto folder = [&](const QString &setting, const QString &usual) {
        return folderOr(setting, folders.data, places.home, usual);
    };
    const auto below = [&](const QString &section, const QString &key, const QString &name) {
        return folder(iniValues(settings, section, key).value(0), folders.data + name);
    };
    if (id == "mgba"_L1) {
        const QByteArray config = contentOf(folders.config + u"/config.ini"_s);
        const QString named = iniValues(config, u"ports.qt"_s, u"savestatePath"_s).value(0);
        return {{folder(named, beside), 0, uR"re(.+\.ss[1-9])re"_s}};
    }
    if (id == "melonds"_L1) {
        const QStringList named = tomlValues(settings, {u"Instance0"_s}, u"SavestatePath"_s);
        const auto text = named.isEmpty() ? std::nullopt : textOfToml(named.first().toUtf8());
        return {{folder(text.value_or(QString()), beside), 0, uR"re(.+\.ml[1-8])re"_s}};
    }
    if (id == "duckstation"_L1)
        return {{below(u"Folders"_s, u"SaveStates"_s, u"/savestates"_s), 0, uR"re(.+_\d{1,2}\.sav)re"_s}};
    if (id == "pcsx2"_L1) return {{below(u"Folders"_s, u"Savestates"_s, u"/sstates"_s), 0, uR"re(.+\.\d\d\.p2s)re"_s}};
    if (id == "flycast"_L1) return {{below(u"config"_s, u"Dreamcast.SavestatePath"_s, {}), 0, uR"re(.+\.state)re"_s}};
    if (id == "dolphin"_L1) return {{folders.data + u"/StateSaves"_s, 0, uR"re(.+\.s\d\d)re"_s}};
    if (id == "ppsspp"_L1) return {{folders.config + u"/PSP/PPSSPP_STATE"_s, 0, uR"re(.+_\d\.ppst)re"_s}};
    if (id == "azahar"_L1) return {{folders.data + u"/states"_s, 0, uR"re(.+\.\d\d\.cst)re"_s}};
    if (id == "retroarch"_L1)
        return {retroArchPlace(contentOf(folders.config + u"/retroarch.cfg"_s), folders.config, beside, places.home)};
    if (id == "xemu"_L1) return xemuPlaces(settings);
    return {};
}

QList<StatePlace> statePlaces(const QString &engine, const QString &gamePath, const QList<InstalledEmulator> &copies,
                              const Places &places)
{
    QList<InstalledEmulator> all = copies;
    if (all.isEmpty()) all = {{engine, ApplicationKind::native, {}, {}, {}}};
    QList<StatePlace> found;
    for (const InstalledEmulator &copy : std::as_const(all)) {
        for (const StatePlace &place : placesOf(copy, QFileInfo(gamePath).absolutePath(), places)) {
            if (!found.contains(place)) found += place;
        }
    }
    return found;
}

static void collect(const StatePlace &place, const QString &folder, int levels, int &room, QList<StateFile> &files)
{
    const QRegularExpression names(QRegularExpression::anchoredPattern(place.names),
                                   QRegularExpression::DotMatchesEverythingOption);
    QDirIterator entries(folder, QDir::Files | QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot);
    while (entries.hasNext() && room-- > 0) {
        entries.next();
        const QFileInfo entry = entries.fileInfo();
        if (entry.isDir()) {
            if (levels > 0 && !entry.isSymLink()) collect(place, entry.filePath(), levels - 1, room, files);
        } else if (names.match(entry.fileName()).hasMatch()) {
            files += {entry.absoluteFilePath(), entry.size(), entry.lastModified(), entry.metadataChangeTime()};
        }
    }
}

QList<StateFile> stateFiles(const QList<StatePlace> &places)
{
    QList<StateFile> files;
    int room = 20'000;
    for (const StatePlace &place : places)
        collect(place, place.folder, place.levels, room, files);
    return files;
}

std::optional<StateFile> changedState(const QList<StateFile> &before, const QList<StateFile> &now)
{
    QHash<QString, const StateFile *> earlier;
    for (const StateFile &file : before)
        earlier.insert(file.path, &file);
    std::optional<StateFile> newest;
    for (const StateFile &file : now) {
        const StateFile *same = earlier.value(file.path);
        if (file.size == 0 || (same && *same == file)) continue;
        if (!newest || file.replaced > newest->replaced) newest = file;
    }
    return newest;
}

QList<StateFile> statesOf(const QList<StateFile> &files, const QString &engine, const QString &gamePath)
{
    static const QStringList namedByGame{u"mgba"_s, u"melonds"_s, u"flycast"_s, u"retroarch"_s};
    static const QStringList archives{u"zip"_s, u"7z"_s};
    const QFileInfo game(gamePath);
    // A state of a game in an archive may be named after what is inside.
    if (!namedByGame.contains(engine) || archives.contains(game.suffix().toLower())) return files;
    QList<StateFile> mine = files;
    mine.removeIf([base = game.completeBaseName()](const StateFile &file) {
        const QString name = QFileInfo(file.path).fileName();
        return !name.startsWith(base + u'.') && !name.startsWith(base + u'_');
    });
    return mine;
}
