#pragma once

#include <QString>
#include <optional>

/// What the user says about a game. The stored text is the English title.
enum class GameStatus { playing, backlog, completed };

QString title(GameStatus status); ///< "Playing", "To finish", "Completed"
std::optional<GameStatus> gameStatusTitled(const QString &title);
