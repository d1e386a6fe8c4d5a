#include "emulators/settings/ChangeJournal.h"

#include "base/XmlText.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>

using namespace Qt::StringLiterals;

bool EmulatorChange::isAt(const EmulatorChange &other) const
{
    return file == other.file && section == other.section && key == other.key && listed == other.listed
        && (!listed || written == other.written);
}

const EmulatorChange *ChangeJournal::at(const EmulatorChange &place) const
{
    const auto found = std::find_if(changes.begin(), changes.end(),
                                    [&place](const EmulatorChange &change) { return change.isAt(place); });
    return found == changes.end() ? nullptr : &*found;
}

void apply(const JournalUpdate &update, ChangeJournal &journal)
{
    const auto placeOf = [&journal](const EmulatorChange &change) {
        return std::find_if(journal.changes.begin(), journal.changes.end(),
                            [&change](const EmulatorChange &each) { return each.isAt(change); });
    };
    for (const EmulatorChange &change : update.gone) {
        if (const auto place = placeOf(change); place != journal.changes.end()) journal.changes.erase(place);
    }
    for (const EmulatorChange &change : update.changed) {
        const auto place = placeOf(change);
        if (place == journal.changes.end())
            journal.changes += change;
        else
            *place = change;
    }
    journal.quieted.insert(update.quieted);
}

static QStringList asOften(const QString &value, qsizetype times)
{
    return QStringList(std::max<qsizetype>(1, times), value);
}

static std::optional<QByteArray> listedIn(const QByteArray &text, const FileEdits &edits, EmulatorChange change,
                                          JournalUpdate &update)
{
    const QStringList path = change.section + QStringList{change.key};
    for (const QString &value : xmlValues(text, path)) {
        if (textOfXml(value.trimmed()) == textOfXml(change.written)) return text;
    }
    Q_ASSERT(edits.format == ConfigFormat::xml);
    change.listed = true;
    const auto result = withXmlElement(text, path, change.written);
    if (result) update.changed += change;
    return result;
}

/// What the values become; nothing: they stay.
static std::optional<QString> wanted(const ConfigEdit &edit, const QStringList &present)
{
    const qlonglong number = present.value(present.size() - 1).toLongLong();
    const qlonglong value = edit.value.toLongLong();
    switch (edit.how) {
    case ConfigEdit::How::atLeast:
        return number >= value ? std::nullopt : std::optional(edit.value);
    case ConfigEdit::How::withBits:
        return (number & value) == value ? std::nullopt : std::optional(QString::number(number | value));
    case ConfigEdit::How::ifThere:
        return present.isEmpty() ? std::nullopt : std::optional(edit.value);
    case ConfigEdit::How::ifEmpty:
        return present.isEmpty() || !present.last().isEmpty() ? std::nullopt : std::optional(edit.value);
    default:
        return edit.value;
    }
}

static std::optional<QByteArray> editedKey(const QByteArray &text, const FileEdits &edits, const ConfigEdit &edit,
                                           EmulatorChange change, const ChangeJournal &journal, JournalUpdate &update)
{
    if (edit.how == ConfigEdit::How::listed) return listedIn(text, edits, change, update);
    const QStringList present = configValues(text, edits.format, edit.section, edit.key);
    const EmulatorChange *earlier = journal.at(change);
    const bool ours = earlier && !present.isEmpty() && present == asOften(earlier->written, present.size());
    if (edit.how == ConfigEdit::How::putBack) {
        if (!ours) return text;
        update.gone += *earlier;
        return withConfigValues(text, edits.format, edit.section, edit.key, earlier->old);
    }
    const auto value = wanted(edit, present);
    if (!value) return text;
    change.written = *value;
    change.old = ours ? earlier->old : present;
    if (present != asOften(*value, present.size())) {
        const bool asTheUserHadIt = !change.old.isEmpty() && change.old == asOften(*value, change.old.size());
        if (!asTheUserHadIt)
            update.changed += change;
        else if (earlier)
            update.gone += *earlier;
    }
    return withConfigValues(text, edits.format, edit.section, edit.key, {*value});
}

