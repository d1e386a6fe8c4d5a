#include "catalog/Console.h"

#include <QHash>

using namespace Qt::StringLiterals;

static constexpr bool home = false;
static constexpr bool handheld = true;

static QStringList words(const QString &text)
{
    return text.split(u' ', Qt::SkipEmptyParts);
}

/// Without system files and notes, which have tables of their own.
static QList<Console> macConsoles()
{
    // clang-format off
    return {
        {u"a2600"_s, u"Atari 2600"_s, u"2600"_s, Maker::atari, 1977, home, Engine::emulator, words(u"a26 bin zip"_s), words(u"openemu"_s), {}, {}},
        {u"a5200"_s, u"Atari 5200"_s, u"5200"_s, Maker::atari, 1982, home, Engine::emulator, words(u"a52 bin zip"_s), words(u"openemu"_s), {}, {}},
        {u"nes"_s, u"Nintendo (NES)"_s, u"NES"_s, Maker::nintendo, 1983, home, Engine::emulator, words(u"nes fds zip"_s), words(u"openemu"_s), {}, {}},
        {u"sms"_s, u"Master System"_s, u"SMS"_s, Maker::sega, 1985, home, Engine::emulator, words(u"sms zip"_s), words(u"openemu"_s), {}, {}},
        {u"a7800"_s, u"Atari 7800"_s, u"7800"_s, Maker::atari, 1986, home, Engine::emulator, words(u"a78 bin zip"_s), words(u"openemu"_s), {}, {}},
        {u"tg16"_s, u"TurboGrafx-16"_s, u"TG16"_s, Maker::nec, 1987, home, Engine::emulator, words(u"pce zip"_s), words(u"openemu"_s), {}, {}},
        {u"genesis"_s, u"Genesis / Mega Drive"_s, u"MD"_s, Maker::sega, 1988, home, Engine::emulator, words(u"md gen smd bin zip"_s), words(u"openemu"_s), {}, {}},
        {u"tgcd"_s, u"TurboGrafx-CD"_s, u"TG-CD"_s, Maker::nec, 1988, home, Engine::emulator, words(u"cue chd"_s), words(u"openemu"_s), {}, {}},
        {u"gb"_s, u"Game Boy"_s, u"GB"_s, Maker::nintendo, 1989, handheld, Engine::emulator, words(u"gb zip"_s), words(u"mgba openemu"_s), {}, {}},
        {u"lynx"_s, u"Atari Lynx"_s, u"LYNX"_s, Maker::atari, 1989, handheld, Engine::emulator, words(u"lnx zip"_s), words(u"openemu"_s), {}, {}},
        {u"snes"_s, u"Super Nintendo"_s, u"SNES"_s, Maker::nintendo, 1990, home, Engine::emulator, words(u"sfc smc zip"_s), words(u"openemu"_s), {}, {}},
        {u"gg"_s, u"Game Gear"_s, u"GG"_s, Maker::sega, 1990, handheld, Engine::emulator, words(u"gg zip"_s), words(u"openemu"_s), {}, {}},
        {u"cdi"_s, u"CD-i"_s, u"CD-i"_s, Maker::philips, 1991, home, Engine::unavailable, words(u""_s), words(u""_s), {}, {}},
        {u"segacd"_s, u"Sega CD / Mega-CD"_s, u"MCD"_s, Maker::sega, 1991, home, Engine::emulator, words(u"cue chd iso"_s), words(u"openemu"_s), {}, {}},
        {u"jaguar"_s, u"Atari Jaguar"_s, u"JAG"_s, Maker::atari, 1993, home, Engine::emulator, words(u"j64 jag zip"_s), words(u"openemu"_s), {}, {}},
        {u"32x"_s, u"Sega 32X"_s, u"32X"_s, Maker::sega, 1994, home, Engine::emulator, words(u"32x zip"_s), words(u"openemu"_s), {}, {}},
        {u"saturn"_s, u"Sega Saturn"_s, u"SAT"_s, Maker::sega, 1994, home, Engine::emulator, words(u"cue chd iso"_s), words(u"openemu"_s), {}, {}},
        {u"ps1"_s, u"PlayStation"_s, u"PS1"_s, Maker::sony, 1994, home, Engine::emulator, words(u"iso chd cue bin img m3u pbp"_s), words(u"duckstation openemu"_s), {}, {}},
        {u"vb"_s, u"Virtual Boy"_s, u"VB"_s, Maker::nintendo, 1995, handheld, Engine::emulator, words(u"vb zip"_s), words(u"openemu"_s), {}, {}},
        {u"jaguarcd"_s, u"Jaguar CD"_s, u"JCD"_s, Maker::atari, 1995, home, Engine::unavailable, words(u""_s), words(u""_s), {}, {}},
        {u"n64"_s, u"Nintendo 64"_s, u"N64"_s, Maker::nintendo, 1996, home, Engine::emulator, words(u"z64 n64 v64 zip"_s), words(u"openemu"_s), {}, {}},
        {u"gbc"_s, u"Game Boy Color"_s, u"GBC"_s, Maker::nintendo, 1998, handheld, Engine::emulator, words(u"gbc gb zip"_s), words(u"mgba openemu"_s), {}, {}},
        {u"dc"_s, u"Dreamcast"_s, u"DC"_s, Maker::sega, 1998, home, Engine::emulator, words(u"gdi cdi chd cue"_s), words(u"flycast"_s), {}, {}},
        {u"ps2"_s, u"PlayStation 2"_s, u"PS2"_s, Maker::sony, 2000, home, Engine::emulator, words(u"iso chd cso bin gz"_s), words(u"pcsx2"_s), {}, {}},
        {u"gba"_s, u"Game Boy Advance"_s, u"GBA"_s, Maker::nintendo, 2001, handheld, Engine::emulator, words(u"gba zip"_s), words(u"mgba openemu"_s), {}, {}},
        {u"gc"_s, u"GameCube"_s, u"GC"_s, Maker::nintendo, 2001, home, Engine::emulator, words(u"iso rvz gcm ciso gcz"_s), words(u"dolphin"_s), {}, {}},
        {u"xbox"_s, u"Xbox"_s, u"XBOX"_s, Maker::microsoft, 2001, home, Engine::emulator, words(u"iso xiso"_s), words(u"xemu"_s), {}, {}},
        {u"nds"_s, u"Nintendo DS"_s, u"DS"_s, Maker::nintendo, 2004, handheld, Engine::emulator, words(u"nds zip"_s), words(u"melonds openemu"_s), {}, {}},
        {u"psp"_s, u"PSP"_s, u"PSP"_s, Maker::sony, 2004, handheld, Engine::emulator, words(u"iso cso pbp chd"_s), words(u"ppsspp openemu"_s), {}, {}},
        {u"x360"_s, u"Xbox 360"_s, u"360"_s, Maker::microsoft, 2005, home, Engine::unavailable, words(u""_s), words(u""_s), {}, {}},
        {u"wii"_s, u"Wii / WiiWare"_s, u"Wii"_s, Maker::nintendo, 2006, home, Engine::emulator, words(u"iso rvz wbfs wad ciso gcz"_s), words(u"dolphin"_s), {}, {}},
        {u"ps3"_s, u"PlayStation 3"_s, u"PS3"_s, Maker::sony, 2006, home, Engine::emulator, words(u"iso bin pkg"_s), words(u"rpcs3"_s), {}, {}},
        {u"3ds"_s, u"Nintendo 3DS"_s, u"3DS"_s, Maker::nintendo, 2011, handheld, Engine::emulator, words(u"3ds cci cxi cia 3dsx app"_s), words(u"azahar"_s), {}, {}},
        {u"wiiu"_s, u"Wii U"_s, u"WiiU"_s, Maker::nintendo, 2012, home, Engine::emulator, words(u"wud wux wua rpx iso"_s), words(u"cemu"_s), {}, {}},
        {u"ps4"_s, u"PlayStation 4"_s, u"PS4"_s, Maker::sony, 2013, home, Engine::emulator, words(u"bin elf"_s), words(u"shadps4"_s), {}, {}},
        {u"switch"_s, u"Nintendo Switch"_s, u"Switch"_s, Maker::nintendo, 2017, home, Engine::nxnative, words(u"nsp nsz xci xcz"_s), words(u""_s), {}, {}},
        {u"switch2"_s, u"Nintendo Switch 2"_s, u"Switch 2"_s, Maker::nintendo, 2025, home, Engine::nxnative, words(u""_s), words(u""_s), {}, {}},
        {u"native"_s, u"Native ports"_s, u"APP"_s, Maker::other, 2026, home, Engine::nativeApp, words(u"app"_s), words(u""_s), {}, {}},
    };
    // clang-format on
}

