#pragma once

#include "base/ReferenceDate.h"
#include "library/GameSettings.h"
#include "library/GameStatus.h"

#include <QDateTime>
#include <QList>
#include <QMap>
#include <QString>
#include <optional>

/// One game of the library. Identity is `id`.
struct GameEntry {
    QString id; ///< UUID, upper case, 8-4-4-4-12; fixed at creation
    QString title;
    QString consoleID; ///< `Console::id`
    QString path; ///< absolute path of the game's file or folder
    ReferenceDate addedAt;
    std::optional<ReferenceDate> lastPlayed; ///< start of the last session
    std::optional<GameSettings> settings; ///< absent: defaults
    std::optional<QString> sourceFolder; ///< the scanned folder that the game came from
    std::optional<double> playSeconds;
    std::optional<qint64> sessionCount;
    std::optional<double> lastSessionSeconds;
    std::optional<QMap<QString, double>> daily; ///< seconds by day key
    std::optional<bool> favorite;
    std::optional<GameStatus> status;
    std::optional<ReferenceDate> stateSavedAt;
    std::optional<QString> statePath;
    UnknownKeys unknown;
    bool operator==(const GameEntry &) const = default;
};

QString newGameID();

/// The upper-case form of a UUID written 8-4-4-4-12; nothing for any other text.
std::optional<QString> gameID(QLatin1String text);
std::optional<QString> gameID(const QString &text);

/// Counts play time for the total and for the day of the moment at which it is counted. Nothing for 0 or less.
void addPlayTime(GameEntry &game, double seconds, const QDateTime &moment);
