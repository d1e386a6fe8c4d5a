#pragma once

#include "Assembler.h"

#include <string_view>

/// Where a program begins: what stands before it belongs to the processor and to the header.
constexpr std::uint16_t programStart = 0x150;

/// A cartridge of 32 KiB with an MBC1 and 8 KiB of memory on a battery, for grey and colour machines. `program` stands
/// from `programStart` on and starts with its first byte. Nothing when it does not fit.
Bytes cartridge(std::string_view title, const Bytes &program);
