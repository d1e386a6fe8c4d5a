#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <optional>

/// XML text, edited so that everything but one element's content stays byte for byte. Comments, CDATA and processing
/// instructions hold no elements; entities are never expanded.

/// The contents of the elements at a path, root first, as they stand in the text; those with elements inside are left
/// out.
QStringList xmlValues(const QByteArray &text, const QStringList &path);

/// `values` as in `editIni`, each already escaped. What is missing of the path is added at the end of the innermost
/// element that is there. Nothing when the text is not well formed, its root has another name, or the element has
/// others inside.
std::optional<QByteArray> editXml(const QByteArray &text, const QStringList &path, const QStringList &values);

/// Adds one more element at the path, beside those of the same name.
std::optional<QByteArray> withXmlElement(const QByteArray &text, const QStringList &path, const QString &value);

/// Removes those elements at the path whose content is `value`.
std::optional<QByteArray> withoutXmlElement(const QByteArray &text, const QStringList &path, const QString &value);

QString xmlOfText(const QString &text);
QString textOfXml(const QString &content); ///< the five entities of XML itself and numbers; others stay as they are
