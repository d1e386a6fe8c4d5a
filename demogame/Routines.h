#pragma once

#include "Assembler.h"

// Each adds a few routines of the game's program; the names of the routines are labels.

/// "load progress", "save progress", "count frame", "show counters".
void addProgress(Assembler &p);

/// "read keys", "move own lantern", "light lantern", "draw own lantern", "move lanterns", "twinkle".
void addMovement(Assembler &p);
