// Which byte of data memory an instruction is about to write.
#pragma once

#include <cstdint>
#include <optional>

#include "chip/SimChip.h"

enum class Core { midRange, enhanced, pic18 };

// Of the instruction at the program counter, by the state that the chip is in before it. Nothing for one that writes no
// byte by its address: what an instruction leaves in W, in STATUS, or in a product is no write here.
std::optional<uint32_t> ByteToBeWritten(const CSimChip &chip, Core core);
