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

QString xemuSettingsFile(const InstalledEmulator &xemu, const Places &places)
{
    if (xemu.kind == ApplicationKind::flatpak)
        return places.home + u"/.var/app/"_s + xemu.applicationID + u"/data/xemu/xemu/xemu.toml"_s;
    const QString portable = QFileInfo(xemu.path).path() + u"/xemu.toml"_s;
    return QFileInfo::exists(portable) ? portable : places.data + u"/xemu/xemu/xemu.toml"_s;
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

static QString tomlText(const QString &text)
{
    // A text between single quotes is taken as it is, but cannot hold one.
    if (!text.contains(u'\'')) return u'\'' + text + u'\'';
    QString escapedText = text;
    escapedText.replace(u'\\', u"\\\\"_s).replace(u'"', u"\\\""_s);
    return u'"' + escapedText + u'"';
}

static QString keyOf(const QString &line)
{
    const qsizetype equals = line.indexOf(u'=');
    return equals <= 0 || line.trimmed().startsWith(u'#') ? QString() : withoutQuotes(line.first(equals).trimmed());
}

/// The first line of the section [sys.files] and the line after its last; both at the end when it is not there.
static QPair<qsizetype, qsizetype> filesSection(const QStringList &lines)
{
    qsizetype begin = lines.size();
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QString line = lines[i].trimmed();
        if (!line.startsWith(u'[')) continue;
        if (begin < lines.size()) return {begin, i};
        if (withoutQuotes(line).startsWith("[sys.files]"_L1)) begin = i + 1;
    }
    return {begin, lines.size()};
}

QString withXemuFiles(const QString &toml, const QMap<QString, QString> &systemFiles)
{
    QStringList lines = toml.split(u'\n');
    const QString lineEnd = toml.contains("\r\n"_L1) ? u"\r"_s : QString();
    const QMap<QString, QString> before = xemuSystemFiles(toml);
    if (filesSection(lines).first == lines.size()) {
        if (!before.isEmpty()) return toml; // written without the section, which must not be opened a second time
        if (lines.last().isEmpty()) lines.removeLast();
        lines += {lineEnd, u"[sys.files]"_s + lineEnd, QString()};
    }
    for (const auto &[key, path] : systemFiles.asKeyValueRange()) {
        auto [line, end] = filesSection(lines);
        while (line < end && keyOf(lines[line]) != key)
            ++line;
        const QString text = key + u" = "_s + tomlText(path) + lineEnd;
        if (line < end) {
            lines[line] = text;
            continue;
        }
        if (before.contains(key)) return toml;
        while (lines[line - 1].trimmed().isEmpty())
            --line;
        lines.insert(line, text);
    }
    const QString edited = lines.join(u'\n');
    QMap<QString, QString> wanted = before;
    wanted.insert(systemFiles);
    return xemuSystemFiles(edited) == wanted ? edited : toml;
}
