#include "base/TextLines.h"

QList<TextLine> linesOf(const QByteArray &text)
{
    QList<TextLine> lines;
    qsizetype start = text.startsWith("\xef\xbb\xbf") ? 3 : 0;
    do {
        const qsizetype feed = text.indexOf('\n', start);
        const qsizetype next = feed < 0 ? text.size() : feed + 1;
        const bool carriageReturn = feed > start && text[feed - 1] == '\r';
        lines += TextLine{start, feed < 0 ? next : feed - (carriageReturn ? 1 : 0), next};
        start = next;
    } while (start < text.size());
    return lines;
}

QByteArray lineEndOf(const QByteArray &text)
{
    const qsizetype feed = text.indexOf('\n');
    return feed > 0 && text[feed - 1] == '\r' ? "\r\n" : "\n";
}

QByteArray withLineAfter(const QByteArray &text, const TextLine &line, const QByteArray &added)
{
    const bool ends = line.next > line.end;
    const QByteArray lineEnd = ends ? text.sliced(line.end, line.next - line.end) : lineEndOf(text);
    QByteArray result = text;
    return result.insert(line.next, ends ? added + lineEnd : lineEnd + added);
}

QByteArray withLineAtEnd(const QByteArray &text, const QByteArray &added)
{
    const TextLine last = linesOf(text).last();
    const QByteArray lineEnd = lineEndOf(text);
    if (last.start == text.size()) return text + added + lineEnd; // nothing, or nothing but a byte-order mark
    return text.endsWith('\n') ? text + added + lineEnd : text + lineEnd + added;
}