struct BiosRow {
    QString label;
    QString hint;
    bool required;
    QString macFolder; ///< both empty: installed through RPCS3
    QString linuxFolder;
};

static const QHash<QString, BiosRow> &biosRows()
{
    static const bool needed = true;
    static const bool optional = false;
    static const QString openEmu = u"Library/Application Support/OpenEmu/BIOS"_s;
    static const QString retroArch = u".config/retroarch/system"_s;
    static const QHash<QString, BiosRow> rows{
        {u"a5200"_s, {u"Atari 5200 BIOS"_s, u"5200.rom"_s, needed, openEmu, retroArch}},
        {u"tgcd"_s, {u"System Card BIOS"_s, u"syscard3.pce"_s, needed, openEmu, retroArch}},
        {u"lynx"_s, {u"Lynx BIOS"_s, u"lynxboot.img"_s, needed, openEmu, retroArch}},
        {u"segacd"_s,
         {u"Sega CD BIOS"_s, u"bios_CD_U.bin / bios_CD_E.bin / bios_CD_J.bin"_s, needed, openEmu, retroArch}},
        {u"saturn"_s, {u"Saturn BIOS"_s, u"sega_101.bin / mpr-17933.bin"_s, needed, openEmu, retroArch}},
        {u"ps1"_s,
         {u"PS1 BIOS"_s, u"scph5501.bin, scph1001.bin…"_s, needed, u"Library/Application Support/DuckStation/bios"_s,
          u".local/share/duckstation/bios"_s}},
        {u"dc"_s,
         {u"Dreamcast BIOS (optional)"_s, u"dc_boot.bin, dc_flash.bin"_s, optional,
          u"Library/Application Support/Flycast/data"_s, u".local/share/flycast"_s}},
        {u"ps2"_s,
         {u"PS2 BIOS"_s, u"SCPH-xxxxx.bin"_s, needed, u"Library/Application Support/PCSX2/bios"_s,
          u".config/PCSX2/bios"_s}},
        {u"xbox"_s,
         {u"Xbox system files"_s, u"mcpx_1.0.bin, flash BIOS (.bin), hard disk (.qcow2)"_s, needed,
          u"Library/Application Support/xemu/xemu"_s, u".local/share/xemu/xemu"_s}},
        {u"ps3"_s, {u"PS3 firmware"_s, u"PS3UPDAT.PUP (from Sony's official site)"_s, needed, {}, {}}},
        {u"ps4"_s,
         {u"PS4 firmware modules (recommended)"_s,
          u"libSceNgs2.sprx, libSceFont.sprx, libSceJson.sprx… from your PS4"_s, optional,
          u"Library/Application Support/shadPS4/sys_modules"_s, u".local/share/shadPS4/sys_modules"_s}},
    };
    return rows;
}

