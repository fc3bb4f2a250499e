#include "ChipFace.h"

#include <algorithm>
#include <cctype>

namespace {

std::string Capitals(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return text;
}

}  // namespace

CChipFace::CChipFace(CSimChip &chip, const CRegisterInfo *registers) : chip_(chip), registers_(registers) {
    for (uint32_t address = 0; address < chip.DataSize(); address++) {
        std::string name = Capitals(chip.RegisterName(address));
        if (!name.empty()) firstByName_.emplace(std::move(name), address);
    }
}

InstructionKind CChipFace::KindAt(uint32_t address) const {
    const uint32_t word = chip_.WordAt(address);
    bool call = false, back = false;
    switch (chip_.InstructionSet()) {
        case Core::pic18:
            call = (word & 0xFE00) == 0xEC00 || (word & 0xF800) == 0xD800 || word == 0x0014;  // CALL, RCALL, CALLW
            back = (word & 0xFFFC) == 0x0010 || (word & 0xFF00) == 0x0C00;                    // RETFIE, RETURN, RETLW
            break;
        case Core::enhanced:
            call = (word & 0x3800) == 0x2000 || word == 0x000A;
            back = word == 0x0008 || word == 0x0009 || (word & 0x3F00) == 0x3400;
            break;
        case Core::midRange:
            call = (word & 0x3800) == 0x2000;
            back = word == 0x0008 || word == 0x0009 || (word & 0x3C00) == 0x3400;
            break;
        case Core::baseline:
            call = (word & 0xF00) == 0x900;
            back = (word & 0xF00) == 0x800;
            break;
    }
    return call ? InstructionKind::call : back ? InstructionKind::comeBack : InstructionKind::other;
}

bool CChipFace::IsInterruptEntry(uint32_t address) const {
    switch (chip_.InstructionSet()) {
        case Core::pic18: return address == 0x08 || address == 0x18;
        case Core::baseline: return false;
        default: return address == 0x04;
    }
}

std::optional<uint32_t> CChipFace::FindRegister(const std::string &name) const {
    if (const ChipRegister *found = registers_ ? registers_->Find(name) : nullptr) return found->address;
    auto found = firstByName_.find(Capitals(name));
    if (found == firstByName_.end()) return std::nullopt;
    return found->second;
}
