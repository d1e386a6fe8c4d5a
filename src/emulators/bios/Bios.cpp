#include "emulators/bios/Bios.h"

#include "emulators/bios/XemuSetup.h"
#include "emulators/finding/CoreFinder.h"
#include "emulators/finding/EmulatorFolders.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QSaveFile>
#include <cerrno>

using namespace Qt::StringLiterals;

using Grade = BiosIdentity::Grade;

static constexpr int mostFilesLookedAt = 200;
static constexpr qint64 chunk = 1024 * 1024;

namespace {

QString retroArchSystemFolder(const InstalledEmulator &retroArch, const Places &places)
{
    const QString folder = retroArchFolder(retroArch, places);
    QFile config(folder + u"/retroarch.cfg"_s);
    if (config.open(QFile::ReadOnly)) {
        const QString text = QString::fromUtf8(config.read(chunk));
        if (const auto configured = retroArchDirectory(u"system_directory"_s, text, places.home)) return *configured;
    }
    return folder + u"/system"_s;
}

/// The copy that is used, else the one that a package would install.
InstalledEmulator copyOrUsual(const Console &console, const std::optional<InstalledEmulator> &copy)
{
    InstalledEmulator usual;
    usual.emulatorID = console.emulators.value(0);
    usual.path = u"/usr/bin/"_s + usual.emulatorID;
    return copy.value_or(usual);
}

Message copyFailure(const Message &reason)
{
    return {u"Could not copy the BIOS: %@"_s, {}, {{0, reason}}};
}

/// Nothing when the copy is whole and at its place; an older file stays there until then.
std::optional<QString> copyWhole(const QString &from, const QString &to)
{
    QFile source(from);
    if (!source.open(QFile::ReadOnly)) return source.errorString();
    QSaveFile target(to);
    if (!target.open(QSaveFile::WriteOnly)) return target.errorString();
    while (!source.atEnd()) {
        const QByteArray bytes = source.read(chunk);
        if (bytes.isEmpty()) return source.errorString();
        // A write that falls short, on a full disk, names no error of its own.
        if (target.write(bytes) != bytes.size())
            return target.error() == QFile::NoError ? qt_error_string(ENOSPC) : target.errorString();
    }
    if (!target.commit()) return target.errorString();
    return {};
}

Message xemuHasNoSettings(const QString &fileName)
{
    return {u"xemu has no settings yet. Start it once and close it: Velko then enters “%@” there."_s, {fileName}};
}

/// Writes the path of a copied file into xemu's settings. Answers what is still to be done; nothing when xemu knows the
/// file.
std::optional<Message> tellXemu(const QString &key, const QString &path, const InstalledEmulator &xemu,
                                const Places &places, ChangeNotes &notes)
{
    const ConfigFileEdit edit = editNoted(xemuFileEdits(xemu, {{key, path}}, places), xemu.emulatorID, notes);
    const QString name = QFileInfo(path).fileName();
    if (edit.outcome == ConfigFileEdit::Outcome::missing) return xemuHasNoSettings(name);
    if (edit.outcome != ConfigFileEdit::Outcome::failed) return {};
    return Message{u"xemu's settings could not be changed. Select “%@” in xemu (Machine → Settings → System)."_s,
                   {name}};
}

/// The files of the folder that can be meant for the console, with their names. A folder may serve many consoles.
QList<QPair<QString, BiosIdentity>> found(const Console &console, const QString &folder)
{
    const bool ownFolder = console.id == "ps1"_L1 || console.id == "ps2"_L1; // any image there is meant for it
    QList<QPair<QString, BiosIdentity>> all;
    const QFileInfoList files = QDir(folder).entryInfoList(QDir::Files, QDir::Size | QDir::Reversed);
    for (const QFileInfo &file : files.first(std::min<qsizetype>(files.size(), mostFilesLookedAt))) {
        const BiosIdentity identity = identifyBios(file.filePath());
        const bool image = ownFolder && identity.consoleID.isEmpty() && file.size() >= chunk / 2;
        if (identity.consoleID == console.id || image) all += {file.fileName(), identity};
    }
    return all;
}

BiosState firmwareState(const InstalledEmulator &rpcs3, const Places &places)
{
    const QString version = emulatorFolders(rpcs3, places).config + u"/dev_flash/vsh/etc/version.txt"_s;
    return {QFileInfo(version).isFile() ? BiosPresence::present : BiosPresence::missing, {}, {}};
}

BiosState xboxState(const InstalledEmulator &xemu, const Places &places)
{
    const XemuFiles files = xemuFiles(xemu, places);
    BiosState state{.presence = BiosPresence::present, .missing = files.missing};
    if (!state.missing.isEmpty()) state.presence = BiosPresence::missing;
    for (const QString &name : files.waiting)
        state.remarks += xemuHasNoSettings(name);
    const QString key = u"bootrom_path"_s;
    const QString bootRom = files.toEnter.value(key, files.named.value(key));
    const BiosIdentity identity = identifyBios(bootRom);
    if (!bootRom.isEmpty() && QFileInfo(bootRom).isFile() && identity.grade != Grade::good) {
        if (state.missing.isEmpty()) state.presence = BiosPresence::unknownFile;
        state.remarks += biosRemark(identity, QFileInfo(bootRom).fileName(), u"MCPX Boot ROM"_s);
    }
    return state;
}
}

