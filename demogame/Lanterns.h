#pragma once

#include "Assembler.h"

#include <string>
#include <vector>

/// The demo game: an evening over a lake. The directions move a lantern, A lights another one that rises into the sky.
struct LanternsGame {
    Bytes rom; ///< the whole cartridge; the same at every build
    std::vector<std::string> problems; ///< empty when everything fits together
};
LanternsGame buildLanterns();
