#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

/// A stretch of a YAML text that holds the entries of one mapping.
struct YamlMapping {
    qsizetype start = 0;
    qsizetype end = 0; ///< behind its last line; in braces the place of the closing one
    bool inBraces = false;
};

/// One key of a mapping with its value.
struct YamlEntry {
    QString key;
    qsizetype start = 0; ///< of the key, or of its line when the mapping is written by indentation
    qsizetype end = 0; ///< behind the value; behind its last line
    qsizetype indentation = 0; ///< in front of the key; 0 in braces
    qsizetype valueStart = 0;
    qsizetype valueEnd = 0; ///< equal to `valueStart`: no value on the key's line
    enum class Value { scalar, nothing, mapping, other } kind = Value::nothing;
    YamlMapping mapping; ///< its entries, when it is one
};

/// The whole text as a mapping.
YamlMapping yamlRoot(const QByteArray &text);

/// The entries of a mapping, in order. `good` becomes false when something in it is not understood.
QList<YamlEntry> yamlEntries(const QByteArray &text, const YamlMapping &mapping, bool &good);
