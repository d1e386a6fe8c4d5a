#include "emulators/finding/EmulatorFolders.h"

#include "emulators/finding/CoreFinder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>

using namespace Qt::StringLiterals;

namespace {
/// The two roots under which programs keep their folders.
struct Roots {
    QString config;
    QString data;
};

enum class Root { config, data };

struct Row {
    Root configRoot;
    QString configFolder;
    Root dataRoot;
    QString dataFolder;
    QStringList portableFiles; ///< beside the program: everything is there
    QString portableFolder; ///< beside the program: everything is in it
};

const QHash<QString, Row> &linuxRows()
{
    static const QHash<QString, Row> rows{
        {u"mgba"_s, {Root::config, u"/mgba"_s, Root::config, u"/mgba"_s, {u"portable.ini"_s}, {}}},
        {u"duckstation"_s,
         {Root::data, u"/duckstation"_s, Root::data, u"/duckstation"_s, {u"portable.txt"_s, u"settings.ini"_s}, {}}},
        {u"flycast"_s, {Root::config, u"/flycast"_s, Root::data, u"/flycast"_s, {}, {}}},
        {u"pcsx2"_s,
         {Root::config, u"/PCSX2"_s, Root::config, u"/PCSX2"_s, {u"portable.ini"_s, u"portable.txt"_s}, {}}},
        {u"dolphin"_s, {Root::config, u"/dolphin-emu"_s, Root::data, u"/dolphin-emu"_s, {}, {}}},
        {u"xemu"_s, {Root::data, u"/xemu/xemu"_s, Root::data, u"/xemu/xemu"_s, {u"xemu.toml"_s}, {}}},
        {u"melonds"_s, {Root::config, u"/melonDS"_s, Root::config, u"/melonDS"_s, {}, u"portable"_s}},
        {u"ppsspp"_s, {Root::config, u"/ppsspp"_s, Root::config, u"/ppsspp"_s, {}, {}}},
        {u"rpcs3"_s, {Root::config, u"/rpcs3"_s, Root::config, u"/rpcs3"_s, {}, u"portable"_s}},
        {u"azahar"_s, {Root::config, u"/azahar-emu"_s, Root::data, u"/azahar-emu"_s, {}, {}}},
        {u"cemu"_s, {Root::config, u"/Cemu"_s, Root::data, u"/Cemu"_s, {}, u"portable"_s}},
        {u"shadps4"_s, {Root::data, u"/shadPS4"_s, Root::data, u"/shadPS4"_s, {}, {}}},
    };
    return rows;
}

EmulatorFolders macFolders(const QString &emulatorID, const Places &places)
{
    static const QHash<QString, QString> names{
        {u"openemu"_s, u"OpenEmu"_s}, {u"mgba"_s, u"mGBA"_s},       {u"duckstation"_s, u"DuckStation"_s},
        {u"flycast"_s, u"Flycast"_s}, {u"pcsx2"_s, u"PCSX2"_s},     {u"dolphin"_s, u"Dolphin"_s},
        {u"xemu"_s, u"xemu/xemu"_s},  {u"melonds"_s, u"melonDS"_s}, {u"rpcs3"_s, u"rpcs3"_s},
        {u"azahar"_s, u"Azahar"_s},   {u"cemu"_s, u"Cemu"_s},       {u"shadps4"_s, u"shadPS4"_s},
    };
    if (emulatorID == "ppsspp"_L1) return {places.home + u"/.config/ppsspp"_s, places.home + u"/.config/ppsspp"_s};
    if (!names.contains(emulatorID)) return {};
    const QString folder = places.data + u'/' + names.value(emulatorID);
    return {emulatorID == "azahar"_L1 ? folder + u"/config"_s : folder, folder};
}

/// An AppImage may carry a home or a configuration folder of its own beside it.
Roots rootsOf(const InstalledEmulator &copy, const QString &file, const Places &places)
{
    if (copy.kind == ApplicationKind::flatpak) {
        const QString own = places.home + u"/.var/app/"_s + copy.applicationID;
        return {own + u"/config"_s, own + u"/data"_s};
    }
    Roots roots{places.config, places.data};
    if (copy.kind != ApplicationKind::appImage) return roots;
    if (QFileInfo(file + u".home"_s).isDir()) roots = {file + u".home/.config"_s, file + u".home/.local/share"_s};
    if (QFileInfo(file + u".config"_s).isDir()) roots.config = file + u".config"_s;
    return roots;
}

/// A marker may name a folder beside it.
QString namedIn(const QString &marker)
{
    QFile file(marker);
    if (!marker.endsWith(".txt"_L1) || !file.open(QFile::ReadOnly)) return {};
    const QString name = QString::fromUtf8(file.readLine(256)).trimmed();
    return name.startsWith(u'/') || name.contains(".."_L1) ? QString() : name;
}

QString portableFolder(const Row &row, const QString &beside)
{
    if (!row.portableFolder.isEmpty() && QFileInfo(beside + u'/' + row.portableFolder).isDir())
        return beside + u'/' + row.portableFolder;
    for (const QString &marker : row.portableFiles) {
        const QString file = beside + u'/' + marker;
        if (QFileInfo(file).isFile()) return QDir::cleanPath(beside + u'/' + namedIn(file));
    }
    return {};
}

/// DuckStation uses the configuration folder when its variable is set, which shows only when it names another place.
bool usesConfigFolder(const Roots &roots, const Places &places)
{
    if (roots.config != places.home + u"/.config"_s) return true;
    const QString file = u"/duckstation/settings.ini"_s;
    return QFileInfo::exists(roots.config + file) && !QFileInfo::exists(roots.data + file);
}
}

