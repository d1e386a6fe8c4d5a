#include "emulators/patches/FramePatchAct.h"

#include "emulators/patches/FrameRatePatch.h"
#include "emulators/patches/PatchLists.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

using namespace Qt::StringLiterals;

static const Message noPs3Patch{u"No 60 FPS patch for this game yet."_s, {}};
static const Message noSerial{u"Velko can't read this game's serial (sce_sys/param.sfo)."_s, {}};

namespace {

Message noPs4Patch(const QString &version)
{
    const QString sentence = u"No 60 FPS patch for this game%@ yet."_s;
    if (version.isEmpty()) return {sentence, {QString()}};
    return {sentence, {}, {{0, {u" %@"_s, {}, {{0, {u"version %@"_s, {version}}}}}}}};
}

Message notWritten(const QString &path)
{
    return {u"“%@” can't be written. Give yourself the right to write there, or free some space."_s, {path}};
}

bool writeNew(const QString &path, const QByteArray &content)
{
    QSaveFile file(path);
    return file.open(QSaveFile::WriteOnly) && file.write(content) == content.size() && file.commit();
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    constexpr qint64 largest = 16 * 1024 * 1024;
    return QFileInfo(path).isFile() && file.open(QFile::ReadOnly) ? file.read(largest) : QByteArray();
}

QList<PS3PatchUse> ps3Uses(const FramePatchGame &game, const Places &places)
{
    const auto identity = ps3Identity(game.path, game.folders.config + u"/dev_hdd0/game"_s);
    return identity ? ps3PatchesFor(*identity, ps3Entries(game.folders, places)) : QList<PS3PatchUse>();
}

/// RPCS3's switches lie in a folder of their own only on the Mac.
QString switchFile(const FramePatchGame &game, Host host)
{
    return game.folders.config + (host == Host::mac ? u"/config/patch_config.yml"_s : u"/patch_config.yml"_s);
}

/// RPCS3 makes this file only when a patch is switched, so it may well be missing.
ConfigFileEdit makeSwitches(const FileEdits &edits, ChangeNotes &notes)
{
    JournalUpdate update;
    const auto text = edited({}, edits, u"rpcs3"_s, notes.now, notes.journal, update);
    QDir().mkpath(QFileInfo(edits.file).path());
    if (!text || !writeNew(edits.file, *text)) return {ConfigFileEdit::Outcome::failed, notWritten(edits.file)};
    notes.add(update);
    return {ConfigFileEdit::Outcome::written, {}};
}

std::optional<Message> switchPs3(const QString &file, const QList<ConfigEdit> &switches, ChangeNotes &notes)
{
    const FileEdits edits{file, ConfigFormat::yaml, switches};
    ConfigFileEdit done = editNoted(edits, u"rpcs3"_s, notes);
    if (done.outcome == ConfigFileEdit::Outcome::missing) done = makeSwitches(edits, notes);
    return done.outcome == ConfigFileEdit::Outcome::failed ? std::optional(done.why) : std::nullopt;
}

FramePatchOutcome applyPs3(const FramePatchGame &game, bool on, const Places &places, ChangeNotes &notes)
{
    const QString file = switchFile(game, places.host);
    const QByteArray config = contentOf(file);
    if (!on && !config.contains("true")) return {};
    const QList<PS3PatchUse> uses = ps3Uses(game, places);
    QList<PS3PatchUse> switchedOn;
    QList<ConfigEdit> off;
    for (const PS3PatchUse &use : uses) {
        if (!ps3PatchSwitch(config, use).value_or(false)) continue;
        switchedOn += use;
        off += ps3PatchEdit(config, use, false, places.host);
    }
    if (!on) return {{}, off.isEmpty() ? std::nullopt : switchPs3(file, off, notes)};
    if (uses.isEmpty()) return {{}, listIsThere(game, places) ? noPs3Patch : patchListMissing(game)};
    // One that the user has chosen among several stays the one.
    const PS3PatchUse chosen = switchedOn.isEmpty() ? uses.first() : switchedOn.first();
    const auto trouble =
        switchedOn.isEmpty() ? switchPs3(file, {ps3PatchEdit(config, chosen, true, places.host)}, notes) : std::nullopt;
    if (trouble) return {{}, trouble};
    return {vblankRateOf(chosen.patch.notes), {}};
}

/// shadPS4 does not start with a folder of patches that has no list, so the list comes first.
std::optional<Message> offerPs4(const PS4PatchFile &file, const QString &version, bool on, const QString &folder,
                                const Places &places)
{
    const QString name = QFileInfo(file.file).fileName();
    const QString target = folder + u'/' + name;
    const QString list = folder + u"/files.json"_s;
    if (!on && !QFileInfo::exists(target)) return {};
    const QByteArray present = contentOf(target);
    const auto xml = withPs4Patches(contentOf(ps4CacheFolder(places) + u'/' + file.file), present, version, on);
    if (!xml) return noPs4Patch(version);
    const QByteArray files = withPs4File(contentOf(list), name, file.serials, on, places.host);
    QDir().mkpath(folder);
    if (files != contentOf(list) && !writeNew(list, files)) return notWritten(list);
    if (*xml != present && !writeNew(target, *xml)) return notWritten(target);
    return {};
}

FramePatchOutcome applyPs4(const FramePatchGame &game, bool on, const Places &places)
{
    const auto identity = ps4Identity(game.path);
    if (!identity) return {{}, on ? std::optional(noSerial) : std::nullopt};
    FramePatchOutcome outcome;
    bool found = false;
    for (const PS4PatchFile &file : ps4Files(identity->serial, places)) {
        const bool fits = has60FpsPatch(file, identity->version);
        found = found || fits;
        const auto trouble =
            offerPs4(file, identity->version, on && fits, game.folders.data + u"/patches/VelkoEmu"_s, places);
        if (trouble) outcome.shortcoming = trouble;
    }
    if (on && !found)
        outcome.shortcoming = listIsThere(game, places) ? noPs4Patch(identity->version) : patchListMissing(game);
    return outcome;
}
}

