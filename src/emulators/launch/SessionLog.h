#pragma once

#include <QDateTime>
#include <QString>

/// Where the program of a new session writes what it prints: "sessions/mgba-2026-03-14 20.00.00.log" in the log folder.
/// Makes the folder and the file, and keeps the 19 newest of the older logs. Empty when the file cannot be made. Works
/// on the disk: call it in the background.
QString newSessionLog(const QString &logFolder, const QString &engine, const QDateTime &now);
