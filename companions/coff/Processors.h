// The chips that an object can be made for, by the number that the assembler writes into it. Any thread.
#pragma once

#include <cstdint>
#include <string>

enum class ProcessorFamily { unknown, baseline, midRange, enhanced, pic18 };

struct Processor {
    std::string name;  // "PIC16F628A"; empty for a number that isn't known
    ProcessorFamily family = ProcessorFamily::unknown;
};

Processor FindProcessor(uint32_t number);                     // see CObjectFile::ProcessorNumber
Processor FindProcessorByName(const std::string &shortName);  // "16f628a", in any case
