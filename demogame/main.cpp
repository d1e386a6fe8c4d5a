#include "Lanterns.h"

#include <cstdio>
#include <filesystem>
#include <fstream>

/// demo-game-writer FILE: writes the demo game's cartridge.
int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s FILE\n", argv[0]);
        return 2;
    }
    const LanternsGame game = buildLanterns();
    for (const std::string &problem : game.problems)
        std::fprintf(stderr, "%s\n", problem.c_str());
    if (!game.problems.empty()) return 1;

    const std::filesystem::path file = argv[1];
    std::error_code ignored; // a folder that cannot be made shows in the writing
    std::filesystem::create_directories(file.parent_path(), ignored);
    std::ofstream out(file, std::ios::binary);
    out.write(reinterpret_cast<const char *>(game.rom.data()), std::streamsize(game.rom.size()));
    out.close();
    if (!out) std::fprintf(stderr, "cannot write %s\n", argv[1]);
    return out ? 0 : 1;
}
