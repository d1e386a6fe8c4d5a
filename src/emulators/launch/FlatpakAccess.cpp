#include "emulators/launch/FlatpakAccess.h"

#include <QHash>
#include <QStringList>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
struct Permissions {
    QStringList folders; ///< reached without our help; "/" for all
    bool writable = false; ///< what we add must be writable
};

Permissions permissionsOf(const QString &emulatorID, const QString &home)
{
    static const QStringList wholeHost{u"mgba"_s,   u"flycast"_s, u"dolphin"_s, u"xemu"_s,
                                       u"ppsspp"_s, u"azahar"_s,  u"cemu"_s,    u"retroarch"_s};
    if (wholeHost.contains(emulatorID)) return {{u"/"_s}};
    if (emulatorID == "melonds"_L1) return {{home + u'/'}, true};
    if (emulatorID == "rpcs3"_L1 || emulatorID == "shadps4"_L1) return {{home + u'/', u"/media/"_s, u"/run/media/"_s}};
    return {}; // PCSX2's own build has no permission at all; DuckStation's is not known
}

/// The folder with all that belongs to the game.
QString folderOf(const QString &gamePath, bool isFolder)
{
    if (isFolder) return gamePath;
    // A PlayStation 3 game is started by a program deep inside its folder.
    const qsizetype ps3 = gamePath.indexOf("/PS3_GAME/"_L1);
    return gamePath.first(std::max<qsizetype>(1, ps3 > 0 ? ps3 : gamePath.lastIndexOf(u'/')));
}
}

QString flatpakAccess(const QString &emulatorID, const QString &gamePath, bool isFolder, const QString &home)
{
    const Permissions permissions = permissionsOf(emulatorID, home);
    for (const QString &folder : permissions.folders) {
        if (gamePath.startsWith(folder)) return {};
    }
    QString folder = folderOf(gamePath, isFolder);
    folder.replace(u'\\', u"\\\\"_s).replace(u':', u"\\:"_s); // Flatpak reads ":" as the start of the mode
    return u"--filesystem="_s + folder + (permissions.writable ? QString() : u":ro"_s);
}
