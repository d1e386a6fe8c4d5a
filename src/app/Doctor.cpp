#include "app/Doctor.h"

#include "catalog/Console.h"
#include "catalog/EmulatorDef.h"

using namespace Qt::StringLiterals;

/// Emulators that Debian packages itself.
static QString debianPackage(const QString &emulatorID)
{
    static const QHash<QString, QString> packages{
        {u"mgba"_s, u"mgba-qt"_s}, {u"dolphin"_s, u"dolphin-emu"_s}, {u"retroarch"_s, u"retroarch"_s}};
    return packages.value(emulatorID);
}

static QString howToInstall(const EmulatorDef &def)
{
    QStringList ways;
    if (const QString package = debianPackage(def.id); !package.isEmpty()) ways += u"apt install "_s + package;
    if (!def.flatpakID.isEmpty()) ways += u"flatpak install flathub "_s + def.flatpakID;
    ways += def.website;
    return ways.join(u", or "_s);
}

static Finding libraryFinding(const DoctorFacts &facts)
{
    if (!facts.unreadableLibrary.isEmpty())
        return {Finding::Grade::problem,
                {u"The library file could not be read; it is kept as “%@”."_s, {facts.unreadableLibrary}},
                u"Open Velko: Home offers the newest good copy."_s};
    if (!facts.dataFolderWritable)
        return {Finding::Grade::problem,
                {u"“%@” can't be written, so nothing you change is kept."_s, {facts.dataFolder}},
                u"Give yourself the right to write there."_s};
    return {Finding::Grade::fine, {u"Library: %ld games"_s, {QString::number(facts.games)}}, {}};
}

static Finding consoleFinding(const Console &console, int games, const DoctorFacts &facts)
{
    const QString count = QString::number(games);
    if (const QString emulator = facts.playable.value(console.id); !emulator.isEmpty())
        return {Finding::Grade::fine,
                {u"%@: %ld games, played in %@"_s, {console.name, count, emulatorWithID(emulator, facts.host)->name}},
                {}};
    if (console.emulators.isEmpty())
        return {Finding::Grade::advice,
                {u"%@: %ld games, played without an emulator"_s, {console.name, count}},
                console.note.value_or(QString())};
    const EmulatorDef &wanted = *emulatorWithID(console.emulators.first(), facts.host);
    const bool coreIsMissing = facts.installed.contains(wanted.id);
    return {Finding::Grade::problem,
            coreIsMissing
                ? Message{u"%@: %ld games, but %@ has no core for this console"_s, {console.name, count, wanted.name}}
                : Message{u"%@: %ld games, but %@ isn't installed"_s, {console.name, count, wanted.name}},
            coreIsMissing ? u"Install the core in RetroArch's own downloader, or its libretro package."_s
                          : howToInstall(wanted)};
}

QList<Finding> examine(const DoctorFacts &facts)
{
    QList<Finding> findings{libraryFinding(facts)};
    if (!facts.displayPresent)
        findings += {Finding::Grade::problem,
                     {u"There is no display here, so no game can be shown."_s, {}},
                     u"Start Velko from a desktop session."_s};
    for (const QString &folder : facts.missingFolders)
        findings += {Finding::Grade::advice,
                     {u"The scanned folder “%@” isn't there."_s, {folder}},
                     u"Connect its drive, or remove it in Velko."_s};
    for (const EmulatorDef &def : emulatorDefs(facts.host)) {
        if (facts.installed.contains(def.id))
            findings += {Finding::Grade::fine, {u"%@: %@"_s, {def.name, facts.installed.value(def.id)}}, {}};
    }
    for (const Console &console : consoles(facts.host)) {
        if (const int games = facts.gamesByConsole.value(console.id); games > 0)
            findings += consoleFinding(console, games, facts);
    }
    if (!facts.fileIndexPresent)
        findings += {Finding::Grade::advice,
                     {u"plocate isn't installed: finding a moved game takes longer."_s, {}},
                     u"apt install plocate"_s};
    return findings;
}
