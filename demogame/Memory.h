#pragma once

#include "Assembler.h"

/// Where the machine's own parts are reached.
namespace hardware {
inline constexpr At keys{0xFF00}, interruptsWaiting{0xFF0F}, interruptsWanted{0xFFFF};
inline constexpr At toneSweep{0xFF10}, toneDuty{0xFF11}, toneEnvelope{0xFF12}, toneLow{0xFF13}, toneHigh{0xFF14};
inline constexpr At volume{0xFF24}, speakers{0xFF25}, sound{0xFF26};
inline constexpr At display{0xFF40}, displayState{0xFF41}, scrollY{0xFF42}, scrollX{0xFF43}, line{0xFF44},
    copyObjects{0xFF46};
inline constexpr At greys{0xFF47}, objectGreys{0xFF48}, objectGreys1{0xFF49}, windowY{0xFF4A}, windowX{0xFF4B};
inline constexpr At videoBank{0xFF4F}, colourIndex{0xFF68}, colour{0xFF69}, objectColourIndex{0xFF6A},
    objectColour{0xFF6B};
inline constexpr At cartridgeMemorySwitch{0x0000};
inline constexpr int tiles = 0x8000, map = 0x9800, windowMap = 0x9C00, cartridgeMemory = 0xA000;
}

// Places on screen are those of the video chip's object table: 8 more than the pixel across, 16 more than the pixel
// down.
inline constexpr int objects = 0xC000, variables = 0xC0A0, lanterns = 0xC100, copyRoutine = 0xFF80;
inline constexpr int lanternCount = 10; // each: lit or not, x, y, fraction of y
inline constexpr At isColour{variables}, held{variables + 1}, pressed{variables + 2}, ownX{variables + 3},
    ownY{variables + 4};
inline constexpr At nextLantern{variables + 5}, objectX{variables + 6};

// What the battery keeps, in this order: "VLKO", version, evenings (two decimal digits), lanterns lit (four decimal
// digits), frames played (32 bits, low byte first).
inline constexpr int progress = 0xC0B0, progressSize = 12, progressMark = 5;
inline constexpr At evenings{progress + 5}, litHigh{progress + 6}, litLow{progress + 7}, frame{progress + 8};

inline constexpr int keyRight = 4, keyLeft = 5, keyUp = 6, keyDown = 7, keyA = 0;
inline constexpr int hidden = 0;
