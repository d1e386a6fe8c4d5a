#include "base/XmlText.h"

#include "base/TextLines.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {
struct Element {
    QByteArray name;
    qsizetype start = 0; ///< of its "<"
    qsizetype contentStart = 0;
    qsizetype contentEnd = 0; ///< of its "</"
    qsizetype end = 0;
    bool closesItself = false;
    bool hasElements = false;
};

/// Walks through all elements and keeps those that lie on one path.
class Outline {
public:
    Outline(const QByteArray &text, const QStringList &path) : m_text(text)
    {
        for (const QString &name : path)
            m_path += name.toUtf8();
        m_onPath.resize(path.size());
        while (good && m_position < m_text.size())
            step();
        good = good && m_open.isEmpty();
    }

    const QList<Element> &at(qsizetype depth) const { return m_onPath[depth]; }
    bool good = true;

private:
    bool at(const char *word) const { return QByteArrayView(m_text).sliced(m_position).startsWith(word); }
    void skipTo(const char *word)
    {
        const qsizetype found = m_text.indexOf(word, m_position);
        good = found >= 0;
        m_position = good ? found + qsizetype(qstrlen(word)) : m_text.size();
    }

    void step()
    {
        m_position = m_text.indexOf('<', m_position);
        if (m_position < 0) m_position = m_text.size();
        if (m_position == m_text.size()) return;
        if (at("<!--")) return m_position += 4, skipTo("-->");
        if (at("<![CDATA[")) return skipTo("]]>");
        if (at("<?")) return skipTo("?>");
        if (at("<!")) return skipDeclaration();
        at("</") ? closing() : opening();
    }

    /// A document type, which may define entities and hold ">" in texts and brackets.
    void skipDeclaration()
    {
        int brackets = 0;
        char quote = '\0';
        for (; m_position < m_text.size(); ++m_position) {
            const char c = m_text[m_position];
            if (quote) {
                if (c == quote) quote = '\0';
            } else if (c == '"' || c == '\'') {
                quote = c;
            } else if (c == '[') {
                ++brackets;
            } else if (c == ']') {
                --brackets;
            } else if (c == '>' && brackets <= 0) {
                ++m_position;
                return;
            }
        }
        good = false;
    }

    QByteArray name(qsizetype start) const
    {
        qsizetype end = start;
        while (end < m_text.size() && !QByteArrayView(" \t\r\n/>").contains(m_text[end]))
            ++end;
        return m_text.sliced(start, end - start);
    }

    void opening()
    {
        Element element;
        element.start = m_position;
        element.name = name(m_position + 1);
        char quote = '\0';
        for (; m_position < m_text.size(); ++m_position) {
            const char c = m_text[m_position];
            if (quote) {
                if (c == quote) quote = '\0';
            } else if (c == '"' || c == '\'') {
                quote = c;
            } else if (c == '>') {
                break;
            }
        }
        good = m_position < m_text.size() && !element.name.isEmpty();
        if (!good) return;
        element.closesItself = m_text[m_position - 1] == '/';
        element.contentStart = element.contentEnd = element.end = ++m_position;
        if (!m_open.isEmpty()) m_open.last().hasElements = true;
        if (m_open.size() == m_matching && m_matching < m_path.size() && m_path[m_matching] == element.name) {
            if (element.closesItself) return m_onPath[m_matching].append(element);
            ++m_matching;
        }
        if (!element.closesItself) m_open += element;
    }

    void closing()
    {
        good = !m_open.isEmpty() && m_open.last().name == name(m_position + 2);
        if (!good) return;
        Element element = m_open.takeLast();
        element.contentEnd = m_position;
        skipTo(">");
        element.end = m_position;
        if (m_open.size() < m_matching) {
            m_matching = m_open.size();
            m_onPath[m_matching] += element;
        }
    }

    const QByteArray &m_text;
    qsizetype m_position = 0;
    QByteArrayList m_path;
    qsizetype m_matching = 0; ///< how many open elements lie on the path
    QList<Element> m_open;
    QList<QList<Element>> m_onPath; ///< by depth, in the order in which they end
};

QByteArray contentOf(const QByteArray &text, const Element &element)
{
    return text.sliced(element.contentStart, element.contentEnd - element.contentStart);
}

void setContent(QByteArray &text, const Element &element, const QByteArray &content)
{
    if (!element.closesItself) {
        text.replace(element.contentStart, element.contentEnd - element.contentStart, content);
        return;
    }
    QByteArray opening = text.sliced(element.start, element.end - element.start - 2);
    while (opening.endsWith(' '))
        opening.chop(1);
    text.replace(element.start, element.end - element.start, opening + '>' + content + "</" + element.name + '>');
}

/// The blanks before the first sign of the line.
QByteArray indentationAt(const QByteArray &text, qsizetype position)
{
    const qsizetype start = position > 0 ? text.lastIndexOf('\n', position - 1) + 1 : 0;
    qsizetype end = start;
    while (end < position && (text[end] == ' ' || text[end] == '\t'))
        ++end;
    return text.sliced(start, end - start);
}

