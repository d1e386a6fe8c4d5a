#pragma once

#include "library/GameEntry.h"

#include <optional>

/// Which games the sidebar's selected row admits. Kept as text in the preference `librarySidebarFilter`: "all",
/// "favorites", "playing", "backlog", "completed", or "console:" and an identifier.
struct GameFilter {
    bool favorites = false;
    std::optional<GameStatus> status;
    QString consoleID; ///< empty: every console
    bool operator==(const GameFilter &) const = default;
};

GameFilter gameFilterFromText(const QString &text); ///< everything for a text that is none of these
QString toText(const GameFilter &filter);
bool admits(const GameFilter &filter, const GameEntry &game);
