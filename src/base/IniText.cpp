#include "base/IniText.h"

#include "base/TextLines.h"

#include <optional>

namespace {
/// Where one key of one section stands in a text.
struct IniPlaces {
    QList<TextLine> lines; ///< of the key, in order
    std::optional<TextLine> lastOfSection; ///< behind which a new key goes; absent: there is no such section
    bool beforeFirst = false; ///< a new key goes before everything else
};

QByteArrayView trimmed(const QByteArray &text, const TextLine &line)
{
    return QByteArrayView(text).sliced(line.start, line.end - line.start).trimmed();
}

bool isKey(QByteArrayView line, QByteArrayView key)
{
    const qsizetype equals = line.indexOf('=');
    return equals >= 0 && line.first(equals).trimmed() == key;
}

IniPlaces placesOf(const QByteArray &text, const QString &section, const QString &key)
{
    const QByteArray header = '[' + section.toUtf8() + ']';
    const QByteArray name = key.toUtf8();
    IniPlaces places;
    int sections = section.isEmpty() ? 1 : 0;
    bool inside = section.isEmpty();
    places.beforeFirst = inside;
    for (const TextLine &line : linesOf(text)) {
        const QByteArrayView content = trimmed(text, line);
        if (content.startsWith('[')) {
            inside = content == header && !section.isEmpty();
            if (!inside) continue;
            ++sections;
        } else if (inside && isKey(content, name)) {
            places.lines += line;
        }
        // New keys go into the first section of that name.
        if (inside && sections == 1 && !content.isEmpty()) places.lastOfSection = line;
    }
    return places;
}

QByteArray replaced(QByteArray text, const IniPlaces &places, const QByteArray &start, const QStringList &values)
{
    const bool each = values.size() == places.lines.size();
    for (qsizetype i = places.lines.size() - 1; i >= 0; --i) {
        const TextLine &line = places.lines[i];
        if (values.isEmpty())
            text.remove(line.start, line.next - line.start);
        else
            text.replace(line.start, line.end - line.start, start + (each ? values[i] : values.last()).toUtf8());
    }
    return text;
}
}

QStringList iniValues(const QByteArray &text, const QString &section, const QString &key)
{
    QStringList values;
    for (const TextLine &line : placesOf(text, section, key).lines) {
        const QByteArrayView content = trimmed(text, line);
        values += QString::fromUtf8(content.sliced(content.indexOf('=') + 1).trimmed());
    }
    return values;
}

QByteArray editIni(const QByteArray &text, const QString &section, const QList<KeyValue> &keys,
                   const QString &separator)
{
    QByteArray edited = text;
    for (const KeyValue &each : keys)
        edited = editIni(edited, section, each.key, QStringList{each.value}, separator);
    return edited;
}

QByteArray editIni(const QByteArray &text, const QString &section, const QString &key, const QStringList &values,
                   const QString &separator)
{
    const IniPlaces places = placesOf(text, section, key);
    const QByteArray start = key.toUtf8() + separator.toUtf8();
    if (!places.lines.isEmpty()) return replaced(text, places, start, values);
    if (values.isEmpty()) return text;

    const QByteArray line = start + values.last().toUtf8();
    if (places.lastOfSection) return withLineAfter(text, *places.lastOfSection, line);
    if (places.beforeFirst) {
        QByteArray result = text;
        return result.insert(linesOf(text).first().start, line + lineEndOf(text));
    }
    return withLineAtEnd(withLineAtEnd(text, '[' + section.toUtf8() + ']'), line);
}
