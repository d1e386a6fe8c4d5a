#pragma once

#include "catalog/Console.h"

/// Whether a console's games can be played here and now.
enum class EngineStatus {
    unknown, ///< nobody has looked yet for its emulators
    ready,
    emulatorNeeded,
    unavailable,
    nativeBuild,
    nativeApps,
};

/// `known`: a look for emulators is over; `installed`: it found one that plays this console.
EngineStatus engineStatus(const Console &console, bool known, bool installed);
QString displayText(EngineStatus status); ///< in English; empty for `unknown`
QString dotName(EngineStatus status); ///< colour role of the dot beside the text: "ok", "warn", "info" or "off"
