#include "catalog/EmulatorDef.h"

#include <QSet>
#include <QUrl>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

// id | name | application names | bundle identifiers | cask | args ("open": opened with the file)
static const char macTable[] = R"table(
openemu | OpenEmu | OpenEmu-Silicon OpenEmu | org.openemu.OpenEmu | openemu | open
mgba | mGBA | mGBA | com.endrift.mgba | mgba | open
duckstation | DuckStation | DuckStation | com.github.stenzek.duckstation | - | -batch --
flycast | Flycast | Flycast | com.flyinghead.Flycast | - | -
pcsx2 | PCSX2 | PCSX2 | net.pcsx2.pcsx2 | pcsx2 | -batch --
dolphin | Dolphin | Dolphin | org.dolphin-emu.dolphin | dolphin | -b -e
xemu | xemu | xemu | app.xemu.xemu | - | -dvd_path
melonds | melonDS | melonDS | net.kuribo64.melonDS | - | -
ppsspp | PPSSPP | PPSSPP PPSSPPSDL | org.ppsspp.ppsspp | ppsspp | -
rpcs3 | RPCS3 | RPCS3 | net.rpcs3.rpcs3 | - | --no-gui
azahar | Azahar | Azahar Lime3DS Citra | org.azahar-emu.azahar | - | -
cemu | Cemu | Cemu | info.cemu.Cemu | - | -g
shadps4 | shadPS4 | shadPS4 | com.velkoemu.shadps4 | - | -g
)table";

// id | Flatpak | args | first program
static const char linuxTable[] = R"table(
retroarch | org.libretro.RetroArch | - | retroarch
mgba | io.mgba.mGBA | - | mgba-qt
duckstation | org.duckstation.DuckStation | -batch -- | duckstation-qt
flycast | org.flycast.Flycast | - | flycast
pcsx2 | net.pcsx2.PCSX2 | -batch -- | pcsx2-qt
dolphin | org.DolphinEmu.dolphin-emu | -b -e | dolphin-emu
xemu | app.xemu.xemu | -dvd_path | xemu
melonds | net.kuribo64.melonDS | - | melonDS
ppsspp | org.ppsspp.PPSSPP | - | PPSSPPSDL
rpcs3 | net.rpcs3.RPCS3 | --no-gui | rpcs3
azahar | org.azahar_emu.Azahar | - | azahar
cemu | info.cemu.Cemu | -g | Cemu
shadps4 | net.shadps4.shadPS4 | -g | shadps4
)table";

static QString text(const QStringList &words)
{
    return words.isEmpty() ? u"-"_s : words.join(u' ');
}

TEST(EmulatorDefs, onTheMacAreTheTableInItsOrder)
{
    QStringList rows;
    for (const EmulatorDef &def : emulatorDefs(Host::mac)) {
        rows += QStringList{def.id,
                            def.name,
                            text(def.appNames),
                            text(def.bundleIDs),
                            def.cask.value_or(u"-"_s),
                            def.args ? text(*def.args) : u"open"_s}
                    .join(u" | "_s);
    }
    EXPECT_EQ(rows, QString::fromUtf8(macTable).trimmed().split(u'\n'));
}

TEST(EmulatorDefs, onLinuxAreTheTableInItsOrder)
{
    QStringList rows;
    for (const EmulatorDef &def : emulatorDefs(Host::linux)) {
        ASSERT_TRUE(def.args) << "every Linux emulator takes the path as an argument";
        rows += QStringList{def.id, def.flatpakID, text(*def.args), def.programs.value(0)}.join(u" | "_s);
    }
    EXPECT_EQ(rows, QString::fromUtf8(linuxTable).trimmed().split(u'\n'));
}

TEST(EmulatorDefs, canBeToldApart)
{
    for (const Host host : {Host::mac, Host::linux}) {
        for (const auto names : {&EmulatorDef::bundleIDs, &EmulatorDef::programs, &EmulatorDef::appImagePrefixes}) {
            QSet<QString> seen;
            for (const EmulatorDef &def : emulatorDefs(host)) {
                for (const QString &name : def.*names) {
                    EXPECT_FALSE(seen.contains(name)) << qPrintable(name);
                    seen += name;
                }
            }
        }
    }
}

TEST(EmulatorDefs, areFoundByTheirExactIdentifier)
{
    for (const Host host : {Host::mac, Host::linux}) {
        for (const EmulatorDef &def : emulatorDefs(host))
            EXPECT_EQ(emulatorWithID(def.id, host), &def);
        for (const QString &unknown : {u""_s, u"MGBA"_s, host == Host::mac ? u"retroarch"_s : u"openemu"_s})
            EXPECT_EQ(emulatorWithID(unknown, host), nullptr);
    }
}

TEST(EmulatorDefs, leadToTheirProject)
{
    for (const Host host : {Host::mac, Host::linux}) {
        for (const EmulatorDef &def : emulatorDefs(host)) {
            const QUrl url(def.website, QUrl::StrictMode);
            EXPECT_TRUE(url.isValid() && url.scheme() == u"https"_s && !url.host().isEmpty()) << qPrintable(def.id);
        }
    }
}
