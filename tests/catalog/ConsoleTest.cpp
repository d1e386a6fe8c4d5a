#include "catalog/Console.h"
#include "catalog/EmulatorDef.h"
#include "catalog/Maker.h"

#include <QHash>
#include <QSet>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

// id | name | short name | maker | year | handheld | engine | extensions | emulators
static const char macTable[] = R"table(
a2600 | Atari 2600 | 2600 | atari | 1977 | no | emulator | a26 bin zip | openemu
a5200 | Atari 5200 | 5200 | atari | 1982 | no | emulator | a52 bin zip | openemu
nes | Nintendo (NES) | NES | nintendo | 1983 | no | emulator | nes fds zip | openemu
sms | Master System | SMS | sega | 1985 | no | emulator | sms zip | openemu
a7800 | Atari 7800 | 7800 | atari | 1986 | no | emulator | a78 bin zip | openemu
tg16 | TurboGrafx-16 | TG16 | nec | 1987 | no | emulator | pce zip | openemu
genesis | Genesis / Mega Drive | MD | sega | 1988 | no | emulator | md gen smd bin zip | openemu
tgcd | TurboGrafx-CD | TG-CD | nec | 1988 | no | emulator | cue chd | openemu
gb | Game Boy | GB | nintendo | 1989 | yes | emulator | gb zip | mgba openemu
lynx | Atari Lynx | LYNX | atari | 1989 | yes | emulator | lnx zip | openemu
snes | Super Nintendo | SNES | nintendo | 1990 | no | emulator | sfc smc zip | openemu
gg | Game Gear | GG | sega | 1990 | yes | emulator | gg zip | openemu
cdi | CD-i | CD-i | philips | 1991 | no | unavailable | - | -
segacd | Sega CD / Mega-CD | MCD | sega | 1991 | no | emulator | cue chd iso | openemu
jaguar | Atari Jaguar | JAG | atari | 1993 | no | emulator | j64 jag zip | openemu
32x | Sega 32X | 32X | sega | 1994 | no | emulator | 32x zip | openemu
saturn | Sega Saturn | SAT | sega | 1994 | no | emulator | cue chd iso | openemu
ps1 | PlayStation | PS1 | sony | 1994 | no | emulator | iso chd cue bin img m3u pbp | duckstation openemu
vb | Virtual Boy | VB | nintendo | 1995 | yes | emulator | vb zip | openemu
jaguarcd | Jaguar CD | JCD | atari | 1995 | no | unavailable | - | -
n64 | Nintendo 64 | N64 | nintendo | 1996 | no | emulator | z64 n64 v64 zip | openemu
gbc | Game Boy Color | GBC | nintendo | 1998 | yes | emulator | gbc gb zip | mgba openemu
dc | Dreamcast | DC | sega | 1998 | no | emulator | gdi cdi chd cue | flycast
ps2 | PlayStation 2 | PS2 | sony | 2000 | no | emulator | iso chd cso bin gz | pcsx2
gba | Game Boy Advance | GBA | nintendo | 2001 | yes | emulator | gba zip | mgba openemu
gc | GameCube | GC | nintendo | 2001 | no | emulator | iso rvz gcm ciso gcz | dolphin
xbox | Xbox | XBOX | microsoft | 2001 | no | emulator | iso xiso | xemu
nds | Nintendo DS | DS | nintendo | 2004 | yes | emulator | nds zip | melonds openemu
psp | PSP | PSP | sony | 2004 | yes | emulator | iso cso pbp chd | ppsspp openemu
x360 | Xbox 360 | 360 | microsoft | 2005 | no | unavailable | - | -
wii | Wii / WiiWare | Wii | nintendo | 2006 | no | emulator | iso rvz wbfs wad ciso gcz | dolphin
ps3 | PlayStation 3 | PS3 | sony | 2006 | no | emulator | iso bin pkg | rpcs3
3ds | Nintendo 3DS | 3DS | nintendo | 2011 | yes | emulator | 3ds cci cxi cia 3dsx app | azahar
wiiu | Wii U | WiiU | nintendo | 2012 | no | emulator | wud wux wua rpx iso | cemu
ps4 | PlayStation 4 | PS4 | sony | 2013 | no | emulator | bin elf | shadps4
switch | Nintendo Switch | Switch | nintendo | 2017 | no | nxnative | nsp nsz xci xcz | -
switch2 | Nintendo Switch 2 | Switch 2 | nintendo | 2025 | no | nxnative | - | -
native | Native ports | APP | other | 2026 | no | nativeApp | app | -
)table";

static QString text(Engine engine)
{
    switch (engine) {
    case Engine::nxnative:
        return u"nxnative"_s;
    case Engine::emulator:
        return u"emulator"_s;
    case Engine::unavailable:
        return u"unavailable"_s;
    case Engine::nativeApp:
        return u"nativeApp"_s;
    }
    return {};
}

static QString text(const QStringList &words)
{
    return words.isEmpty() ? u"-"_s : words.join(u' ');
}

static QString row(const Console &console)
{
    const QString maker = console.maker == Maker::other ? u"other"_s : displayName(console.maker).toLower();
    return QStringList{console.id,
                       console.name,
                       console.shortName,
                       maker,
                       QString::number(console.year),
                       console.handheld ? u"yes"_s : u"no"_s,
                       text(console.engine),
                       text(console.extensions),
                       text(console.emulators)}
        .join(u" | "_s);
}

