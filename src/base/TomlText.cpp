#include "base/TomlText.h"

#include "base/QuotedText.h"
#include "base/TextLines.h"
#include "base/TomlScan.h"

#include <QHash>
#include <QRegularExpression>
#include <algorithm>

using namespace Qt::StringLiterals;

static QByteArray keyText(const QStringList &path)
{
    static const QRegularExpression bare(u"^[A-Za-z0-9_-]+$"_s);
    QStringList parts;
    for (const QString &part : path)
        parts += bare.match(part).hasMatch() ? part : tomlOfText(part);
    return parts.join(u'.').toUtf8();
}

static QList<TomlScan::Key> keysAt(const TomlScan &scan, const QStringList &path)
{
    QList<TomlScan::Key> keys = scan.keys;
    keys.removeIf([&path](const TomlScan::Key &key) { return key.path != path; });
    return keys;
}

static TextLine lineOf(const QByteArray &text, qsizetype position)
{
    const QList<TextLine> lines = linesOf(text);
    const auto behind = std::upper_bound(lines.begin(), lines.end(), position,
                                         [](qsizetype place, const TextLine &line) { return place < line.start; });
    return behind == lines.begin() ? lines.first() : *std::prev(behind);
}

/// The last line that is not blank of the lines in [from, to).
static std::optional<TextLine> lastLine(const QByteArray &text, qsizetype from, qsizetype to)
{
    std::optional<TextLine> last;
    for (const TextLine &line : linesOf(text)) {
        const bool blank = QByteArrayView(text).sliced(line.start, line.end - line.start).trimmed().isEmpty();
        if (line.start >= from && line.start < to && !blank) last = line;
    }
    return last;
}

static QByteArray insertedInline(QByteArray text, const TomlScan::Key &table, const QByteArray &entry)
{
    const QByteArrayView inside =
        QByteArrayView(text).sliced(table.valueStart + 1, table.valueEnd - table.valueStart - 2).trimmed();
    if (inside.isEmpty()) return text.replace(table.valueStart, table.valueEnd - table.valueStart, "{ " + entry + " }");
    const qsizetype behind = inside.data() + inside.size() - text.constData();
    return text.insert(behind, (inside.endsWith(',') ? " " : ", ") + entry);
}

static bool beginsWith(const QStringList &path, const QStringList &start)
{
    return path.size() >= start.size() && path.first(start.size()) == start;
}

static std::optional<QByteArray> added(const QByteArray &text, const TomlScan &scan, const QStringList &table,
                                       const QString &key, const QByteArray &value)
{
    const QByteArray entry = keyText({key}) + " = " + value;
    for (const TomlScan::Key &each : scan.keys) {
        if (each.path != table) continue;
        if (text[each.valueStart] != '{') return {}; // a value stands where the table should be
        return insertedInline(text, each, entry);
    }
    for (qsizetype i = 0; i < scan.tables.size(); ++i) {
        const TomlScan::Table &each = scan.tables[i];
        if (each.path != table) continue;
        if (each.ofArray) return {};
        const qsizetype end = i + 1 < scan.tables.size() ? scan.tables[i + 1].start : text.size();
        return withLineAfter(text, lastLine(text, each.start, end).value_or(lineOf(text, each.start)), entry);
    }
    // A table that dotted keys have made may not get a header as well.
    for (const TomlScan::Key &each : scan.keys) {
        if (each.isInline || !beginsWith(each.path, table) || beginsWith(each.table, table)) continue;
        const QByteArray dotted = keyText(table.sliced(each.table.size()) + QStringList{key}) + " = " + value;
        return withLineAfter(text, lineOf(text, each.valueEnd), dotted);
    }
    if (!table.isEmpty()) return withLineAtEnd(withLineAtEnd(text, '[' + keyText(table) + ']'), entry);
    const qsizetype end = scan.tables.isEmpty() ? text.size() : scan.tables.first().start;
    if (const auto last = lastLine(text, 0, end)) return withLineAfter(text, *last, entry);
    QByteArray result = text;
    return result.insert(linesOf(text).first().start, entry + lineEndOf(text));
}

QList<TomlEntry> tomlEntries(const QByteArray &text)
{
    QList<TomlEntry> entries;
    for (const TomlScan::Key &key : scanToml(text).keys)
        entries += TomlEntry{key.path, text.sliced(key.valueStart, key.valueEnd - key.valueStart)};
    return entries;
}

QStringList tomlValues(const QByteArray &text, const QStringList &table, const QString &key)
{
    QStringList values;
    for (const TomlEntry &entry : tomlEntries(text)) {
        if (entry.path == table + QStringList{key}) values += QString::fromUtf8(entry.value);
    }
    return values;
}

std::optional<QByteArray> editToml(const QByteArray &text, const QStringList &table, const QString &key,
                                   const QStringList &values)
{
    const TomlScan scan = scanToml(text);
    if (scan.broken) return {};
    const QList<TomlScan::Key> places = keysAt(scan, table + QStringList{key});
    if (places.isEmpty()) return values.isEmpty() ? text : added(text, scan, table, key, values.last().toUtf8());

    QByteArray edited = text;
    for (qsizetype i = places.size() - 1; i >= 0; --i) {
        const TomlScan::Key &place = places[i];
        if (!values.isEmpty()) {
            const QString &value = values.size() == places.size() ? values[i] : values.last();
            edited.replace(place.valueStart, place.valueEnd - place.valueStart, value.toUtf8());
        } else if (place.isInline) {
            return {};
        } else {
            const qsizetype start = lineOf(text, place.start).start;
            edited.remove(start, lineOf(text, place.valueEnd).next - start);
        }
    }
    return edited;
}

/// The character behind a backslash, or behind "\u" and "\U" with their digits; moves `position` to its end.
static std::optional<QString> escaped(const QString &text, qsizetype &position)
{
    static const QHash<QChar, QChar> plain{{u'"', u'"'},  {u'\\', u'\\'}, {u'n', u'\n'}, {u't', u'\t'},
                                           {u'r', u'\r'}, {u'b', u'\b'},  {u'f', u'\f'}};
    const QChar kind = text[position];
    if (plain.contains(kind)) return QString(plain.value(kind));
    const qsizetype digits = kind == u'u' ? 4 : kind == u'U' ? 8 : 0;
    if (digits == 0 || position + digits >= text.size()) return {};
    bool ok = false;
    const char32_t code = text.sliced(position + 1, digits).toUInt(&ok, 16);
    if (!ok || code > QChar::LastValidCodePoint) return {};
    position += digits;
    return QString::fromUcs4(&code, 1);
}

std::optional<QString> textOfToml(const QByteArray &value)
{
    const QString source = QString::fromUtf8(value);
    const QChar quote = source.isEmpty() ? QChar() : source.front();
    if ((quote != u'\'' && quote != u'"') || source.startsWith(QString(3, quote))) return {};
    QString text;
    for (qsizetype i = 1; i < source.size(); ++i) {
        if (source[i] == quote) return text;
        if (quote == u'"' && source[i] == u'\\') {
            if (++i == source.size()) return {};
            const auto character = escaped(source, i);
            if (!character) return {};
            text += *character;
        } else {
            text += source[i];
        }
    }
    return {};
}

QString tomlOfText(const QString &text)
{
    const bool plain =
        std::none_of(text.begin(), text.end(), [](QChar c) { return c == u'\'' || c < u' ' || c == u'\x7f'; });
    if (plain) return u'\'' + text + u'\'';
    return inDoubleQuotes(text);
}
