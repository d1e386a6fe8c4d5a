#include "emulators/XemuSetup.h"

#include <QFileInfo>
#include <QHash>
#include <QList>
#include <QPair>
#include <optional>

using namespace Qt::StringLiterals;

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

/// The text that `value` begins with: between single quotes as it is, between double ones with escapes. What follows it
/// can only be a comment. Nothing for a value of another type or one without its closing quote.
static std::optional<QString> quotedText(const QString &value)
{
    const QChar quote = value.isEmpty() ? QChar() : value.front();
    if ((quote != u'\'' && quote != u'"') || value.startsWith(QString(3, quote))) return {};
    QString text;
    for (qsizetype i = 1; i < value.size(); ++i) {
        if (value[i] == quote) return text;
        if (quote == u'"' && value[i] == u'\\') {
            if (++i == value.size()) return {};
            const auto character = escaped(value, i);
            if (!character) return {};
            text += *character;
        } else {
            text += value[i];
        }
    }
    return {};
}

static QString withoutQuotes(QString key)
{
    key.remove(u'"').remove(u'\'').remove(u' ');
    return key;
}

QMap<QString, QString> xemuSystemFiles(const QString &toml)
{
    QMap<QString, QString> files;
    QString section;
    for (const QString &each : toml.split(u'\n')) {
        const QString line = each.trimmed();
        if (line.startsWith(u'[')) {
            const qsizetype end = line.indexOf(u']');
            section = end < 0 ? QString() : withoutQuotes(line.sliced(1, end - 1));
            continue;
        }
        const qsizetype equals = line.indexOf(u'=');
        if (equals <= 0 || line.startsWith(u'#')) continue;
        QString key = withoutQuotes(line.first(equals).trimmed());
        if (!section.isEmpty()) key = section + u'.' + key;
        if (!key.startsWith("sys.files."_L1)) continue;
        if (const auto text = quotedText(line.sliced(equals + 1).trimmed())) files.insert(key.sliced(10), *text);
    }
    return files;
}

QStringList missingXemuFiles(const QMap<QString, QString> &systemFiles)
{
    static const QList<QPair<QString, QString>> needed{{u"bootrom_path"_s, u"MCPX Boot ROM"_s},
                                                       {u"flashrom_path"_s, u"Flash ROM (BIOS)"_s},
                                                       {u"hdd_path"_s, u"Hard disk image"_s}};
    QStringList missing;
    for (const auto &[key, label] : needed) {
        const QString path = systemFiles.value(key);
        if (path.isEmpty() || !QFileInfo(path).isFile()) missing += label;
    }
    return missing;
}
