// The symbols of a linked program, by name and by address.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "coff/LinkedImage.h"
#include "image/Image.h"

class CImageSymbols {
public:
    explicit CImageSymbols(const CLinkedImage &image);

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
