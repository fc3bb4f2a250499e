#include "ChipFace.h"

#include <algorithm>
#include <cctype>

namespace {

constexpr uint32_t kBsrPlace = 0x08;      // of enhanced mid-range chips
constexpr uint32_t kCommonRam = 0x70;     // from here on a bank's bytes are the same in all, on mid-range chips
constexpr uint32_t kBankMask = 0x7F;

std::string Capitals(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return text;
}

}  // namespace

CChipFace::CChipFace(CSimChip &chip, const CRegisterInfo *registers) : chip_(chip), registers_(registers) {
    core_ = chip.IsPic18()                                         ? Core::pic18
            : Capitals(chip.RegisterName(kBsrPlace)) == "BSR" ? Core::enhanced
                                                                   : Core::midRange;
    watched_.resize(chip.DataSize());
    for (uint32_t address = 0; address < chip.DataSize(); address++) {
        std::string name = Capitals(chip.RegisterName(address));
        if (!name.empty()) firstByName_.emplace(std::move(name), address);
    }
}

ChipState CChipFace::Step() {
    if (watchedCount_ == 0) return chip_.Step();
    const uint32_t from = chip_.ProgramCounter();
    auto byte = ByteToBeWritten(chip_, core_);
    ChipState state = chip_.Step();
    bool executed = state != ChipState::asleep || chip_.ProgramCounter() != from;
    if (byte && executed && *byte < watched_.size() && watched_[FirstOf(*byte)]) written_ = true;
    return state;
}

InstructionKind CChipFace::KindAt(uint32_t address) const {
    const uint32_t word = chip_.WordAt(address);
    if (core_ == Core::pic18) {
        bool call = (word & 0xFE00) == 0xEC00 || (word & 0xF800) == 0xD800 || word == 0x0014;  // CALL, RCALL, CALLW
        bool back = (word & 0xFFFC) == 0x0010 || (word & 0xFF00) == 0x0C00;                    // RETFIE, RETURN, RETLW
        return call ? InstructionKind::call : back ? InstructionKind::comeBack : InstructionKind::other;
    }
    bool call = (word & 0x3800) == 0x2000 || (core_ == Core::enhanced && word == 0x000A);
    bool back = word == 0x0008 || word == 0x0009 || (word & (core_ == Core::enhanced ? 0x3F00 : 0x3C00)) == 0x3400;
    return call ? InstructionKind::call : back ? InstructionKind::comeBack : InstructionKind::other;
}

bool CChipFace::IsInterruptEntry(uint32_t address) const {
    return core_ == Core::pic18 ? address == 0x08 || address == 0x18 : address == 0x04;
}

std::optional<uint32_t> CChipFace::FindRegister(const std::string &name) const {
    if (const ChipRegister *found = registers_ ? registers_->Find(name) : nullptr) return found->address;
    auto found = firstByName_.find(Capitals(name));
    if (found == firstByName_.end()) return std::nullopt;
    return found->second;
}

// A byte that is reached at several addresses counts by the lowest.
uint32_t CChipFace::FirstOf(uint32_t address) const {
    std::string name = Capitals(chip_.RegisterName(address));
    if (auto found = firstByName_.find(name); found != firstByName_.end()) return found->second;
    if (core_ != Core::pic18 && (address & kBankMask) >= kCommonRam) return address & kBankMask;
    return address;
}

bool CChipFace::WatchWrites(uint32_t address, bool on) {
    if (address >= watched_.size() || !chip_.HasRegister(address)) return false;
    uint32_t first = FirstOf(address);
    if (watched_[first] != on) watchedCount_ += on ? 1 : static_cast<size_t>(-1);
    watched_[first] = on;
    return true;
}
