#include "catalog/EmulatorDef.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace {
constexpr auto openedWithFile = std::nullopt;
constexpr auto noCask = std::nullopt;

QString websiteOf(const QString &id)
{
    static const QHash<QString, QString> websites{
        {u"openemu"_s, u"https://openemu.org"_s},
        {u"retroarch"_s, u"https://www.retroarch.com"_s},
        {u"mgba"_s, u"https://mgba.io"_s},
        {u"duckstation"_s, u"https://www.duckstation.org"_s},
        {u"flycast"_s, u"https://github.com/flyinghead/flycast"_s},
        {u"pcsx2"_s, u"https://pcsx2.net"_s},
        {u"dolphin"_s, u"https://dolphin-emu.org"_s},
        {u"xemu"_s, u"https://xemu.app"_s},
        {u"melonds"_s, u"https://melonds.kuribo64.net"_s},
        {u"ppsspp"_s, u"https://www.ppsspp.org"_s},
        {u"rpcs3"_s, u"https://rpcs3.net"_s},
        {u"azahar"_s, u"https://azahar-emu.org"_s},
        {u"cemu"_s, u"https://cemu.info"_s},
        {u"shadps4"_s, u"https://shadps4.net"_s},
    };
    return websites.value(id);
}

QList<EmulatorDef> macDefs()
{
    struct Row {
        QString id, name;
        QStringList appNames;
        QString bundleID;
        std::optional<QString> cask;
        std::optional<QStringList> args;
    };
    const QStringList noArgs;
    const QList<Row> rows{
        {u"openemu"_s,
         u"OpenEmu"_s,
         {u"OpenEmu-Silicon"_s, u"OpenEmu"_s},
         u"org.openemu.OpenEmu"_s,
         u"openemu"_s,
         openedWithFile},
        {u"mgba"_s, u"mGBA"_s, {u"mGBA"_s}, u"com.endrift.mgba"_s, u"mgba"_s, openedWithFile},
        {u"duckstation"_s,
         u"DuckStation"_s,
         {u"DuckStation"_s},
         u"com.github.stenzek.duckstation"_s,
         noCask,
         QStringList{u"-batch"_s, u"--"_s}},
        {u"flycast"_s, u"Flycast"_s, {u"Flycast"_s}, u"com.flyinghead.Flycast"_s, noCask, noArgs},
        {u"pcsx2"_s, u"PCSX2"_s, {u"PCSX2"_s}, u"net.pcsx2.pcsx2"_s, u"pcsx2"_s, QStringList{u"-batch"_s, u"--"_s}},
        {u"dolphin"_s,
         u"Dolphin"_s,
         {u"Dolphin"_s},
         u"org.dolphin-emu.dolphin"_s,
         u"dolphin"_s,
         QStringList{u"-b"_s, u"-e"_s}},
        {u"xemu"_s, u"xemu"_s, {u"xemu"_s}, u"app.xemu.xemu"_s, noCask, QStringList{u"-dvd_path"_s}},
        {u"melonds"_s, u"melonDS"_s, {u"melonDS"_s}, u"net.kuribo64.melonDS"_s, noCask, noArgs},
        {u"ppsspp"_s, u"PPSSPP"_s, {u"PPSSPP"_s, u"PPSSPPSDL"_s}, u"org.ppsspp.ppsspp"_s, u"ppsspp"_s, noArgs},
        {u"rpcs3"_s, u"RPCS3"_s, {u"RPCS3"_s}, u"net.rpcs3.rpcs3"_s, noCask, QStringList{u"--no-gui"_s}},
        // Lime3DS and Citra are earlier names of the same emulator.
        {u"azahar"_s, u"Azahar"_s, {u"Azahar"_s, u"Lime3DS"_s, u"Citra"_s}, u"org.azahar-emu.azahar"_s, noCask, noArgs},
        {u"cemu"_s, u"Cemu"_s, {u"Cemu"_s}, u"info.cemu.Cemu"_s, noCask, QStringList{u"-g"_s}},
        // The identifier that our own installer gives to the copy that it installs.
        {u"shadps4"_s, u"shadPS4"_s, {u"shadPS4"_s}, u"com.velkoemu.shadps4"_s, noCask, QStringList{u"-g"_s}},
    };
    QList<EmulatorDef> defs;
    for (const Row &row : rows) {
        defs += EmulatorDef{row.id, row.name, row.appNames, {row.bundleID}, websiteOf(row.id), row.cask, row.args, {},
                            {},     {}};
    }
    return defs;
}

