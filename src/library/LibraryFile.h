#pragma once

#include "library/GameEntry.h"

#include <QByteArray>

class QIODevice;

/// Spare bytes that the reader wants behind the text. An array that has them in its capacity is read without a copy.
inline constexpr qsizetype libraryPadding = 64;

/// The games of a library file. Nothing when the file is not whole: broken JSON or UTF-8, a missing required key, a
/// value of the wrong type, an unknown status or quality, an `id` that is no UUID. When two games have the same `id`,
/// the later one gets a new one that follows from the first and its place, the same at every reading.
std::optional<QList<GameEntry>> decodeLibrary(QByteArray json);

/// Writes a library file; false when the device did not take all. Paths inside `velkoFolder` become relative to it, as
/// in the portable copy; when it is empty, all stay as they are. What is written always decodes: lone surrogates become
/// U+FFFD, numbers that are not finite become 0.
bool writeLibrary(QIODevice &file, const QList<GameEntry> &games, const QString &velkoFolder = {});

QByteArray encodeLibrary(const QList<GameEntry> &games); ///< the text of such a file

/// The path below the folder when it lies in it, else the path as it is.
QString portablePath(const QString &path, const QString &velkoFolder);
