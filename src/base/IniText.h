#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

/// One key and the text that stands behind it.
struct KeyValue {
    QString key;
    QString value;
};

/// INI text as emulators write it: sections in square brackets, lines of key, "=" and value. A section that stands
/// twice counts as one, as it does for its readers. The section "" is what stands before the first one. Everything that
/// an edit is not about stays byte for byte: line ends, byte-order mark, comments, order.

/// The key's values, one for each place where it stands, without the blanks around them.
QStringList iniValues(const QByteArray &text, const QString &section, const QString &key);

/// Sets keys at every place where they stand. A missing key is added after the section's last line that is not blank, a
/// missing section at the end of the text, both in the order given.
QByteArray editIni(const QByteArray &text, const QString &section, const QList<KeyValue> &keys,
                   const QString &separator = QStringLiteral(" = "));

/// Sets one key: each place gets its own value when there are as many values as places, else all get the last one.
/// Without values its lines are removed.
QByteArray editIni(const QByteArray &text, const QString &section, const QString &key, const QStringList &values,
                   const QString &separator = QStringLiteral(" = "));
