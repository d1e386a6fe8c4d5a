#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <optional>

/// YAML text made of mappings, edited so that everything but the value stays byte for byte. Mappings may be written by
/// indentation or in braces; keys may be quoted. What stands in sequences, in texts of several lines or behind an alias
/// is left alone.

/// The values at a path of keys, outermost first: one for each place, as they stand in the text. A path that ends in a
/// mapping or sequence has none.
QStringList yamlValues(const QByteArray &text, const QStringList &path);

/// `values` as in `editIni`, each as YAML. What is missing of the path is added at the end of the innermost mapping
/// that is there. Nothing when the text is not YAML that this can edit, or has something other than a mapping on the
/// way. Mappings that lose their last entry are removed with it.
std::optional<QByteArray> editYaml(const QByteArray &text, const QStringList &path, const QStringList &values);

/// The scalar as YAML: plain where that is safe, else in quotes.
QString yamlOfText(const QString &text);
