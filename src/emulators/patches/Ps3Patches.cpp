#include "emulators/patches/Ps3Patches.h"

#include "base/YamlText.h"
#include "emulators/patches/FrameRatePatch.h"
#include "emulators/patches/PatchTree.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

const QString all = u"All"_s;
constexpr qsizetype longestNotes = 4000;
constexpr int mostVersions = 200'000; ///< looked at in one list: aliases make a few lines stand for very many

constexpr int mostFields = 100; ///< of one patch; a real one has about eight

/// The blocks, without the lines that hold the patches' bytes, which are most of the file, and without comments.
QByteArrayList blocksOf(const QByteArray &yaml)
{
    QByteArrayList blocks;
    for (qsizetype start = 0; start < yaml.size();) {
        qsizetype end = yaml.indexOf('\n', start);
        end = end < 0 ? yaml.size() : end + 1;
        const QByteArray line = yaml.sliced(start, end - start);
        start = end;
        const QByteArray content = line.trimmed();
        if (content.isEmpty() || content.startsWith('#') || content.startsWith("- [")) continue;
        if (blocks.isEmpty() || (line[0] != ' ' && line[0] != '\t'))
            blocks += line;
        else
            blocks.last() += line;
    }
    return blocks;
}

QStringList versionsOf(const PatchNode &node)
{
    if (node.kind == PatchNode::Kind::scalar) return {node.text};
    QStringList versions;
    for (const auto &value : node.values)
        versions += value->text;
    return versions;
}

class Reader {
public:
    PS3PatchList list;

    void readBlock(const QByteArray &block)
    {
        const auto tree = m_blocks.read(block);
        ++list.blocks;
        if (!tree) {
            ++list.broken;
            return;
        }
        for (qsizetype i = 1; i < tree->keys.size() && i < tree->values.size(); ++i) {
            if (tree->keys[i] != "Anchors"_L1 && tree->keys[i] != "Version"_L1)
                readPatches(tree->keys[i], *tree->values[i]);
        }
    }

private:
    void readPatches(const QString &hash, const PatchNode &patches)
    {
        if (patches.kind != PatchNode::Kind::table) ++list.broken;
        for (qsizetype i = 0; i < patches.keys.size() && i < patches.values.size(); ++i) {
            if (!is60FpsPatch(patches.keys[i])) continue;
            if (m_versions > mostVersions || patches.values[i]->keys.size() > mostFields) {
                ++list.broken;
                continue;
            }
            const PatchNode *games = patches.values[i]->at(u"Games"_s);
            const PatchNode *notes = patches.values[i]->at(u"Notes"_s);
            if (!games || games->kind != PatchNode::Kind::table) {
                ++list.broken;
                continue;
            }
            readGames({hash, patches.keys[i], {}, {}, notes ? notes->text.left(longestNotes) : QString()}, *games);
        }
    }

    void readGames(PS3Patch patch, const PatchNode &games)
    {
        for (qsizetype i = 0; i < games.keys.size() && i < games.values.size(); ++i) {
            PS3PatchEntry entry{patch, {}};
            entry.patch.title = games.keys[i];
            const PatchNode &serials = *games.values[i];
            for (qsizetype j = 0; j < serials.keys.size() && j < serials.values.size(); ++j) {
                const QStringList versions = versionsOf(*serials.values[j]);
                m_versions += 1 + versions.size();
                if (m_versions > mostVersions) break;
                entry.patch.serials += serials.keys[j];
                entry.versions += versions;
            }
            if (m_versions > mostVersions) return;
            list.entries += entry;
        }
    }

    PatchBlocks m_blocks;
    qsizetype m_versions = 0;
};

QStringList pathOf(const PS3PatchUse &use)
{
    return {use.patch.hash, use.patch.name, use.patch.title, use.serial, use.version};
}

/// The version that fits, as the list has it.
std::optional<QString> fittingVersion(const QString &version, const QStringList &listed)
{
    if (!version.isEmpty() && listed.contains(version)) return version;
    if (listed.contains(all) || listed.isEmpty()) return all;
    return version.isEmpty() ? std::optional(listed.first()) : std::nullopt;
}
}

PS3PatchList readPs3Patches(const QByteArray &yaml)
{
    Reader reader;
    for (const QByteArray &block : blocksOf(yaml))
        reader.readBlock(block);
    return reader.list;
}

QList<PS3PatchUse> ps3PatchesFor(const GameIdentity &game, const QList<PS3PatchEntry> &entries)
{
    QList<PS3PatchUse> uses;
    for (const PS3PatchEntry &entry : entries) {
        for (const QString &serial : {game.serial, all}) {
            const qsizetype index = entry.patch.serials.indexOf(serial);
            if (index < 0 || index >= entry.versions.size()) continue;
            const auto version = fittingVersion(game.version, entry.versions[index]);
            if (!version) continue;
            uses += PS3PatchUse{entry.patch, serial, *version};
            break;
        }
    }
    return uses;
}

std::optional<bool> ps3PatchSwitch(const QByteArray &config, const PS3PatchUse &use)
{
    QStringList values = yamlValues(config, pathOf(use) + QStringList{u"Enabled"_s});
    if (values.isEmpty()) values = yamlValues(config, pathOf(use)); // the older form
    if (values.isEmpty() || values.last().isEmpty()) return {};
    return values.last() == "true"_L1;
}

ConfigEdit ps3PatchEdit(const QByteArray &config, const PS3PatchUse &use, bool on, Host host)
{
    const QStringList older = yamlValues(config, pathOf(use));
    const bool isOlder = !older.isEmpty() && !older.last().isEmpty();
    QStringList path = pathOf(use);
    if (host == Host::linux && !isOlder) path += u"Enabled"_s;
    const QString key = path.takeLast();
    return {path, key, on ? u"true"_s : u"false"_s};
}

QByteArray encodePs3Patches(const QList<PS3PatchEntry> &entries)
{
    QJsonArray array;
    for (const PS3PatchEntry &entry : entries) {
        QJsonArray versions;
        for (const QStringList &each : entry.versions)
            versions += QJsonArray::fromStringList(each);
        array += QJsonObject{
            {u"hash"_s, entry.patch.hash},   {u"name"_s, entry.patch.name},
            {u"title"_s, entry.patch.title}, {u"serials"_s, QJsonArray::fromStringList(entry.patch.serials)},
            {u"notes"_s, entry.patch.notes}, {u"versions"_s, versions}};
    }
    return QJsonDocument(array).toJson(QJsonDocument::Compact);
}

static QStringList textsOf(const QJsonValue &value)
{
    QStringList texts;
    for (const QJsonValue &each : value.toArray())
        texts += each.toString();
    return texts;
}

std::optional<QList<PS3PatchEntry>> decodePs3Patches(const QByteArray &json)
{
    const QJsonDocument document = QJsonDocument::fromJson(json);
    if (!document.isArray()) return {};
    QList<PS3PatchEntry> entries;
    for (const QJsonValue &value : document.array()) {
        const QJsonObject object = value.toObject();
        PS3PatchEntry entry{{object[u"hash"_s].toString(), object[u"name"_s].toString(), object[u"title"_s].toString(),
                             textsOf(object[u"serials"_s]), object[u"notes"_s].toString()},
                            {}};
        for (const QJsonValue &versions : object[u"versions"_s].toArray())
            entry.versions += textsOf(versions);
        entries += entry;
    }
    return entries;
}
