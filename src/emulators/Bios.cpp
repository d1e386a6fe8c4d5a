#include "emulators/Bios.h"

#include "catalog/EmulatorDef.h"
#include "emulators/ConfigFile.h"
#include "emulators/CoreFinder.h"
#include "emulators/XemuSetup.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

using namespace Qt::StringLiterals;

using Grade = BiosIdentity::Grade;

static constexpr int mostFilesLookedAt = 200;
static constexpr qint64 chunk = 1024 * 1024;

namespace {

/// A folder of the catalog, relative to the home, where the base folders are: "$XDG_CONFIG_HOME", or Flatpak's own.
QString below(const QString &folder, const QString &home, const QString &config, const QString &data)
{
    const QString configPart = u".config/"_s;
    const QString dataPart = u".local/share/"_s;
    if (folder.startsWith(configPart)) return config + u'/' + folder.sliced(configPart.size());
    if (folder.startsWith(dataPart)) return data + u'/' + folder.sliced(dataPart.size());
    return home + u'/' + folder;
}

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

/// Where emulators depart from the folder of the catalog.
std::optional<QString> ownFolder(const InstalledEmulator &copy, const Places &places)
{
    if (copy.emulatorID == "retroarch"_L1) return retroArchSystemFolder(copy, places);
    if (copy.emulatorID == "xemu"_L1) return QFileInfo(xemuSettingsFile(copy, places)).path();
    if (copy.emulatorID != "duckstation"_L1) return {};
    // DuckStation takes the configuration folder only when the user has moved it.
    if (copy.kind == ApplicationKind::flatpak)
        return places.home + u"/.var/app/"_s + copy.applicationID + u"/config/duckstation/bios"_s;
    const bool moved = places.config != places.home + u"/.config"_s;
    return (moved ? places.config : places.data) + u"/duckstation/bios"_s;
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
        if (target.write(bytes) != bytes.size()) return target.errorString();
    }
    if (!target.commit()) return target.errorString();
    return {};
}

/// Writes the path of a copied file into xemu's settings. Answers what the user must still do; nothing when xemu knows
/// the file.
std::optional<Message> tellXemu(const QString &key, const QString &path, const std::optional<InstalledEmulator> &copy,
                                const Places &places)
{
    InstalledEmulator usual;
    usual.emulatorID = u"xemu"_s;
    const ConfigFileEdit edit =
        editConfigFile(xemuSettingsFile(copy.value_or(usual), places), [&](const QByteArray &text) {
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

BiosState firmwareState(const std::optional<InstalledEmulator> &copy, const Places &places)
{
    const bool flatpak = copy && copy->kind == ApplicationKind::flatpak;
    const QString config = flatpak ? places.home + u"/.var/app/"_s + copy->applicationID + u"/config"_s : places.config;
    const bool there = QFileInfo(config + u"/rpcs3/dev_flash/vsh/etc/version.txt"_s).isFile();
    return {there ? BiosPresence::present : BiosPresence::missing, {}, {}};
}

BiosState xboxState(const std::optional<InstalledEmulator> &copy, const Places &places)
{
    InstalledEmulator usual;
    usual.emulatorID = u"xemu"_s;
    QFile file(xemuSettingsFile(copy.value_or(usual), places));
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
    const bool isUsual = !copy || console.emulators.value(0) == copy->emulatorID;
    InstalledEmulator usual;
    usual.emulatorID = console.emulators.value(0);
    if (const auto own = ownFolder(copy.value_or(usual), places)) return *own;
    if (isUsual && copy && copy->kind == ApplicationKind::flatpak) {
        const QString app = places.home + u"/.var/app/"_s + copy->applicationID;
        return below(folder, places.home, app + u"/config"_s, app + u"/data"_s);
    }
    return below(folder, places.home, places.config, places.data);
}

BiosState biosState(const Console &console, const std::optional<InstalledEmulator> &copy, const Places &places)
{
    if (!console.bios) return {};
    if (console.bios->dest.kind == BiosDest::Kind::ps3Firmware) return firmwareState(copy, places);
    BiosState state;
    if (console.id == "xbox"_L1) {
        state = xboxState(copy, places);
        state.folder = biosFolder(console, copy, places);
        return state;
    }
    state.folder = biosFolder(console, copy, places);
    const auto files = found(console, state.folder);
    state.presence = files.isEmpty() ? BiosPresence::missing : BiosPresence::unknownFile;
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
    if (const auto remaining = tellXemu(identity.xemuKey, target, copy, places)) report.remark = remaining;
    return report;
}
