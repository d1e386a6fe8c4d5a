#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

/// TOML text, edited so that everything but the value stays byte for byte. Keys count wherever TOML lets them stand: in
/// a table of their own, dotted, in an inline table. Texts, comments and arrays hold no keys.

/// One key with its value as it stands in the text.
struct TomlEntry {
    QStringList path; ///< of the table and the key, outermost first
    QByteArray value;
};

/// All keys, in order. What cannot be read is left out.
QList<TomlEntry> tomlEntries(const QByteArray &text);
QStringList tomlValues(const QByteArray &text, const QStringList &table, const QString &key);

/// `values` as in `editIni`, each as TOML. Nothing when the text is not TOML that this can edit; then the program that
/// owns it would not read it either.
std::optional<QByteArray> editToml(const QByteArray &text, const QStringList &table, const QString &key,
                                   const QStringList &values);

/// The text that a value stands for; nothing for a value of another type.
std::optional<QString> textOfToml(const QByteArray &value);
QString tomlOfText(const QString &text);
