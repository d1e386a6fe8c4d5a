#include "base/TomlScan.h"

#include "base/TextLines.h"

#include <optional>

namespace {
constexpr int deepest = 64; ///< inline tables within each other; programs write two

class Scanner {
public:
    explicit Scanner(const QByteArray &text) : m_text(text), m_position(linesOf(text).first().start) { }

    TomlScan scan()
    {
        while (skipBlanks(true), !atEnd()) {
            const bool good = at('[') ? header() : key(m_table, false, 0);
            if (!good || !restOfLineIsBlank()) {
                m_scan.broken = true;
                skipLine();
            }
        }
        return m_scan;
    }

private:
    bool atEnd() const { return m_position >= m_text.size(); }
    bool at(char c) const { return !atEnd() && m_text[m_position] == c; }
    bool at(const char *word) const { return QByteArrayView(m_text).sliced(m_position).startsWith(word); }
    bool skip(char c) { return at(c) && (++m_position, true); }
    void skipLine()
    {
        const qsizetype feed = m_text.indexOf('\n', m_position);
        m_position = feed < 0 ? m_text.size() : feed + 1;
    }
    void skipBlanks(bool lines)
    {
        while (!atEnd()) {
            if (at(' ') || at('\t') || at('\r') || (lines && at('\n')))
                ++m_position;
            else if (lines && at('#'))
                skipLine();
            else
                return;
        }
    }
    bool restOfLineIsBlank()
    {
        skipBlanks(false);
        return atEnd() || at('\n') || at('#');
    }

    bool header()
    {
        TomlScan::Table table{{}, m_position, at("[[")};
        m_table.clear();
        m_tableIsKnown = false;
        m_position += table.ofArray ? 2 : 1;
        const auto path = keyPath();
        if (!path || !skip(']') || (table.ofArray && !skip(']'))) return false;
        table.path = m_table = *path;
        m_tableIsKnown = true;
        m_scan.tables += table;
        return true;
    }

    bool key(const QStringList &table, bool isInline, int depth)
    {
        TomlScan::Key found{{}, m_table, m_position, 0, 0, isInline};
        const auto path = keyPath();
        if (!path || !skip('=')) return false;
        skipBlanks(false);
        found.path = table + *path;
        found.valueStart = m_position;
        const qsizetype index = m_scan.keys.size();
        if (m_tableIsKnown) m_scan.keys += found;
        const bool good = at('{') ? inlineTable(found.path, depth) : value();
        if (!m_tableIsKnown) return good;
        if (good)
            m_scan.keys[index].valueEnd = m_position;
        else
            m_scan.keys.resize(index);
        return good;
    }

    bool inlineTable(const QStringList &path, int depth)
    {
        if (depth >= deepest) return false;
        skip('{');
        while (skipBlanks(true), !skip('}')) {
            if (!key(path, true, depth + 1)) return false;
            skipBlanks(true);
            if (!skip(',') && !at('}')) return false;
        }
        return true;
    }

    /// A value whose inside holds no keys for us.
    bool value()
    {
        int open = 0;
        const qsizetype start = m_position;
        while (!atEnd()) {
            if (at('"') || at('\'')) {
                if (!quoted()) return false;
            } else if (at('[') || (open > 0 && at('{'))) {
                ++open;
                ++m_position;
            } else if (open > 0 && (at(']') || at('}'))) {
                ++m_position;
                if (--open == 0) return true;
            } else if (open > 0) {
                if (at('#'))
                    skipLine();
                else
                    ++m_position;
            } else if (at(',') || at('}') || at(']') || at('#') || at('\n')) {
                break;
            } else {
                ++m_position;
            }
        }
        while (m_position > start && QByteArrayView(" \t\r").contains(m_text[m_position - 1]))
            --m_position;
        return open == 0 && m_position > start;
    }

    /// Over a text in quotes of one or three characters.
    bool quoted()
    {
        const char quote = m_text[m_position];
        const QByteArray three(3, quote);
        const bool multiLine = at(three.constData());
        m_position += multiLine ? 3 : 1;
        for (; !atEnd(); ++m_position) {
            if (quote == '"' && at('\\')) {
                ++m_position;
            } else if (multiLine && at(three.constData())) {
                m_position += 3;
                while (at(quote)) // up to two quotes may stand right before the closing ones
                    ++m_position;
                return true;
            } else if (!multiLine && at(quote)) {
                ++m_position;
                return true;
            } else if (!multiLine && at('\n')) {
                return false;
            }
        }
        return false;
    }

    std::optional<QStringList> keyPath()
    {
        QStringList path;
        do {
            skipBlanks(false);
            const auto part = keyPart();
            if (!part) return {};
            path += *part;
            skipBlanks(false);
        } while (skip('.'));
        return path;
    }

    std::optional<QString> keyPart()
    {
        const qsizetype start = m_position;
        if (at('"') || at('\'')) {
            if (!quoted()) return {};
            return QString::fromUtf8(m_text.sliced(start + 1, m_position - start - 2));
        }
        const auto isBare = [](char c) {
            return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '-';
        };
        while (!atEnd() && isBare(m_text[m_position]))
            ++m_position;
        if (m_position == start) return {};
        return QString::fromLatin1(m_text.sliced(start, m_position - start));
    }

    const QByteArray &m_text;
    qsizetype m_position;
    QStringList m_table;
    bool m_tableIsKnown = true; ///< false behind a header that could not be read
    TomlScan m_scan;
};
}

TomlScan scanToml(const QByteArray &text)
{
    return Scanner(text).scan();
}
