#include "emulators/bios/Bios.h"

#include "emulators/bios/XemuSetup.h"
#include "emulators/finding/CoreFinder.h"
#include "emulators/finding/EmulatorFolders.h"
#include "emulators/settings/ConfigFile.h"

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

Message copyFailure(const QString &reason)
{
    return {u"Could not copy the BIOS: %@"_s, {reason}};
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

/// Writes the path of a copied file into xemu's settings. Answers what the user must still do; nothing when xemu knows
/// the file.
std::optional<Message> tellXemu(const QString &key, const QString &path, const InstalledEmulator &xemu,
                                const Places &places)
{
    const ConfigFileEdit edit = editConfigFile(xemuSettingsFile(xemu, places), [&](const QByteArray &text) {
        const QString edited = withXemuFiles(QString::fromUtf8(text), {{key, path}});
        return xemuSystemFiles(edited).value(key) == path ? std::optional(edited.toUtf8()) : std::nullopt;
    });
    if (edit.outcome == ConfigFileEdit::Outcome::missing)
        return Message{u"xemu has no settings yet. Start it once and close it, then drop “%@” again."_s,
                       {QFileInfo(path).fileName()}};
    if (edit.outcome != ConfigFileEdit::Outcome::failed) return {};
    return Message{u"xemu's settings could not be changed. Select “%@” in xemu (Machine → Settings → System)."_s,
                   {QFileInfo(path).fileName()}};
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
    QFile file(xemuSettingsFile(xemu, places));
    QMap<QString, QString> files;
    if (file.open(QFile::ReadOnly)) files = xemuSystemFiles(QString::fromUtf8(file.read(4 * chunk)));
    BiosState state{.presence = BiosPresence::present, .missing = missingXemuFiles(files)};
    if (!state.missing.isEmpty()) state.presence = BiosPresence::missing;
    const QString bootRom = files.value(u"bootrom_path"_s);
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
                       const Places &places)
{
    BiosReport report;
    report.consoleID = console.id;
    const QFileInfo info(file);
    if (info.isDir()) {
        report.message = {u"“%@” is a folder. Drop the files inside it."_s, {info.fileName()}};
        return report;
    }
    if (!info.isFile() || info.size() == 0) {
        report.message = copyFailure(u"“%1” is not there, or is empty."_s.arg(info.fileName()));
        return report;
    }
    const QString folder = biosFolder(console, copy, places);
    const QString target = folder + u'/' + info.fileName();
    if (!QDir().mkpath(folder)) {
        report.message = copyFailure(u"“%1” can't be created."_s.arg(folder));
        return report;
    }
    if (const auto failure = copyWhole(file, target)) {
        report.message = copyFailure(*failure);
        return report;
    }
    report.installed = true;
    report.message = {u"%@ copied to %@"_s, {info.fileName(), folder}};
    BiosIdentity identity = identifyBios(target);
    if (identity.consoleID != console.id) identity = {};
    report.remark = biosRemark(identity, info.fileName(), console.bios->label);
    if (identity.xemuKey.isEmpty() || identity.grade == Grade::badDump) return report;
    if (const auto remaining = tellXemu(identity.xemuKey, target, copyOrUsual(console, copy), places))
        report.remark = remaining;
    return report;
}
