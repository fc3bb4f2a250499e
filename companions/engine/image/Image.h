// A built program as a debug run needs it, read from the linker's ".cof": what goes into the chip, its symbols, and which
// source line stands at which address.
//
// Addresses are the chip's own: words, on PIC18 bytes. Files are in the Windows form, full. What is damaged in a file is
// left out; a file that is none is refused.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "chip/SimChip.h"

struct ImageSymbol {
    std::string name;
    uint32_t address = 0;
    bool inProgram = false;  // else in data memory
    uint32_t size = 1;       // bytes of data up to the next symbol or the section's end; 1 in program memory
};

struct ImageFunction {
    std::string name;
    uint32_t begin = 0, end = 0;  // of program memory
};

struct ImagePlace {
    std::string file;
    int line = 0;  // from 1
};

class CImage {
public:
    // Null, with the reason in `error`: no such file, none of this kind, cut short, too large.
    static std::unique_ptr<CImage> Load(const std::string &path, std::string &error);

    const std::string &Chip() const;  // "PIC16F628A"; empty when the file doesn't tell
    const ChipProgram &Program() const;

    const ImageSymbol *FindSymbol(const std::string &name) const;
    const ImageSymbol *SymbolAt(uint32_t address, bool inProgram) const;
    const std::vector<ImageFunction> &Functions() const;  // by address, without overlap
    const ImageFunction *FunctionAt(uint32_t address) const;

    // The place whose code the address belongs to: that of the nearest line record at or before it in its section.
    std::optional<ImagePlace> PlaceAt(uint32_t address) const;
    bool IsLineStart(uint32_t address) const;  // the first address of a line record

    // The first line from `line` on that has code, and its lowest address. File names compare by NamesOneFile, or by
    // their bare names when only one file of the image has that name.
    struct LineStart {
        uint32_t address;
        int line;
    };
    std::optional<LineStart> FindLine(const std::string &file, int line) const;
    std::vector<uint32_t> AddressesOf(const std::string &file, int line) const;  // each place where the line's code begins

private:
    struct Data;
    explicit CImage(std::unique_ptr<Data> data);
    std::unique_ptr<Data> data_;
};
