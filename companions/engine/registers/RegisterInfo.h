// The special function registers of a chip: names, addresses, groups and bits, out of the header that the assembler has
// for the chip.
//
// The headers are those of the GNU PIC utilities, in the directory that GPUTILS_HEADER_PATH names or that they are
// installed in. Addresses are the chip's own, on PIC18 the full ones (F80 to FFF and below). Nothing changes once it is
// made: for any thread.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "ChipHeader.h"
#include "readers/ResultText.h"

struct ChipRegister {
    uint32_t address = 0;
    std::string name;                  // the one by which it is shown: of the single byte ("TMR1L"), not of the pair
    std::vector<std::string> aliases;  // its other names ("TMR1", "DDRA")
    std::vector<NamedBit> bits;        // each bit at most once, the lowest first
    size_t group = 0;                  // in RegisterGroupNames
};

class CRegisterInfo {
public:
    // Null, with words for the user in `error`, when there is no header of the chip. `type`: "PIC16F628A", "16f628a"...
    static std::unique_ptr<CRegisterInfo> Load(const std::string &type, std::string &error);

    explicit CRegisterInfo(const ChipHeader &header);

    const std::vector<ChipRegister> &Registers() const { return registers_; }  // by address

    const ChipRegister *Find(std::string_view name) const;  // or alias, in any case; null for none

    // The register that is reached at `address`: those of the core are there in each bank. Null for none.
    const ChipRegister *At(uint32_t address) const;

    // For DbgEvaluate("_registers"): groups and registers by name, with their values. Below 4,095 bytes.
    // `working`: the value of W, which takes part where it has no address.
    std::string Text(const std::function<std::optional<uint8_t>(uint32_t address)> &valueAt,
                     std::optional<uint8_t> working = {}) const;

    // For DbgGetRegBits; below 255 bytes. Empty for a register without named bits.
    static std::string BitText(const ChipRegister &shown) { return BitNamesText(shown.bits); }

private:
    enum class Family { baseline, midRange, enhanced, other };

    const ChipRegister *Exactly(uint32_t address) const;
    Family FindFamily() const;

    std::vector<ChipRegister> registers_;
    std::vector<size_t> shown_;                       // indices, by group and name
    std::unordered_map<std::string, size_t> byName_;  // in capitals, aliases too
    std::vector<std::pair<uint32_t, uint32_t>> noMemory_;
    uint32_t lastAddress_;
    Family family_;
};
