#include "base/YamlScan.h"

#include "base/TextLines.h"

#include <optional>

namespace {
bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

/// Walks over the tokens of flow style and over quoted keys; never past `end`.
class Walker {
public:
    Walker(const QByteArray &text, qsizetype position, qsizetype end) : m_text(text), position(position), m_end(end) { }

    bool atEnd() const { return position >= m_end; }
    char current() const { return atEnd() ? '\0' : m_text[position]; }
    char following() const { return position + 1 < m_end ? m_text[position + 1] : '\n'; }
    void skipBlanks()
    {
        for (; !atEnd(); ++position) {
            const bool comment = current() == '#' && (position == 0 || isBlank(m_text[position - 1]));
            if (comment) {
                while (!atEnd() && current() != '\n')
                    ++position;
            } else if (!isBlank(current())) {
                return;
            }
        }
    }
    /// Over a text in quotes; its content.
    std::optional<QString> quoted()
    {
        const char quote = current();
        QByteArray content;
        for (++position; !atEnd(); ++position) {
            if (current() == quote) {
                if (quote == '"' || following() != '\'') return ++position, QString::fromUtf8(content);
                ++position; // two single quotes stand for one
            } else if (quote == '"' && current() == '\\') {
                ++position;
            }
            if (!atEnd()) content += current();
        }
        return {};
    }
    /// Over one value in braces or brackets, or one in quotes, or a plain one up to the next sign of the flow.
    bool flowValue()
    {
        const qsizetype start = position;
        int open = 0;
        do {
            skipBlanks();
            const char c = current();
            if (atEnd()) return false;
            if (c == '"' || c == '\'') {
                if (!quoted()) return false;
            } else if (c == '{' || c == '[') {
                ++open;
                ++position;
            } else if (c == '}' || c == ']') {
                if (open == 0) break;
                --open;
                ++position;
            } else if (c == ',' || c == ':') {
                if (open == 0) break;
                ++position;
            } else {
                plain();
            }
        } while (open > 0);
        return position > start;
    }
    /// Over a plain scalar inside a flow.
    void plain()
    {
        while (!atEnd() && !QByteArrayView(",[]{}").contains(current())) {
            const bool endsKey =
                current() == ':' && (isBlank(following()) || QByteArrayView(",[]{}").contains(following()));
            const bool comment = current() == '#' && position > 0 && isBlank(m_text[position - 1]);
            if (endsKey || comment) break;
            ++position;
        }
    }
    qsizetype trimmedEnd(qsizetype start) const
    {
        qsizetype end = position;
        while (end > start && isBlank(m_text[end - 1]))
            --end;
        return end;
    }

private:
    const QByteArray &m_text;

public:
    qsizetype position;

private:
    qsizetype m_end;
};

YamlEntry::Value kindAt(const QByteArray &text, qsizetype start, qsizetype end)
{
    if (start == end) return YamlEntry::Value::nothing;
    if (text[start] == '{') return YamlEntry::Value::mapping;
    return QByteArrayView("[*&!|>").contains(text[start]) ? YamlEntry::Value::other : YamlEntry::Value::scalar;
}

QList<YamlEntry> flowEntries(const QByteArray &text, const YamlMapping &mapping, bool &good)
{
    QList<YamlEntry> entries;
    Walker walker(text, mapping.start, mapping.end);
    while (walker.skipBlanks(), !walker.atEnd()) {
        YamlEntry entry;
        entry.start = walker.position;
        const bool isQuoted = walker.current() == '"' || walker.current() == '\'';
        if (isQuoted) {
            entry.key = walker.quoted().value_or(QString());
        } else {
            walker.plain();
            entry.key = QString::fromUtf8(text.sliced(entry.start, walker.trimmedEnd(entry.start) - entry.start));
        }
        walker.skipBlanks();
        entry.valueStart = entry.valueEnd = entry.end = walker.position;
        if (walker.current() == ':') {
            ++walker.position;
            walker.skipBlanks();
            entry.valueStart = walker.position;
            if (walker.current() != ',' && !walker.atEnd() && !walker.flowValue()) good = false;
            entry.valueEnd = entry.end = walker.trimmedEnd(entry.valueStart);
        }
        entry.kind = kindAt(text, entry.valueStart, entry.valueEnd);
        if (entry.kind == YamlEntry::Value::mapping) entry.mapping = {entry.valueStart + 1, entry.valueEnd - 1, true};
        walker.skipBlanks();
        if (walker.current() == ',')
            ++walker.position;
        else if (!walker.atEnd())
            good = false;
        if (!good) return entries;
        entries += entry;
    }
    return entries;
}

bool isComment(QByteArrayView content)
{
    return content.isEmpty() || content.startsWith('#');
}

/// The key at the beginning of a line and its value on that line; nothing for a line that is something else.
std::optional<YamlEntry> entryAt(const QByteArray &text, qsizetype start, qsizetype end)
{
    YamlEntry entry;
    Walker walker(text, start, end);
    // An item of a sequence, a key of several lines, a flow, an anchor, a tag, an alias.
    const bool marked = QByteArrayView("-?").contains(walker.current()) && isBlank(walker.following());
    if (marked || QByteArrayView("[{&!*|>@`\t").contains(walker.current())) return {};
    if (walker.current() == '"' || walker.current() == '\'') {
        const auto key = walker.quoted();
        if (!key) return {};
        entry.key = *key;
        while (walker.current() == ' ')
            ++walker.position;
    } else {
        while (!walker.atEnd() && !(walker.current() == ':' && (isBlank(walker.following())))) {
            if (walker.current() == '#' && walker.position > start && isBlank(text[walker.position - 1])) return {};
            ++walker.position;
        }
        entry.key = QString::fromUtf8(text.sliced(start, walker.trimmedEnd(start) - start));
    }
    if (walker.current() != ':') return {};
    const qsizetype colon = ++walker.position;
    walker.skipBlanks();
    // Without a value, one goes right behind the colon, before a comment.
    entry.valueStart = entry.valueEnd = walker.position < end ? walker.position : colon;
    return entry;
}

/// Finds the end of the value that begins on the key's line, and what lies on the lines below it.
bool readValue(const QByteArray &text, YamlEntry &entry, qsizetype lineEnd, qsizetype below)
{
    Walker walker(text, entry.valueStart, entry.end);
    if (entry.valueStart < lineEnd) {
        const char first = text[entry.valueStart];
        if (first == '{' || first == '[') {
            if (!walker.flowValue()) return false;
            entry.valueEnd = walker.position;
        } else if (first == '"' || first == '\'') {
            if (!walker.quoted()) return false;
            entry.valueEnd = walker.position;
            while (walker.current() == ' ')
                ++walker.position;
            if (!walker.atEnd() && !QByteArrayView("#\r\n").contains(walker.current())) return false;
        } else {
            for (; walker.position < lineEnd; ++walker.position) {
                if (walker.current() == '#' && isBlank(text[walker.position - 1])) break;
            }
            entry.valueEnd = walker.trimmedEnd(entry.valueStart);
        }
    }
    entry.kind = kindAt(text, entry.valueStart, entry.valueEnd);
    if (entry.kind == YamlEntry::Value::mapping) {
        entry.mapping = {entry.valueStart + 1, entry.valueEnd - 1, true};
        return true;
    }
    Walker under(text, below, entry.end);
    under.skipBlanks();
    const bool more = !under.atEnd();
    // An anchor or a tag stands before what it is about.
    const bool marked = entry.kind == YamlEntry::Value::other && QByteArrayView("&!").contains(text[entry.valueStart]);
    if (!more || (entry.kind != YamlEntry::Value::nothing && !marked)) {
        // A plain text that goes on below is left alone as a whole.
        if (more && entry.kind == YamlEntry::Value::scalar && entry.valueEnd <= lineEnd)
            entry.kind = YamlEntry::Value::other;
        return true;
    }
    if (under.current() == '{') {
        const qsizetype start = under.position;
        if (!under.flowValue()) return false;
        entry.kind = YamlEntry::Value::mapping;
        entry.mapping = {start + 1, under.position - 1, true};
    } else if (under.current() == '[' || (under.current() == '-' && isBlank(under.following()))) {
        entry.kind = YamlEntry::Value::other;
    } else {
        entry.kind = YamlEntry::Value::mapping;
        entry.mapping = {below, entry.end, false};
    }
    return true;
}

bool opensFlow(const QByteArray &text, const YamlEntry &entry)
{
    return entry.valueStart < text.size() && QByteArrayView("{[").contains(text[entry.valueStart]);
}

QList<YamlEntry> blockEntries(const QByteArray &text, const YamlMapping &mapping, bool &good)
{
    struct Found {
        YamlEntry entry;
        qsizetype lineEnd, below;
    };
    QList<Found> found;
    qsizetype indentation = -1;
    for (const TextLine &line : linesOf(text)) {
        if (line.start < mapping.start || line.start >= mapping.end) continue;
        const QByteArrayView content = QByteArrayView(text).sliced(line.start, line.end - line.start);
        qsizetype blanks = 0;
        while (blanks < content.size() && content[blanks] == ' ')
            ++blanks;
        const QByteArrayView rest = content.sliced(blanks);
        if (isComment(rest.trimmed())) continue;
        const bool marker = blanks == 0 && (rest.startsWith("---") || rest.startsWith('%') || rest.startsWith("..."));
        if (marker && found.isEmpty() && rest.size() <= 3) continue;
        if (marker && rest.startsWith('%')) continue;
        if (indentation < 0) indentation = blanks;
        const bool item = rest.startsWith("- ") || rest == "-";
        const bool closing = rest.startsWith('}') || rest.startsWith(']');
        const bool goesOn =
            blanks > indentation || item || (closing && !found.isEmpty() && opensFlow(text, found.last().entry));
        if (!found.isEmpty() && goesOn) {
            found.last().entry.end = line.next;
            continue;
        }
        auto entry = blanks == indentation && !marker ? entryAt(text, line.start + blanks, line.end) : std::nullopt;
        if (!entry) {
            good = false;
            return {};
        }
        entry->start = line.start;
        entry->end = line.next;
        entry->indentation = indentation;
        found += Found{*entry, line.end, line.next};
    }
    QList<YamlEntry> entries;
    for (Found &each : found) {
        if (!readValue(text, each.entry, each.lineEnd, each.below)) good = false;
        entries += each.entry;
    }
    return entries;
}
}

YamlMapping yamlRoot(const QByteArray &text)
{
    const qsizetype start = linesOf(text).first().start;
    Walker walker(text, start, text.size());
    walker.skipBlanks();
    if (walker.current() != '{') return {start, text.size(), false};
    const qsizetype inside = walker.position + 1;
    return walker.flowValue() ? YamlMapping{inside, walker.position - 1, true} : YamlMapping{start, text.size(), false};
}

QList<YamlEntry> yamlEntries(const QByteArray &text, const YamlMapping &mapping, bool &good)
{
    return mapping.inBraces ? flowEntries(text, mapping, good) : blockEntries(text, mapping, good);
}