/// Adds elements within each other as the last child of `parent`.
QByteArray withChild(QByteArray text, const Element &parent, const QByteArrayList &names, const QByteArray &value)
{
    const QByteArray content = contentOf(text, parent);
    const QByteArray lineEnd = lineEndOf(text);
    const QByteArray outer = indentationAt(text, parent.start);
    const qsizetype first = content.indexOf('<');
    const QByteArray inner =
        parent.hasElements && first >= 0 ? indentationAt(text, parent.contentStart + first) : outer + "    ";
    QByteArray added = '<' + names.last() + '>' + value + "</" + names.last() + '>';
    for (qsizetype i = names.size() - 2; i >= 0; --i) {
        const QByteArray indentation = inner + QByteArray(i * 4, ' ');
        added = '<' + names[i] + '>' + lineEnd + indentation + "    " + added + lineEnd + indentation + "</" + names[i]
            + '>';
    }
    QByteArrayView kept(content);
    while (!kept.isEmpty() && QByteArrayView(" \t\r\n").contains(kept.back()))
        kept.chop(1);
    setContent(text, parent, kept.toByteArray() + lineEnd + inner + added + lineEnd + outer);
    return text;
}

std::optional<QByteArray> withMissing(const QByteArray &text, const Outline &outline, const QStringList &path,
                                      const QByteArray &value)
{
    for (qsizetype depth = path.size() - 2; depth >= 0; --depth) {
        if (outline.at(depth).isEmpty()) continue;
        QByteArrayList names;
        for (const QString &name : path.sliced(depth + 1))
            names += name.toUtf8();
        return withChild(text, outline.at(depth).first(), names, value);
    }
    return {};
}

/// With the line it stands on, when nothing else does.
void remove(QByteArray &text, const Element &element)
{
    const qsizetype start = element.start - indentationAt(text, element.start).size();
    const bool alone = start == 0 || text[start - 1] == '\n';
    qsizetype end = element.end;
    if (alone && text.sliced(end).startsWith("\r\n"))
        end += 2;
    else if (alone && text.sliced(end).startsWith('\n'))
        end += 1;
    const bool wholeLine = alone && end > element.end;
    text.remove(wholeLine ? start : element.start, end - (wholeLine ? start : element.start));
}
}

QStringList xmlValues(const QByteArray &text, const QStringList &path)
{
    QStringList values;
    const Outline outline(text, path);
    for (const Element &element : outline.at(path.size() - 1)) {
        if (!element.hasElements) values += QString::fromUtf8(contentOf(text, element));
    }
    return values;
}

std::optional<QByteArray> editXml(const QByteArray &text, const QStringList &path, const QStringList &values)
{
    const Outline outline(text, path);
    if (!outline.good) return {};
    const QList<Element> &places = outline.at(path.size() - 1);
    if (places.isEmpty()) return values.isEmpty() ? text : withMissing(text, outline, path, values.last().toUtf8());
    QByteArray edited = text;
    for (qsizetype i = places.size() - 1; i >= 0; --i) {
        if (places[i].hasElements) return {};
        if (values.isEmpty())
            remove(edited, places[i]);
        else
            setContent(edited, places[i], (values.size() == places.size() ? values[i] : values.last()).toUtf8());
    }
    return edited;
}

std::optional<QByteArray> withXmlElement(const QByteArray &text, const QStringList &path, const QString &value)
{
    const Outline outline(text, path);
    return outline.good ? withMissing(text, outline, path, value.toUtf8()) : std::nullopt;
}

std::optional<QByteArray> withoutXmlElement(const QByteArray &text, const QStringList &path, const QString &value)
{
    const Outline outline(text, path);
    if (!outline.good) return {};
    QByteArray edited = text;
    const QList<Element> &places = outline.at(path.size() - 1);
    for (qsizetype i = places.size() - 1; i >= 0; --i) {
        if (!places[i].hasElements && contentOf(text, places[i]) == value.toUtf8()) remove(edited, places[i]);
    }
    return edited;
}

QString xmlOfText(const QString &text)
{
    QString escaped = text;
    return escaped.replace(u'&', u"&amp;"_s).replace(u'<', u"&lt;"_s).replace(u'>', u"&gt;"_s);
}

QString textOfXml(const QString &content)
{
    static const QRegularExpression reference(u"&(?:(amp|lt|gt|quot|apos)|#(\\d{1,7})|#x([0-9A-Fa-f]{1,6}));"_s);
    QString text;
    qsizetype last = 0;
    for (auto matches = reference.globalMatch(content); matches.hasNext();) {
        const auto match = matches.next();
        text += QStringView(content).sliced(last, match.capturedStart() - last);
        last = match.capturedEnd();
        const QString name = match.captured(1);
        const char32_t number =
            match.captured(2).isEmpty() ? match.captured(3).toUInt(nullptr, 16) : match.captured(2).toUInt();
        const char32_t code = name == "amp"_L1 ? U'&'
            : name == "lt"_L1                  ? U'<'
            : name == "gt"_L1                  ? U'>'
            : name == "quot"_L1                ? U'"'
            : name == "apos"_L1                ? U'\''
                                               : number;
        text += QString::fromUcs4(&code, 1);
    }
    return text += QStringView(content).sliced(last);
}
