#pragma once

#include "library/QualityPreset.h"

#include <QByteArray>
#include <QList>
#include <QPair>
#include <optional>

/// Keys of other versions with their JSON text, written back as they were.
using UnknownKeys = QList<QPair<QString, QByteArray>>;

/// What one game asks of its emulator; stored inside the game's entry.
struct GameSettings {
    int resolutionScale = 1; ///< multiples of the console's own resolution, from 1
    bool fps60 = false; ///< a new one takes it from the preference `default60FPS`; also "Force 60 FPS" of a native game
    bool widescreen = false;
    bool showFPS = false;
    std::optional<bool> fullScreen; ///< absent: start full screen
    std::optional<QualityPreset> quality; ///< absent: the user's default preset
    UnknownKeys unknown;
    bool operator==(const GameSettings &) const = default;
};