EmulatorFolders emulatorFolders(const InstalledEmulator &copy, const Places &places)
{
    const QString &id = copy.emulatorID;
    if (places.host == Host::mac) return macFolders(id, places);
    if (id == "retroarch"_L1) return {retroArchFolder(copy, places), retroArchFolder(copy, places)};
    const auto row = linuxRows().constFind(id);
    if (row == linuxRows().constEnd()) return {};

    const QFileInfo program(copy.path);
    const QString file = program.exists() ? program.canonicalFilePath() : copy.path;
    if (copy.kind != ApplicationKind::flatpak) {
        const QString portable = portableFolder(*row, QFileInfo(file).path());
        if (!portable.isEmpty()) return {portable, portable};
    }
    const Roots roots = rootsOf(copy, file, places);
    // These two look into the folder that they are started in, which is the home.
    const QString user = places.home + u"/user"_s;
    if (copy.kind != ApplicationKind::flatpak && (id == "azahar"_L1 || id == "shadps4"_L1) && QFileInfo(user).isDir())
        return {id == "azahar"_L1 ? user + u"/config"_s : user, user};
    if (id == "dolphin"_L1 && QFileInfo(places.home + u"/.dolphin-emu"_s).isDir()
        && copy.kind != ApplicationKind::flatpak)
        return {places.home + u"/.dolphin-emu/Config"_s, places.home + u"/.dolphin-emu"_s};
    if (id == "duckstation"_L1 && usesConfigFolder(roots, places))
        return {roots.config + row->configFolder, roots.config + row->dataFolder};
    const auto under = [&roots](Root root, const QString &folder) {
        return (root == Root::config ? roots.config : roots.data) + folder;
    };
    return {under(row->configRoot, row->configFolder), under(row->dataRoot, row->dataFolder)};
}

QString settingsFile(const QString &emulatorID, const EmulatorFolders &folders)
{
    static const QHash<QString, QString> names{
        {u"pcsx2"_s, u"/inis/PCSX2.ini"_s},
        {u"duckstation"_s, u"/settings.ini"_s},
        {u"flycast"_s, u"/emu.cfg"_s},
        {u"xemu"_s, u"/xemu.toml"_s},
        {u"ppsspp"_s, u"/PSP/SYSTEM/ppsspp.ini"_s},
        {u"rpcs3"_s, u"/config.yml"_s},
        {u"azahar"_s, u"/qt-config.ini"_s},
        {u"cemu"_s, u"/settings.xml"_s},
        {u"melonds"_s, u"/melonDS.toml"_s},
    };
    const QString name = names.value(emulatorID);
    return name.isEmpty() || folders.config.isEmpty() ? QString() : folders.config + name;
}
