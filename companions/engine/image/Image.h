// A built program as a debug run needs it, read from the linker's ".cof": what goes into the chip, its symbols, and
// which source line stands at which address.
//
// Addresses are the chip's own: words, on PIC18 bytes. Files are in the Windows form, full; where the image names one
// relative to a folder, it is looked for in the folder above the image's, in the image's and in the current one. What
// is damaged in a file is left out; a file that is none is refused. The listing beside the image adds variables that
// only it knows. All of it is read by Load; any thread then.
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
    static std::unique_ptr<CImage> FromBytes(std::string bytes, const std::string &path, std::string &error);
    ~CImage();

    const std::string &Chip() const;  // "PIC16F628A"; empty when the file doesn't tell
    const ChipProgram &Program() const;

    // Of several symbols of a name, or at an address, a global one goes before those of single sources. A name that
    // there is none of is looked for with the underscore, too, that compilers put before names.
    const ImageSymbol *FindSymbol(const std::string &name) const;
    const ImageSymbol *SymbolAt(uint32_t address, bool inProgram) const;  // one that begins there

    // By address, without overlap. A function begins where an object's part of a section does, at a global label, at a
    // label that is called or that another function jumps to, and at a labelled vector; jumps within it don't split it.
    const std::vector<ImageFunction> &Functions() const;
    const ImageFunction *FunctionAt(uint32_t address) const;

    // The place whose code the address belongs to: that of the nearest line record at or before it in its object's part
    // of a section.
    std::optional<ImagePlace> PlaceAt(uint32_t address) const;
    bool IsLineStart(uint32_t address) const;  // the first address of a piece of a line's code

    // The first line from `line` on that has code, and its lowest address. File names compare by NamesOneFile, or by
    // their bare names when only one file of the image has that name.
    struct LineStart {
        uint32_t address;
        int line;
    };
    std::optional<LineStart> FindLine(const std::string &file, int line) const;
    std::vector<uint32_t> AddressesOf(const std::string &file,
                                      int line) const;  // each place where the line's code begins

private:
    struct Data;
    explicit CImage(std::unique_ptr<Data> data);
    std::unique_ptr<Data> data_;
};
