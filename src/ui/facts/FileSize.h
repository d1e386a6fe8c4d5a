#pragma once

#include <QString>
#include <optional>

/// The bytes of a file, or of all files below a folder, links not followed and at most 100,000 files looked at. Nothing
/// when it does not exist. May take a while: call it in the background.
std::optional<qint64> bytesBelow(const QString &path);
