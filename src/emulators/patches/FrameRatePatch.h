#pragma once

#include <QString>

/// Whether a patch of this name raises a game to 60 frames a second.
bool is60FpsPatch(const QString &name);

/// The vblank rate that an RPCS3 patch asks for in its notes: 60, 120 or 240.
int vblankRateOf(const QString &notes);
