#pragma once

#include <QByteArray>
#include <QList>

/// One line of a text, as places in it.
struct TextLine {
    qsizetype start = 0; ///< of the line; behind the byte-order mark in the first one
    qsizetype end = 0; ///< behind its last character, before its line end
    qsizetype next = 0; ///< start of the next line; equal to `end` when the text ends without a line end
};

/// At least one line, which may be empty; a line end at the end of the text begins no further line.
QList<TextLine> linesOf(const QByteArray &text);

/// The line end that new lines get: that of the text's first line, else a line feed.
QByteArray lineEndOf(const QByteArray &text);

/// `text` with a line added behind `line`, with that line's own kind of end. A text that does not end in a line end
/// stays that way.
QByteArray withLineAfter(const QByteArray &text, const TextLine &line, const QByteArray &added);

/// `text` with a line added at its end.
QByteArray withLineAtEnd(const QByteArray &text, const QByteArray &added);
