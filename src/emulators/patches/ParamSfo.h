#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

/// A text of a PlayStation param.sfo file, such as its "TITLE_ID". Nothing when the key is missing, is not a text, or
/// the file is damaged.
std::optional<QString> sfoText(const QByteArray &file, const QByteArray &key);
