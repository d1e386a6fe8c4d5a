#include "base/YamlText.h"

#include "base/QuotedText.h"
#include "base/TextLines.h"
#include "base/YamlScan.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {
struct Found {
    QList<YamlEntry> entries; ///< at the whole path
    bool inBraces = false;
    // What is missing when there are none:
    YamlMapping innermost; ///< the mapping that is to hold it
    std::optional<YamlEntry> parent; ///< the entry that holds that mapping; absent: the text itself
    qsizetype depth = 0; ///< how many keys of the path lead to it
    bool blocked = false; ///< something other than a mapping is in the way
    bool good = true;
};

void collect(const QByteArray &text, const YamlMapping &mapping, const std::optional<YamlEntry> &parent,
             const QStringList &path, qsizetype depth, Found &found)
{
    if (depth >= found.depth) {
        found.depth = depth;
        found.innermost = mapping;
        found.parent = parent;
    }
    for (const YamlEntry &entry : yamlEntries(text, mapping, found.good)) {
        if (entry.key != path[depth]) continue;
        if (depth + 1 == path.size()) {
            found.entries += entry;
            found.inBraces = mapping.inBraces;
        } else if (entry.kind == YamlEntry::Value::mapping) {
            collect(text, entry.mapping, entry, path, depth + 1, found);
        } else if (entry.kind == YamlEntry::Value::nothing) {
            collect(text, {entry.end, entry.end, false}, entry, path, depth + 1, found);
        } else {
            found.blocked = true;
        }
    }
}

Found find(const QByteArray &text, const QStringList &path)
{
    Found found;
    if (!path.isEmpty()) collect(text, yamlRoot(text), {}, path, 0, found);
    return found;
}

bool isScalar(const YamlEntry &entry)
{
    return entry.kind == YamlEntry::Value::scalar || entry.kind == YamlEntry::Value::nothing;
}

QByteArray inBraces(const QByteArray &text, const Found &found, const QStringList &missing, const QByteArray &value)
{
    QByteArray entry = yamlOfText(missing.last()).toUtf8() + ": " + value;
    for (qsizetype i = missing.size() - 2; i >= 0; --i)
        entry = yamlOfText(missing[i]).toUtf8() + ": {" + entry + '}';
    const YamlMapping &mapping = found.innermost;
    const QByteArrayView inside = QByteArrayView(text).sliced(mapping.start, mapping.end - mapping.start).trimmed();
    QByteArray result = text;
    if (inside.isEmpty()) return result.replace(mapping.start, mapping.end - mapping.start, entry);
    return result.insert(inside.data() + inside.size() - text.constData(), (inside.endsWith(',') ? " " : ", ") + entry);
}

TextLine lineBefore(const QByteArray &text, qsizetype position)
{
    TextLine before = linesOf(text).first();
    for (const TextLine &line : linesOf(text)) {
        if (line.start < position) before = line;
    }
    return before;
}

QByteArray byIndentation(const QByteArray &text, const Found &found, const QStringList &missing,
                         const QByteArray &value)
{
    bool good = true;
    const QList<YamlEntry> siblings = yamlEntries(text, found.innermost, good);
    const qsizetype parent = found.parent ? found.parent->indentation : -2;
    const qsizetype indentation = siblings.isEmpty() ? parent + 2 : siblings.first().indentation;
    QByteArrayList lines;
    for (qsizetype i = 0; i < missing.size(); ++i) {
        const QByteArray line = QByteArray(indentation + 2 * i, ' ') + yamlOfText(missing[i]).toUtf8() + ':';
        lines += i + 1 < missing.size() ? line : line + ' ' + value;
    }
    const QByteArray added = lines.join(lineEndOf(text));
    if (siblings.isEmpty() && !found.parent) return withLineAtEnd(text, added);
    return withLineAfter(text, lineBefore(text, siblings.isEmpty() ? found.parent->end : siblings.last().end), added);
}

/// In braces the comma goes with its entry.
void remove(QByteArray &text, const YamlEntry &entry, bool inBraces)
{
    qsizetype start = entry.start;
    qsizetype end = entry.end;
    if (inBraces) {
        qsizetype behind = end;
        while (behind < text.size() && text[behind] == ' ')
            ++behind;
        if (behind < text.size() && text[behind] == ',') {
            end = behind + 1;
            while (end < text.size() && text[end] == ' ')
                ++end;
        } else {
            while (start > 0 && (text[start - 1] == ' ' || text[start - 1] == ','))
                --start;
        }
    }
    text.remove(start, end - start);
}

/// Mappings that hold nothing any more, from the innermost one on; a line of their own each. Programs may expect
/// something in them.
void removeEmptied(QByteArray &text, QStringList path)
{
    while (path.size() > 1) {
        path.removeLast();
        const Found found = find(text, path);
        if (found.inBraces || found.entries.isEmpty()) return;
        for (auto entry = found.entries.rbegin(); entry != found.entries.rend(); ++entry) {
            const bool empty = entry->kind == YamlEntry::Value::nothing
                && !text.sliced(entry->start, entry->end - entry->start).contains('#');
            if (!empty) return;
            remove(text, *entry, false);
        }
    }
}
}

QStringList yamlValues(const QByteArray &text, const QStringList &path)
{
    QStringList values;
    for (const YamlEntry &entry : find(text, path).entries) {
        if (isScalar(entry))
            values += QString::fromUtf8(text.sliced(entry.valueStart, entry.valueEnd - entry.valueStart));
    }
    return values;
}

std::optional<QByteArray> editYaml(const QByteArray &text, const QStringList &path, const QStringList &values)
{
    const Found found = find(text, path);
    if (!found.good || path.isEmpty()) return {};
    const QList<YamlEntry> &places = found.entries;
    if (places.isEmpty()) {
        if (values.isEmpty()) return text;
        if (found.blocked) return {};
        const QStringList missing = path.sliced(found.depth);
        const QByteArray value = values.last().toUtf8();
        return found.innermost.inBraces ? inBraces(text, found, missing, value)
                                        : byIndentation(text, found, missing, value);
    }
    QByteArray edited = text;
    for (qsizetype i = places.size() - 1; i >= 0; --i) {
        const YamlEntry &place = places[i];
        if (!isScalar(place)) return {};
        if (values.isEmpty()) {
            remove(edited, place, found.inBraces);
            continue;
        }
        const QByteArray value = (values.size() == places.size() ? values[i] : values.last()).toUtf8();
        const bool afterColon = place.valueStart > 0 && edited[place.valueStart - 1] == ':';
        edited.replace(place.valueStart, place.valueEnd - place.valueStart, afterColon ? ' ' + value : value);
    }
    if (values.isEmpty()) removeEmptied(edited, path);
    return edited;
}

QString yamlOfText(const QString &text)
{
    static const QRegularExpression plain(u"^[\\p{L}\\p{N}/_(.$+][^\\x00-\\x1f\\x7f,\\[\\]{}\"#&*!|>%@`\\\\]*$"_s,
                                          QRegularExpression::UseUnicodePropertiesOption);
    static const QRegularExpression special(u"^(~|null|true|false|yes|no|on|off|y|n)$"_s,
                                            QRegularExpression::CaseInsensitiveOption);
    const bool isPlain = plain.match(text).hasMatch() && !special.match(text).hasMatch() && !text.contains(": "_L1)
        && !text.endsWith(u':') && !text.endsWith(u' ');
    return isPlain ? text : inDoubleQuotes(text);
}