bool listIsThere(const FramePatchGame &game, const Places &places)
{
    return QFileInfo::exists(game.emulatorID == "rpcs3"_L1 ? ps3ListFile(game.folders)
                                                           : ps4CacheFolder(places) + u"/index.json"_s);
}

Message patchListMissing(const FramePatchGame &game)
{
    if (game.listCancelled)
        return {u"You cancelled the download of the patch list: this time the game starts without its 60 FPS patch."_s,
                {}};
    return game.emulatorID == "rpcs3"_L1
        ? Message{u"Couldn't download RPCS3's patch list. Check your Internet connection."_s, {}}
        : Message{u"Couldn't download the PS4 patch list. Check your Internet connection."_s, {}};
}

FramePatchSearch findFramePatch(const FramePatchGame &game, const Places &places)
{
    if (game.emulatorID == "rpcs3"_L1) {
        const QList<PS3PatchUse> uses = ps3Uses(game, places);
        return uses.isEmpty() ? FramePatchSearch{{}, noPs3Patch} : FramePatchSearch{uses.first().patch.name, {}};
    }
    const auto identity = ps4Identity(game.path);
    if (!identity) return {{}, noSerial};
    for (const PS4PatchFile &file : ps4Files(identity->serial, places)) {
        for (const PS4Patch &patch : file.patches) {
            if (has60FpsPatch({{}, {}, {patch}}, identity->version)) return {patch.name, {}};
        }
    }
    return {{}, noPs4Patch(identity->version)};
}

FramePatchOutcome applyFramePatch(const FramePatchGame &game, bool on, const Places &places, ChangeNotes &notes)
{
    if (game.emulatorID == "rpcs3"_L1) return applyPs3(game, on, places, notes);
    if (game.emulatorID == "shadps4"_L1) return applyPs4(game, on, places);
    return {};
}
