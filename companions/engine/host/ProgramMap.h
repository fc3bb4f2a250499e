// What a run needs to know of the program in the chip; see CImage for what each call promises.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "image/Image.h"

class IProgramMap {
public:
    virtual ~IProgramMap() = default;

    virtual const ImageSymbol *FindSymbol(const std::string &name) const = 0;
    virtual const std::vector<ImageFunction> &Functions() const = 0;
    virtual std::optional<ImagePlace> PlaceAt(uint32_t address) const = 0;
    virtual bool IsLineStart(uint32_t address) const = 0;
    virtual std::vector<uint32_t> AddressesOf(const std::string &file, int line) const = 0;
};