std::optional<QByteArray> edited(const QByteArray &text, const FileEdits &edits, const QString &emulatorID,
                                 ReferenceDate now, const ChangeJournal &journal, JournalUpdate &update)
{
    std::optional<QByteArray> result = text;
    for (const ConfigEdit &edit : edits.edits) {
        const EmulatorChange change{emulatorID, edits.file, edits.format, edit.section, edit.key, {}, edit.value, now};
        result = editedKey(*result, edits, edit, change, journal, update);
        if (!result) break;
    }
    return result;
}

std::optional<QByteArray> putBack(const QByteArray &text, const QList<EmulatorChange> &changes,
                                  QList<EmulatorChange> &changedSince)
{
    std::optional<QByteArray> result = text;
    // Keys that were added last go first.
    for (auto change = changes.rbegin(); result && change != changes.rend(); ++change) {
        if (change->listed) {
            result = withoutXmlElement(*result, change->section + QStringList{change->key}, change->written);
            continue;
        }
        const QStringList present = configValues(*result, change->format, change->section, change->key);
        if (present != asOften(change->written, present.size()))
            changedSince.prepend(*change);
        else
            result = withConfigValues(*result, change->format, change->section, change->key, change->old);
    }
    return result;
}

static std::optional<EmulatorChange> changeFromJson(const QJsonObject &object)
{
    EmulatorChange change;
    const auto format = configFormatNamed(object.value("format"_L1).toString());
    change.emulatorID = object.value("emulator"_L1).toString();
    change.file = object.value("file"_L1).toString();
    change.key = object.value("key"_L1).toString();
    if (!format || change.emulatorID.isEmpty() || change.file.isEmpty() || change.key.isEmpty()) return {};
    change.format = *format;
    for (const QJsonValue &part : object.value("section"_L1).toArray())
        change.section += part.toString();
    for (const QJsonValue &value : object.value("old"_L1).toArray())
        change.old += value.toString();
    change.written = object.value("new"_L1).toString();
    change.when.seconds = object.value("when"_L1).toDouble();
    change.listed = object.value("listed"_L1).toBool();
    return change;
}

static QJsonObject toJson(const EmulatorChange &change)
{
    QJsonObject object{{u"emulator"_s, change.emulatorID},
                       {u"file"_s, change.file},
                       {u"format"_s, name(change.format)},
                       {u"section"_s, QJsonArray::fromStringList(change.section)},
                       {u"key"_s, change.key},
                       {u"old"_s, QJsonArray::fromStringList(change.old)},
                       {u"new"_s, change.written},
                       {u"when"_s, change.when.seconds}};
    if (change.listed) object.insert(u"listed"_s, true);
    return object;
}

ChangeJournal decodeJournal(const QByteArray &json)
{
    ChangeJournal journal;
    const QJsonObject object = QJsonDocument::fromJson(json).object();
    for (const QJsonValue &value : object.value("changes"_L1).toArray()) {
        if (const auto change = changeFromJson(value.toObject())) journal.changes += *change;
    }
    const QJsonObject quieted = object.value("quieted"_L1).toObject();
    for (auto file = quieted.begin(); file != quieted.end(); ++file)
        journal.quieted.insert(file.key(), ReferenceDate{file.value().toDouble()});
    return journal;
}

QByteArray encodeJournal(const ChangeJournal &journal)
{
    QJsonArray changes;
    for (const EmulatorChange &change : journal.changes)
        changes += toJson(change);
    QJsonObject quieted;
    for (const auto &[file, when] : journal.quieted.asKeyValueRange())
        quieted.insert(file, when.seconds);
    return QJsonDocument(QJsonObject{{u"changes"_s, changes}, {u"quieted"_s, quieted}}).toJson();
}
