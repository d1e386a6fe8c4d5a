#include "emulators/finding/CoreFinder.h"

#include "base/IniText.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>

using namespace Qt::StringLiterals;

namespace {
struct CoreRow {
    QStringList names;
    QString package;
};
}

static const QHash<QString, CoreRow> &coreRows()
{
    static const CoreRow genesisPlus{{u"genesis_plus_gx_libretro"_s}, {}};
    static const CoreRow pcEngine{{u"mednafen_pce_fast_libretro"_s, u"mednafen_pce_libretro"_s},
                                  u"libretro-beetle-pce-fast"_s};
    static const CoreRow gameBoy{{u"gambatte_libretro"_s, u"mgba_libretro"_s}, u"libretro-gambatte"_s};
    static const QHash<QString, CoreRow> rows{
        {u"a2600"_s, {{u"stella_libretro"_s, u"stella2014_libretro"_s}, {}}},
        {u"a5200"_s, {{u"atari800_libretro"_s, u"a5200_libretro"_s}, {}}},
        {u"a7800"_s, {{u"prosystem_libretro"_s}, {}}},
        {u"nes"_s, {{u"nestopia_libretro"_s, u"mesen_libretro"_s, u"fceumm_libretro"_s}, u"libretro-nestopia"_s}},
        {u"sms"_s, genesisPlus},
        {u"gg"_s, genesisPlus},
        {u"genesis"_s, genesisPlus},
        {u"segacd"_s, {{u"genesis_plus_gx_libretro"_s, u"picodrive_libretro"_s}, {}}},
        {u"32x"_s, {{u"picodrive_libretro"_s}, {}}},
        {u"tg16"_s, pcEngine},
        {u"tgcd"_s, pcEngine},
        {u"lynx"_s, {{u"handy_libretro"_s, u"mednafen_lynx_libretro"_s}, {}}},
        {u"snes"_s,
         {{u"snes9x_libretro"_s, u"bsnes_mercury_balanced_libretro"_s, u"bsnes_mercury_accuracy_libretro"_s,
           u"bsnes_mercury_performance_libretro"_s},
          u"libretro-bsnes-mercury-balanced"_s}},
        {u"jaguar"_s, {{u"virtualjaguar_libretro"_s}, {}}},
        {u"saturn"_s, {{u"mednafen_saturn_libretro"_s, u"kronos_libretro"_s}, {}}},
        {u"vb"_s, {{u"mednafen_vb_libretro"_s}, u"libretro-beetle-vb"_s}},
        {u"n64"_s, {{u"mupen64plus_next_libretro"_s}, {}}},
        {u"gb"_s, gameBoy},
        {u"gbc"_s, gameBoy},
        {u"gba"_s, {{u"mgba_libretro"_s}, u"libretro-mgba"_s}},
        {u"nds"_s, {{u"desmume_libretro"_s, u"melonds_libretro"_s}, u"libretro-desmume"_s}},
        {u"ps1"_s, {{u"mednafen_psx_libretro"_s, u"mednafen_psx_hw_libretro"_s}, u"libretro-beetle-psx"_s}},
        {u"psp"_s, {{u"ppsspp_libretro"_s}, {}}},
    };
    return rows;
}

QStringList coreNames(const QString &consoleID)
{
    return coreRows().value(consoleID).names;
}

QString corePackage(const QString &consoleID)
{
    return coreRows().value(consoleID).package;
}

std::optional<QString> retroArchDirectory(const QString &key, const QString &configText, const QString &home)
{
    QString folder = iniValues(configText.toUtf8(), {}, key).value(0);
    folder = folder.remove(u'"').trimmed();
    if (folder.startsWith("~/"_L1)) folder = home + folder.sliced(1);
    // "default" and paths beside the program (":/cores") are covered by the usual folders.
    return QDir::isAbsolutePath(folder) && !folder.startsWith(u':') ? std::optional(QDir::cleanPath(folder))
                                                                    : std::nullopt;
}

std::optional<QString> libretroDirectory(const QString &configText, const QString &home)
{
    return retroArchDirectory(u"libretro_directory"_s, configText, home);
}

QString retroArchFolder(const InstalledEmulator &retroArch, const Places &places)
{
    if (retroArch.kind == ApplicationKind::flatpak)
        return places.home + u"/.var/app/"_s + retroArch.applicationID + u"/config/retroarch"_s;
    const QString ownHome = retroArch.path + u".home"_s;
    if (retroArch.kind == ApplicationKind::appImage && QFileInfo(ownHome).isDir())
        return ownHome + u"/.config/retroarch"_s;
    return places.config + u"/retroarch"_s;
}

QStringList coreFolders(const InstalledEmulator &retroArch, const Places &places)
{
    const QString own = retroArchFolder(retroArch, places);
    QStringList folders;
    QFile config(own + u"/retroarch.cfg"_s);
    if (config.open(QFile::ReadOnly)) {
        const QString text = QString::fromUtf8(config.read(1024 * 1024));
        if (const auto configured = libretroDirectory(text, places.home)) folders += *configured;
    }
    folders += own + u"/cores"_s;
    if (retroArch.kind != ApplicationKind::flatpak) {
        for (const QString &folder : places.libraryDirs)
            folders += folder + u"/libretro"_s;
    }
    folders.removeDuplicates();
    return folders;
}

std::optional<QString> findCore(const QString &consoleID, const QStringList &folders)
{
    for (const QString &name : coreNames(consoleID)) {
        for (const QString &folder : folders) {
            const QString file = folder + u'/' + name + u".so"_s;
            if (QFileInfo(file).isFile()) return file;
        }
    }
    return {};
}
