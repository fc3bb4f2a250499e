// The symbols of a linked program, by name and by address.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "coff/LinkedImage.h"
#include "image/Image.h"

class CImageSymbols {
public:
    explicit CImageSymbols(const CLinkedImage &image);

    // Adds the variables of the symbol table in the program's listing whose names the image doesn't have: those that
    // the sources place by "cblock" or an equate. They count as one byte.
    void AddListed(std::string_view listing);

    const ImageSymbol *Find(const std::string &name) const;
    const ImageSymbol *At(uint32_t address, bool inProgram) const;

private:
    void Add(ImageSymbol symbol, bool isGlobal);

    struct Entry {
        ImageSymbol symbol;
        bool isGlobal;
    };
    std::vector<Entry> entries_;
    std::unordered_map<std::string, size_t> byName_;
    std::unordered_map<uint32_t, size_t> byAddress_[2];  // in data memory, in program memory
};
