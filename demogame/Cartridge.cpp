#include "Cartridge.h"

#include <algorithm>

namespace {

constexpr std::size_t size = 0x8000;
constexpr std::uint8_t returnFromInterrupt = 0xD9;

void put(Bytes &rom, std::size_t address, std::initializer_list<std::uint8_t> bytes)
{
    std::ranges::copy(bytes, rom.begin() + std::ptrdiff_t(address));
}

std::uint8_t headerChecksum(const Bytes &rom)
{
    std::uint8_t sum = 0;
    for (std::size_t address = 0x134; address <= 0x14C; ++address)
        sum = std::uint8_t(sum - rom[address] - 1);
    return sum;
}

}

Bytes cartridge(std::string_view title, const Bytes &program)
{
    if (program.size() > size - programStart) return {};
    Bytes rom(size, 0);
    for (std::size_t vector = 0x40; vector <= 0x60; vector += 8)
        put(rom, vector, {returnFromInterrupt});
    put(rom, 0x100, {0x00, 0xC3, programStart & 0xFF, programStart >> 8}); // nop, jp programStart
    // mGBA takes a file for a Game Boy cartridge by the first four bytes of the picture area; the rest stays empty,
    // since emulators start without the machine's own start-up program, which alone would look at it.
    put(rom, 0x104, {0xCE, 0xED, 0x66, 0x66});
    std::ranges::copy(title.substr(0, 15), rom.begin() + 0x134);
    rom[0x143] = 0x80; // uses colours where there are any
    rom[0x147] = 0x03; // MBC1, memory, battery
    rom[0x149] = 0x02; // 8 KiB of memory
    rom[0x14A] = 0x01;
    std::ranges::copy(program, rom.begin() + programStart);
    rom[0x14D] = headerChecksum(rom);
    std::uint16_t sum = 0;
    for (const std::uint8_t byte : rom)
        sum = std::uint16_t(sum + byte);
    put(rom, 0x14E, {std::uint8_t(sum >> 8), std::uint8_t(sum)});
    return rom;
}
