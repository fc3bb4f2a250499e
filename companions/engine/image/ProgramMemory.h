// Where a family of chips has what in its program's address space, and an image's sections taken apart by it.
#pragma once

#include "chip/SimChip.h"
#include "coff/ObjectFile.h"
#include "coff/Processors.h"

struct MemoryLayout {
    ProcessorFamily family;
    uint32_t programEnd;   // from here on, up to the EEPROM: identification and configuration
    uint32_t eepromBegin;  // bytes, or words with a byte each
};

// Of the family that the file names, or that its sections look like.
const MemoryLayout &LayoutOf(const CObjectFile &file, ProcessorFamily family);

// By address, each address once: of two values the first counts.
ChipProgram ReadProgram(const CObjectFile &file, const MemoryLayout &layout);