QString biosFolder(const Console &console, const std::optional<InstalledEmulator> &copy, const Places &places)
{
    if (!console.bios || console.bios->dest.kind == BiosDest::Kind::ps3Firmware) return {};
    const QString &folder = console.bios->dest.folder;
    if (places.host == Host::mac) return places.home + u'/' + folder;
    static const QHash<QString, QString> belowData{{u"duckstation"_s, u"/bios"_s},
                                                   {u"pcsx2"_s, u"/bios"_s},
                                                   {u"flycast"_s, u""_s},
                                                   {u"xemu"_s, u""_s},
                                                   {u"shadps4"_s, u"/sys_modules"_s}};
    const InstalledEmulator emulator = copyOrUsual(console, copy);
    if (emulator.emulatorID == "retroarch"_L1) return retroArchSystemFolder(emulator, places);
    const QString own = emulatorFolders(emulator, places).data;
    return own.isEmpty() || !belowData.contains(emulator.emulatorID) ? places.home + u'/' + folder
                                                                     : own + belowData.value(emulator.emulatorID);
}

BiosState biosState(const Console &console, const std::optional<InstalledEmulator> &copy, const Places &places)
{
    if (!console.bios) return {};
    if (console.bios->dest.kind == BiosDest::Kind::ps3Firmware)
        return firmwareState(copyOrUsual(console, copy), places);
    const QString folder = biosFolder(console, copy, places);
    if (console.id == "xbox"_L1) {
        BiosState state = xboxState(copyOrUsual(console, copy), places);
        state.folder = folder;
        return state;
    }
    const auto files = found(console, folder);
    BiosState state{.presence = files.isEmpty() ? BiosPresence::missing : BiosPresence::unknownFile, .folder = folder};
    for (const auto &[name, identity] : files) {
        if (identity.grade == Grade::good) state.presence = BiosPresence::present;
        state.remarks += biosRemark(identity, name, console.bios->label);
    }
    return state;
}

BiosReport installBios(const Console &console, const QString &file, const std::optional<InstalledEmulator> &copy,
                       const Places &places, ChangeNotes &notes)
{
    BiosReport report;
    report.consoleID = console.id;
    const QFileInfo info(file);
    if (info.isDir()) {
        report.message = {u"“%@” is a folder. Drop the files inside it."_s, {info.fileName()}};
        return report;
    }
    if (!info.isFile() || info.size() == 0) {
        report.message = copyFailure({u"“%@” is not there, or is empty."_s, {info.fileName()}});
        return report;
    }
    const QString folder = biosFolder(console, copy, places);
    const QString target = folder + u'/' + info.fileName();
    if (!QDir().mkpath(folder)) {
        report.message = copyFailure({u"“%@” can't be created."_s, {folder}});
        return report;
    }
    if (const auto failure = copyWhole(file, target)) {
        report.message = copyFailure({*failure, {}});
        return report;
    }
    report.installed = true;
    report.message = {u"%@ copied to %@"_s, {info.fileName(), folder}};
    BiosIdentity identity = identifyBios(target);
    if (identity.consoleID != console.id) identity = {};
    report.remark = biosRemark(identity, info.fileName(), console.bios->label);
    if (identity.xemuKey.isEmpty() || identity.grade == Grade::badDump) return report;
    if (const auto remaining = tellXemu(identity.xemuKey, target, copyOrUsual(console, copy), places, notes))
        report.remark = remaining;
    return report;
}