QList<EmulatorDef> linuxDefs()
{
    struct Row {
        QString id, name;
        QStringList args;
        QString flatpakID;
        QStringList desktopIDs, programs, appImagePrefixes;
    };
    const QList<Row> rows{
        {u"retroarch"_s,
         u"RetroArch"_s,
         {},
         u"org.libretro.RetroArch"_s,
         {u"retroarch"_s, u"com.libretro.RetroArch"_s, u"org.libretro.RetroArch"_s},
         {u"retroarch"_s},
         {u"retroarch"_s}},
        {u"mgba"_s,
         u"mGBA"_s,
         {},
         u"io.mgba.mGBA"_s,
         {u"io.mgba.mGBA"_s, u"mgba-qt"_s},
         {u"mgba-qt"_s, u"mgba"_s},
         {u"mgba"_s}},
        {u"duckstation"_s,
         u"DuckStation"_s,
         {u"-batch"_s, u"--"_s},
         u"org.duckstation.DuckStation"_s,
         {u"org.duckstation.DuckStation"_s, u"duckstation-qt"_s, u"duckstation"_s},
         {u"duckstation-qt"_s, u"duckstation"_s},
         {u"duckstation"_s}},
        {u"flycast"_s,
         u"Flycast"_s,
         {},
         u"org.flycast.Flycast"_s,
         {u"flycast"_s, u"org.flycast.Flycast"_s},
         {u"flycast"_s},
         {u"flycast"_s}},
        {u"pcsx2"_s,
         u"PCSX2"_s,
         {u"-batch"_s, u"--"_s},
         u"net.pcsx2.PCSX2"_s,
         {u"pcsx2-qt"_s, u"PCSX2"_s, u"net.pcsx2.PCSX2"_s},
         {u"pcsx2-qt"_s},
         {u"pcsx2"_s}},
        {u"dolphin"_s,
         u"Dolphin"_s,
         {u"-b"_s, u"-e"_s},
         u"org.DolphinEmu.dolphin-emu"_s,
         {u"dolphin-emu"_s, u"org.DolphinEmu.dolphin-emu"_s},
         {u"dolphin-emu"_s},
         {u"dolphin-emu"_s, u"dolphin_emu"_s}},
        {u"xemu"_s,
         u"xemu"_s,
         {u"-dvd_path"_s},
         u"app.xemu.xemu"_s,
         {u"xemu"_s, u"app.xemu.xemu"_s},
         {u"xemu"_s},
         {u"xemu"_s}},
        {u"melonds"_s,
         u"melonDS"_s,
         {},
         u"net.kuribo64.melonDS"_s,
         {u"net.kuribo64.melonDS"_s, u"melonDS"_s},
         {u"melonDS"_s},
         {u"melonds"_s}},
        {u"ppsspp"_s,
         u"PPSSPP"_s,
         {},
         u"org.ppsspp.PPSSPP"_s,
         {u"org.ppsspp.PPSSPP"_s, u"ppsspp"_s, u"PPSSPPSDL"_s},
         {u"PPSSPPSDL"_s, u"PPSSPPQt"_s, u"ppsspp"_s},
         {u"ppsspp"_s}},
        {u"rpcs3"_s,
         u"RPCS3"_s,
         {u"--no-gui"_s},
         u"net.rpcs3.RPCS3"_s,
         {u"rpcs3"_s, u"net.rpcs3.RPCS3"_s},
         {u"rpcs3"_s},
         {u"rpcs3"_s}},
        {u"azahar"_s,
         u"Azahar"_s,
         {},
         u"org.azahar_emu.Azahar"_s,
         {u"org.azahar_emu.Azahar"_s, u"azahar"_s},
         {u"azahar"_s, u"lime3ds"_s, u"citra-qt"_s},
         {u"azahar"_s, u"lime3ds"_s, u"citra"_s}},
        {u"cemu"_s,
         u"Cemu"_s,
         {u"-g"_s},
         u"info.cemu.Cemu"_s,
         {u"info.cemu.Cemu"_s, u"cemu"_s},
         {u"Cemu"_s, u"cemu"_s},
         {u"cemu"_s}},
        {u"shadps4"_s,
         u"shadPS4"_s,
         {u"-g"_s},
         u"net.shadps4.shadPS4"_s,
         {u"net.shadps4.shadPS4"_s, u"shadps4"_s},
         {u"shadps4"_s},
         {u"shadps4"_s}},
    };
    QList<EmulatorDef> defs;
    for (const Row &row : rows) {
        defs += EmulatorDef{row.id, row.name, {row.name},    row.desktopIDs, websiteOf(row.id),
                            noCask, row.args, row.flatpakID, row.programs,   row.appImagePrefixes};
    }
    return defs;
}

QHash<QString, const EmulatorDef *> defsByID(Host host)
{
    QHash<QString, const EmulatorDef *> byID;
    for (const EmulatorDef &def : emulatorDefs(host))
        byID.insert(def.id, &def);
    return byID;
}
}

const QList<EmulatorDef> &emulatorDefs(Host host)
{
    static const QList<EmulatorDef> mac = macDefs();
    static const QList<EmulatorDef> linux = linuxDefs();
    return host == Host::mac ? mac : linux;
}

const EmulatorDef *emulatorWithID(const QString &id, Host host)
{
    static const QHash<QString, const EmulatorDef *> mac = defsByID(Host::mac);
    static const QHash<QString, const EmulatorDef *> linux = defsByID(Host::linux);
    return (host == Host::mac ? mac : linux).value(id);
}