TEST(Consoles, areTheTableInItsOrder)
{
    const QStringList table = QString::fromUtf8(macTable).trimmed().split(u'\n');
    ASSERT_EQ(consoles(Host::mac).size(), 38);
    ASSERT_EQ(table.size(), 38);
    for (qsizetype i = 0; i < table.size(); ++i)
        EXPECT_EQ(row(consoles(Host::mac)[i]), table[i]);
}

TEST(Consoles, onLinuxDifferInRetroArchAndAppImagesOnly)
{
    ASSERT_EQ(consoles(Host::linux).size(), 38);
    for (qsizetype i = 0; i < 38; ++i) {
        const QString mac = row(consoles(Host::mac)[i]);
        QString expected = mac;
        expected.replace(u"openemu"_s, u"retroarch"_s).replace(u"nativeApp | app |"_s, u"nativeApp | app appimage |"_s);
        EXPECT_EQ(row(consoles(Host::linux)[i]), expected);
    }
    EXPECT_EQ(consoleWithID(u"n64"_s, Host::linux)->emulators, QStringList{u"retroarch"_s});
    EXPECT_EQ(consoleWithID(u"gba"_s, Host::linux)->emulators, (QStringList{u"mgba"_s, u"retroarch"_s}));
}

TEST(Consoles, areFoundByTheirExactIdentifier)
{
    for (const Host host : {Host::mac, Host::linux}) {
        for (const Console &console : consoles(host))
            EXPECT_EQ(consoleWithID(console.id, host), &console);
        for (const QString &unknown : {u""_s, u"SNES"_s, u"snes "_s, u"openemu"_s})
            EXPECT_EQ(consoleWithID(unknown, host), nullptr);
    }
}

TEST(Consoles, nameOnlyEmulatorsThatExist)
{
    for (const Host host : {Host::mac, Host::linux}) {
        QSet<QString> used;
        for (const Console &console : consoles(host)) {
            for (const QString &id : console.emulators) {
                EXPECT_NE(emulatorWithID(id, host), nullptr) << qPrintable(console.id + u' ' + id);
                used += id;
            }
            EXPECT_EQ(console.emulators.isEmpty(), console.engine != Engine::emulator) << qPrintable(console.id);
        }
        EXPECT_EQ(used.size(), 13); // no emulator is there for nothing
    }
}

// console | required | folder on the Mac | folder on Linux, both below the home folder
static const char biosTable[] = R"table(
a5200 | yes | Library/Application Support/OpenEmu/BIOS | .config/retroarch/system
tgcd | yes | Library/Application Support/OpenEmu/BIOS | .config/retroarch/system
lynx | yes | Library/Application Support/OpenEmu/BIOS | .config/retroarch/system
segacd | yes | Library/Application Support/OpenEmu/BIOS | .config/retroarch/system
saturn | yes | Library/Application Support/OpenEmu/BIOS | .config/retroarch/system
ps1 | yes | Library/Application Support/DuckStation/bios | .local/share/duckstation/bios
dc | no | Library/Application Support/Flycast/data | .local/share/flycast
ps2 | yes | Library/Application Support/PCSX2/bios | .config/PCSX2/bios
xbox | yes | Library/Application Support/xemu/xemu | .local/share/xemu/xemu
ps3 | yes | firmware | firmware
ps4 | no | Library/Application Support/shadPS4/sys_modules | .local/share/shadPS4/sys_modules
)table";

TEST(Consoles, knowWhereTheirSystemFilesBelong)
{
    const auto place = [](const BiosDest &dest) {
        return dest.kind == BiosDest::Kind::ps3Firmware ? u"firmware"_s + dest.folder : dest.folder;
    };
    QStringList rows;
    for (const Console &console : consoles(Host::mac)) {
        const auto &linuxBios = consoleWithID(console.id, Host::linux)->bios;
        ASSERT_EQ(console.bios.has_value(), linuxBios.has_value());
        if (!console.bios) continue;
        EXPECT_EQ(console.bios->label, linuxBios->label);
        EXPECT_EQ(console.bios->hint, linuxBios->hint);
        EXPECT_FALSE(console.bios->label.isEmpty() || console.bios->hint.isEmpty());
        rows += QStringList{console.id, console.bios->required ? u"yes"_s : u"no"_s, place(console.bios->dest),
                            place(linuxBios->dest)}
                    .join(u" | "_s);
    }
    QStringList expected = QString::fromUtf8(biosTable).trimmed().split(u'\n');
    rows.sort();
    expected.sort();
    EXPECT_EQ(rows, expected);
}

TEST(Consoles, haveTheSameNoteOnBothHosts)
{
    QStringList withNote;
    for (const Console &console : consoles(Host::mac)) {
        EXPECT_EQ(console.note, consoleWithID(console.id, Host::linux)->note);
        if (console.note) withNote += console.id;
    }
    EXPECT_EQ(withNote.join(u' '), u"cdi jaguarcd xbox x360 ps3 ps4 switch switch2 native"_s);
}