static std::optional<BiosReq> biosOf(const QString &consoleID, Host host)
{
    const auto row = biosRows().constFind(consoleID);
    if (row == biosRows().constEnd()) return {};
    const QString folder = host == Host::linux ? row->linuxFolder : row->macFolder;
    const BiosDest dest{folder.isEmpty() ? BiosDest::Kind::ps3Firmware : BiosDest::Kind::folder, folder};
    return BiosReq{row->label, row->hint, row->required, dest};
}

static std::optional<QString> noteOf(const QString &consoleID)
{
    static const QHash<QString, QString> notes{
        {u"cdi"_s, u"No simple CD-i emulator on Mac yet."_s},
        {u"jaguarcd"_s, u"No simple Jaguar CD emulator on Mac yet."_s},
        {u"xbox"_s, u"After dropping the files, select them once in xemu's settings (Machine → System)."_s},
        {u"x360"_s, u"No Xbox 360 emulator on Mac yet. Some games exist as native ports (recompilations)."_s},
        {u"ps3"_s, u"For a game folder, drop its EBOOT.BIN (in PS3_GAME/USRDIR)."_s},
        {u"ps4"_s,
         u"Drop the game's folder (it holds eboot.bin and sce_sys). Only decrypted dumps of your own games work: store .pkg files don't."_s},
        {u"switch"_s, u"No emulator: the game is recompiled into a real native Mac app with nxnative."_s},
        {u"switch2"_s,
         u"No emulator: nxnative rebuilds the game into a native Mac app, from a folder of the game's files (base/exefs, base/romfs) dumped from your own Switch 2. Mac only for now."_s},
        {u"native"_s,
         u"Games already recompiled into Mac apps (Zelda 64: Recompiled, Ship of Harkinian, Bloodborne…). Drop the .app here."_s},
    };
    const auto note = notes.constFind(consoleID);
    return note == notes.constEnd() ? std::nullopt : std::optional(*note);
}

static QList<Console> consolesOf(Host host)
{
    QList<Console> all = macConsoles();
    for (Console &console : all) {
        console.bios = biosOf(console.id, host);
        console.note = noteOf(console.id);
        if (host == Host::mac) continue;
        console.emulators.replaceInStrings(u"openemu"_s, u"retroarch"_s);
        if (console.engine == Engine::nativeApp) console.extensions += u"appimage"_s;
    }
    return all;
}

const QList<Console> &consoles(Host host)
{
    static const QList<Console> mac = consolesOf(Host::mac);
    static const QList<Console> linux = consolesOf(Host::linux);
    return host == Host::mac ? mac : linux;
}

static QHash<QString, const Console *> consolesByID(Host host)
{
    QHash<QString, const Console *> byID;
    for (const Console &console : consoles(host))
        byID.insert(console.id, &console);
    return byID;
}

const Console *consoleWithID(const QString &id, Host host)
{
    static const QHash<QString, const Console *> mac = consolesByID(Host::mac);
    static const QHash<QString, const Console *> linux = consolesByID(Host::linux);
    return (host == Host::mac ? mac : linux).value(id);
}
