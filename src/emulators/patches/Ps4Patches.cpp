#include "emulators/patches/Ps4Patches.h"

#include "emulators/patches/FrameRatePatch.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype largestXml = 8 * 1024 * 1024;
constexpr qsizetype mostPatches = 5000;
constexpr int deepest = 20;

PS4Patch patchOf(const QXmlStreamAttributes &attributes)
{
    return {attributes.value("Name"_L1).toString(), attributes.value("AppVer"_L1).toString()};
}

bool fits(const PS4Patch &patch, const QString &version)
{
    return is60FpsPatch(patch.name) && (version.isEmpty() || patch.appVer == version || patch.appVer == "mask"_L1);
}

/// Calls `each` for every token, with the path of element names. False when the XML is damaged or declares something.
template <class Each>
bool walk(const QByteArray &text, Each each)
{
    if (text.size() > largestXml) return false;
    QXmlStreamReader xml(text);
    xml.setEntityExpansionLimit(0);
    QStringList path;
    while (!xml.atEnd()) {
        const auto token = xml.readNext();
        if (token == QXmlStreamReader::DTD || token == QXmlStreamReader::EntityReference) return false;
        if (token == QXmlStreamReader::StartElement) path += xml.name().toString();
        if (path.size() > deepest) return false;
        if (xml.hasError()) return false;
        each(xml, path);
        if (token == QXmlStreamReader::EndElement) path.removeLast();
    }
    return !xml.hasError();
}

bool isPatch(const QXmlStreamReader &xml, const QStringList &path)
{
    return xml.isStartElement() && path == QStringList{u"Patch"_s, u"Metadata"_s};
}

QSet<QPair<QString, QString>> enabledIn(const QByteArray &text)
{
    QSet<QPair<QString, QString>> enabled;
    const bool good = walk(text, [&enabled](const QXmlStreamReader &xml, const QStringList &path) {
        if (!isPatch(xml, path) || xml.attributes().value("isEnabled"_L1) != "true"_L1) return;
        const PS4Patch patch = patchOf(xml.attributes());
        enabled.insert({patch.name, patch.appVer});
    });
    return good ? enabled : QSet<QPair<QString, QString>>{};
}

QStringList textsOf(const QJsonValue &value)
{
    QStringList texts;
    for (const QJsonValue &each : value.toArray())
        texts += each.toString();
    return texts;
}
}

std::optional<PS4PatchFile> readPs4Patches(const QByteArray &xml, const QString &file)
{
    PS4PatchFile patches{file, {}, {}};
    QString serial;
    const bool good = walk(xml, [&](const QXmlStreamReader &reader, const QStringList &path) {
        const bool inID = path == QStringList{u"Patch"_s, u"TitleID"_s, u"ID"_s};
        if (inID && reader.isStartElement()) serial.clear();
        if (inID && reader.isCharacters() && serial.size() < 32) serial += reader.text();
        if (inID && reader.isEndElement()) patches.serials += serial.trimmed();
        if (isPatch(reader, path) && patches.patches.size() < mostPatches)
            patches.patches += patchOf(reader.attributes());
    });
    return good ? std::optional(patches) : std::nullopt;
}

bool has60FpsPatch(const PS4PatchFile &file, const QString &version)
{
    return std::ranges::any_of(file.patches, [&version](const PS4Patch &patch) { return fits(patch, version); });
}

std::optional<QByteArray> withPs4Patches(const QByteArray &xml, const QByteArray &present, const QString &version,
                                         bool on)
{
    const auto enabled = enabledIn(present);
    QByteArray result;
    QXmlStreamWriter writer(&result);
    const bool good = walk(xml, [&](const QXmlStreamReader &reader, const QStringList &path) {
        if (!isPatch(reader, path)) return writer.writeCurrentToken(reader);
        const PS4Patch patch = patchOf(reader.attributes());
        const bool is60 = is60FpsPatch(patch.name);
        const bool isOn = is60 ? on && fits(patch, version) : enabled.contains({patch.name, patch.appVer});
        writer.writeStartElement(reader.name().toString());
        for (const QXmlStreamAttribute &attribute : reader.attributes()) {
            if (attribute.name() != "isEnabled"_L1) writer.writeAttribute(attribute);
        }
        writer.writeAttribute(u"isEnabled"_s, isOn ? u"true"_s : u"false"_s);
    });
    return good && !writer.hasError() ? std::optional(result) : std::nullopt;
}

QByteArray withPs4File(const QByteArray &filesJson, const QString &name, const QStringList &serials, bool on, Host host)
{
    QJsonObject files = QJsonDocument::fromJson(filesJson).object();
    const QJsonArray list = QJsonArray::fromStringList(serials);
    if (host == Host::linux)
        files[name] = list;
    else
        files[name] = QJsonObject{{u"serials"_s, list}, {u"isEnabled"_s, on}};
    // One entry of another shape, and shadPS4 would not start.
    for (const QString &key : files.keys()) {
        if (host == Host::linux && !files[key].isArray()) files.remove(key);
    }
    return QJsonDocument(files).toJson();
}

QByteArray encodePs4Index(const QList<PS4PatchFile> &files)
{
    QJsonArray array;
    for (const PS4PatchFile &file : files) {
        QJsonArray patches;
        for (const PS4Patch &patch : file.patches)
            patches += QJsonObject{{u"name"_s, patch.name}, {u"appVer"_s, patch.appVer}};
        array += QJsonObject{
            {u"file"_s, file.file}, {u"serials"_s, QJsonArray::fromStringList(file.serials)}, {u"patches"_s, patches}};
    }
    return QJsonDocument(array).toJson(QJsonDocument::Compact);
}

std::optional<QList<PS4PatchFile>> decodePs4Index(const QByteArray &json)
{
    const QJsonDocument document = QJsonDocument::fromJson(json);
    if (!document.isArray()) return {};
    QList<PS4PatchFile> files;
    for (const QJsonValue &value : document.array()) {
        const QJsonObject object = value.toObject();
        PS4PatchFile file{object[u"file"_s].toString(), textsOf(object[u"serials"_s]), {}};
        if (file.file.startsWith(u'/') || file.file.split(u'/').contains(u".."_s)) continue;
        for (const QJsonValue &patch : object[u"patches"_s].toArray())
            file.patches += PS4Patch{patch[u"name"_s].toString(), patch[u"appVer"_s].toString()};
        files += file;
    }
    return files;
}
