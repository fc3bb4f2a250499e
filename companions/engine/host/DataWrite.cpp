#include "DataWrite.h"

namespace {

constexpr uint32_t kBanked = 0x80;  // bytes of a bank, but on PIC18

// --- mid-range and enhanced mid-range; the registers of the core lie at the same places on all chips ---

constexpr uint32_t kIndf0 = 0x00, kIndf1 = 0x01, kStatus = 0x03, kFsr = 0x04, kFsr0 = 0x04, kFsr1 = 0x06, kBsr = 0x08;
constexpr uint32_t kCoreEnd = 0x0C, kLinear = 0x2000, kLinearEnd = 0x29B0, kLinearBank = 80, kLinearFirst = 0x20;

uint32_t Byte(const CSimChip &chip, uint32_t address) { return chip.ReadRegister(address).value_or(0); }
uint32_t Word(const CSimChip &chip, uint32_t address) { return Byte(chip, address) | Byte(chip, address + 1) << 8; }

std::optional<uint32_t> Enhanced(uint32_t pointer) {
    if (pointer >= kLinear && pointer < kLinearEnd) {
        uint32_t offset = pointer - kLinear;
        return offset / kLinearBank * kBanked + kLinearFirst + offset % kLinearBank;
    }
    if (pointer >= kLinear) return std::nullopt;  // program memory
    return pointer;
}

std::optional<uint32_t> FileOf(const CSimChip &chip, Core core, uint32_t file) {
    if (core == Core::enhanced) {
        if (file == kIndf0) return Enhanced(Word(chip, kFsr0));
        if (file == kIndf1) return Enhanced(Word(chip, kFsr1));
        return file < kCoreEnd ? file : Byte(chip, kBsr) * kBanked + file;
    }
    uint32_t status = Byte(chip, kStatus);
    if (file == kIndf0) return (status & 0x80) << 1 | Byte(chip, kFsr);
    return (status >> 5 & 3) * kBanked + file;
}

// MOVWI with its forms: before or behind a change of the pointer by one, or at a distance.
std::optional<uint32_t> Movwi(const CSimChip &chip, uint32_t word) {
    if ((word & 0x3FF8) == 0x0018) {
        uint32_t pointer = Word(chip, word & 4 ? kFsr1 : kFsr0);
        uint32_t mode = word & 3;
        return Enhanced(mode == 0 ? pointer + 1 : mode == 1 ? pointer - 1 : pointer);
    }
    if ((word & 0x3F80) == 0x3F80) {
        uint32_t distance = (word & 0x3F) ^ 0x20;  // six bits with a sign
        return Enhanced(Word(chip, word & 0x40 ? kFsr1 : kFsr0) + distance - 0x20);
    }
    return std::nullopt;
}

std::optional<uint32_t> MidRange(const CSimChip &chip, Core core, uint32_t word) {
    if (core == Core::enhanced) {
        if (auto address = Movwi(chip, word)) return address;
        bool shift = (word & 0x3F00) >= 0x3500 && (word & 0x3F00) <= 0x3700;
        bool withCarry = (word & 0x3F00) == 0x3B00 || (word & 0x3F00) == 0x3D00;
        if ((shift || withCarry) && (word & 0x80)) return FileOf(chip, core, word & 0x7F);
    }
    bool byteOperation = (word & 0x3000) == 0 && (word & 0x80);  // with the file as its destination
    bool bitOperation = (word & 0x3800) == 0x1000;
    if (byteOperation || bitOperation) return FileOf(chip, core, word & 0x7F);
    return std::nullopt;
}

// --- PIC18 ---

constexpr uint32_t kBsr18 = 0xFE0, kWreg = 0xFE8, kAccessEnd = 0x80, kHighAccess = 0xF00, kPointerBits = 0xFFF;

std::optional<uint32_t> Indirect18(const CSimChip &chip, uint32_t address) {
    constexpr uint32_t kIndfs[] = {0xFEF, 0xFE7, 0xFDF};  // below each: POSTINC, POSTDEC, PREINC, PLUSW, FSRH, FSRL
    for (uint32_t indf : kIndfs) {
        if (address > indf || indf - address > 4) continue;
        uint32_t pointer = Word(chip, indf - 6);
        if (indf - address == 3) pointer++;
        if (indf - address == 4) pointer += static_cast<uint32_t>(static_cast<int8_t>(Byte(chip, kWreg)));
        return pointer & kPointerBits;
    }
    return address;
}

std::optional<uint32_t> Pic18(const CSimChip &chip, uint32_t pc, uint32_t word) {
    if ((word & 0xF000) == 0xC000) return Indirect18(chip, chip.WordAt(pc + 2) & kPointerBits);  // MOVFF
    uint32_t operation = word >> 10;
    bool byteOperation = (operation == 1 || (operation >= 4 && operation <= 0x17)) && (word & 0x200);
    bool wholeByte = word >> 9 >= 0x34 && word >> 9 <= 0x37;  // SETF, CLRF, NEGF, MOVWF
    bool bitOperation = word >> 12 >= 7 && word >> 12 <= 9;
    if (!byteOperation && !wholeByte && !bitOperation) return std::nullopt;
    uint32_t file = word & 0xFF;
    if (word & 0x100) return Indirect18(chip, Byte(chip, kBsr18) << 8 | file);
    // Some chips have the border of the access bank at 60.
    bool isRam = file < kAccessEnd && chip.RegisterName(kHighAccess + file).empty();
    return isRam ? file : Indirect18(chip, kHighAccess + file);
}

}  // namespace

std::optional<uint32_t> ByteToBeWritten(const CSimChip &chip, Core core) {
    uint32_t pc = chip.ProgramCounter(), word = chip.WordAt(pc);
    return core == Core::pic18 ? Pic18(chip, pc, word) : MidRange(chip, core, word);
}
