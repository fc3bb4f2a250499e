// What the names of a debug run stand for: symbols of the image, "$NAME" a register, which goes without "$" where the
// image has no such symbol, "$32" a byte of data memory by its decimal address, "$pc" and "$W".
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "Chip.h"
#include "ProgramMap.h"
#include "expression/Expression.h"

class CNames {
public:
    // Both must outlive this.
    CNames(IChip &chip, const IProgramMap &map);
    CNames(const CNames &) = delete;

    // A symbol of data memory gives its bytes as a number, the lowest first; of more than eight bytes, an array's, the
    // first one. A symbol of program memory gives its address.
    std::optional<int64_t> Value(const std::string &name) const;
    std::optional<int64_t> Address(const std::string &name) const;

    // The bytes of data memory that the name stands for; empty when it stands for none.
    std::vector<uint32_t> Bytes(const std::string &name) const;

    // False, with words in `error`, when the name stands for no memory, or the chip takes no value there.
    bool Set(const std::string &name, int64_t value, std::string &error);

    std::string WhyNoBytes(const std::string &name) const;  // words for a name whose Bytes are empty

    // Nothing, with words in `error`, when it has no value now.
    std::optional<int64_t> Evaluate(const CExpression &expression, std::string &error) const;

    // A name of the expression that stands for nothing; empty when an evaluation met none.
    std::string UnknownName(const CExpression &expression) const;

private:
    std::optional<uint8_t> ByteAt(uint32_t address) const { return chip_.ReadRegister(address); }

    IChip &chip_;
    const IProgramMap &map_;
    NameLookup valueOf_, addressOf_;  // for the expressions, made once
    std::function<std::optional<uint8_t>(uint32_t)> byteAt_;
};
