#include "emulators/launch/LaunchChecks.h"

#include "catalog/EmulatorDef.h"
#include "emulators/bios/XemuSetup.h"
#include "emulators/finding/CoreFinder.h"
#include "emulators/patches/ParamSfo.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

/// The first megabyte: the files that are read here have some kilobytes.
static std::optional<QByteArray> contentOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QFile::ReadOnly)) return {};
    return file.read(1024 * 1024);
}

static std::optional<Message> notExecutable(const QString &path)
{
    const QFileInfo file(path);
    if (file.isExecutable()) return {};
    return Message{
        u"“%@” isn't allowed to run yet. In the file manager open its properties and allow it to be run as a program, then play again."_s,
        {file.fileName()}};
}

std::optional<Message> nativeGameRefusal(const QString &path, Host host)
{
    if (host == Host::mac) return {};
    if (QFileInfo(path).isDir()) {
        return Message{u"“%@” is a folder, not a program. Add the program or the AppImage inside it instead."_s,
                       {QFileInfo(path).fileName()}};
    }
    return notExecutable(path);
}

static std::optional<Message> xemuRefusal(const InstalledEmulator &xemu, const Places &places)
{
    const QStringList missing = xemuFiles(xemu, places).missing;
    if (missing.isEmpty()) return {};
    return Message{
        u"xemu isn't set up yet. Missing: %@. Open xemu → Machine → Settings → System and choose these files, then play again."_s,
        {},
        {{0, listed(missing)}}};
}

std::optional<QString> ps4GameFolder(const QString &gamePath)
{
    QString folder = gamePath;
    // The program may lie in a folder of its own inside the game's.
    for (int level = 0; level < 4; ++level) {
        if (QFileInfo(folder + u"/sce_sys"_s).isDir()) return folder;
        folder = QFileInfo(folder).path();
    }
    return {};
}

static std::optional<Message> shadPS4Refusal(const QString &gamePath)
{
    const auto folder = ps4GameFolder(gamePath);
    if (!folder) return Message{u"Velko can't find this game's folder (with sce_sys inside)."_s, {}};
    const auto sfo = contentOf(*folder + u"/sce_sys/param.sfo"_s);
    if (sfo && sfoText(*sfo, "TITLE_ID")) return {};
    return Message{u"Velko can't read this game's serial (sce_sys/param.sfo)."_s, {}};
}

std::optional<Message> emulatorRefusal(const InstalledEmulator &emulator, const QString &gamePath, const Places &places)
{
    if (emulator.kind == ApplicationKind::native || emulator.kind == ApplicationKind::appImage) {
        if (const auto refusal = notExecutable(emulator.path)) return refusal;
    }
    if (emulator.emulatorID == "xemu"_L1) return xemuRefusal(emulator, places);
    if (emulator.emulatorID == "shadps4"_L1) return shadPS4Refusal(gamePath);
    return {};
}

std::optional<Message> shadPS4MacRefusal(const MacFacts &facts)
{
    if (facts.systemVersion < 26 || !facts.appleSilicon) {
        return Message{
            u"shadPS4 needs macOS 26 or newer on an Apple Silicon Mac. Update macOS (System Settings → General → Software Update), then play again."_s,
            {}};
    }
    if (!facts.rosetta) {
        return Message{
            u"shadPS4 runs through Rosetta (the PS4 has an Intel-type processor, and its games run on it directly). Install Rosetta from the shadPS4 card in Essentials, then play again."_s,
            {}};
    }
    return {};
}

static Message coreMissing(const Console &console, const InstalledEmulator &retroArch, const Places &places)
{
    const QString package = corePackage(console.id);
    if (!package.isEmpty() && retroArch.kind == ApplicationKind::native) {
        return {u"RetroArch has no core for %@ yet. Install the package %@, then play again."_s,
                {console.name, package}};
    }
    return {
        u"RetroArch has no core for %@ yet. Download %@ in RetroArch (Load Core → Download a Core), or put it into %@, then play again."_s,
        {console.name, coreNames(console.id).value(0), retroArchFolder(retroArch, places) + u"/cores"_s}};
}

Message noEmulatorFor(const Console &console, const std::optional<InstalledEmulator> &retroArch, const Places &places)
{
    if (console.emulators.isEmpty()) return {u"Velko can't play %@ games yet."_s, {console.name}};
    if (retroArch) return coreMissing(console, *retroArch, places);
    const EmulatorDef *first = emulatorWithID(console.emulators.first(), places.host);
    return {u"No emulator installed for %@. Install %@ (Essentials tab)."_s,
            {console.name, first ? first->name : console.emulators.first()}};
}
