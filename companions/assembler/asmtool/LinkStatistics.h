// The functions of a linked program: who calls whom, and what each takes of the chip's memory.
//
// docs/assembler_statistics.md tells what counts as a function and what as a call.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

struct LinkedFunction {
    std::string name;  // the label, or the section's name
    std::string file;  // native path as the assembler was given it; empty for what the linker has made
    int line = 0;
    uint32_t ram = 0;          // bytes
    uint32_t rom = 0;          // words, or bytes on chips that count them
    bool isData = false;       // nothing in it is an instruction
    std::vector<int> callees;  // indexes, each once, in the order of the places that call
};

struct LinkStatistics {
    std::vector<LinkedFunction> functions;  // by address
    uint64_t commonRam = 0;                 // bytes that no single function has for itself
};

// `image`: native path of the linked ".cof". `files`: native paths of the objects and libraries of the link.
// `programSize`: the chip's program memory in the units of `rom`, 0 when it isn't known. Reads the sources too, by the
// names that the assembler was given. Empty for what is no image, and for one that claims more memory than 31 bits
// count.
std::optional<LinkStatistics> CollectLinkStatistics(const std::string &image, const std::vector<std::string> &files,
                                                    uint32_t programSize);
