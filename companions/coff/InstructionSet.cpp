#include "coff/InstructionSet.h"

namespace {

enum class Operand {
    none,
    page,      // `width` bits of an address
    relative,  // signed, `width` bits, from the next instruction, in instruction words
    words20,   // 8 bits and 12 bits of the second word, in instruction words
    twoWords,  // a second word that is no address
};

struct Pattern {
    int bits;
    uint16_t mask, value;
    Flow flow;
    Operand operand = Operand::none;
    int width = 0;
};

// The first match counts. What isn't listed goes on with the next instruction.
constexpr Pattern kPatterns[] = {
    // PIC18
    {8, 0xFE00, 0xEC00, Flow::call, Operand::words20},
    {8, 0xFF00, 0xEF00, Flow::jump, Operand::words20},
    {8, 0xF800, 0xD000, Flow::jump, Operand::relative, 11},
    {8, 0xF800, 0xD800, Flow::call, Operand::relative, 11},
    {8, 0xF800, 0xE000, Flow::branch, Operand::relative, 8},
    {8, 0xFFFE, 0x0012, Flow::end},                      // return
    {8, 0xFFFE, 0x0010, Flow::end},                      // retfie
    {8, 0xFF00, 0x0C00, Flow::end},                      // retlw
    {8, 0xFFFF, 0x00FF, Flow::end},                      // reset
    {8, 0xFEFF, 0x6EF9, Flow::end},                      // movwf PCL
    {8, 0xFEFF, 0x26F9, Flow::end},                      // addwf PCL, F
    {8, 0xFE00, 0x6000, Flow::skip},                     // cpfslt
    {8, 0xFE00, 0x6200, Flow::skip},                     // cpfseq
    {8, 0xFE00, 0x6400, Flow::skip},                     // cpfsgt
    {8, 0xFE00, 0x6600, Flow::skip},                     // tstfsz
    {8, 0xFC00, 0x2C00, Flow::skip},                     // decfsz
    {8, 0xFC00, 0x4C00, Flow::skip},                     // dcfsnz
    {8, 0xFC00, 0x3C00, Flow::skip},                     // incfsz
    {8, 0xFC00, 0x4800, Flow::skip},                     // infsnz
    {8, 0xF000, 0xA000, Flow::skip},                     // btfss
    {8, 0xF000, 0xB000, Flow::skip},                     // btfsc
    {8, 0xF000, 0xC000, Flow::next, Operand::twoWords},  // movff
    {8, 0xFFC0, 0xEE00, Flow::next, Operand::twoWords},  // lfsr
    {8, 0xFF00, 0xEB00, Flow::next, Operand::twoWords},  // movsf, movss
    // 12 bits
    {12, 0xE00, 0xA00, Flow::jump, Operand::page, 9},
    {12, 0xF00, 0x900, Flow::call, Operand::page, 8},
    {12, 0xF00, 0x800, Flow::end},   // retlw
    {12, 0xFFE, 0x01E, Flow::end},   // return, retfie
    {12, 0xFFF, 0x022, Flow::end},   // movwf PCL
    {12, 0xFFF, 0x1E2, Flow::end},   // addwf PCL, F
    {12, 0xF00, 0x600, Flow::skip},  // btfsc
    {12, 0xF00, 0x700, Flow::skip},  // btfss
    {12, 0xFC0, 0x2C0, Flow::skip},  // decfsz
    {12, 0xFC0, 0x3C0, Flow::skip},  // incfsz
    // 14 bits, with what the enhanced chips add
    {14, 0x3800, 0x2000, Flow::call, Operand::page, 11},
    {14, 0x3800, 0x2800, Flow::jump, Operand::page, 11},
    {14, 0x3E00, 0x3200, Flow::jump, Operand::relative, 9},
    {14, 0x3FFE, 0x0008, Flow::end},   // return, retfie
    {14, 0x3C00, 0x3400, Flow::end},   // retlw
    {14, 0x3FFF, 0x0001, Flow::end},   // reset
    {14, 0x3FFF, 0x000B, Flow::end},   // brw
    {14, 0x3FFF, 0x0082, Flow::end},   // movwf PCL
    {14, 0x3FFF, 0x0782, Flow::end},   // addwf PCL, F
    {14, 0x3C00, 0x1800, Flow::skip},  // btfsc
    {14, 0x3C00, 0x1C00, Flow::skip},  // btfss
    {14, 0x3F00, 0x0B00, Flow::skip},  // decfsz
    {14, 0x3F00, 0x0F00, Flow::skip},  // incfsz
    // PIC17
    {16, 0xE000, 0xE000, Flow::call, Operand::page, 13},
    {16, 0xE000, 0xC000, Flow::jump, Operand::page, 13},
    {16, 0xFFFF, 0x0002, Flow::end},   // return
    {16, 0xFFFF, 0x0005, Flow::end},   // retfie
    {16, 0xFF00, 0xB600, Flow::end},   // retlw
    {16, 0xFFFF, 0x0102, Flow::end},   // movwf PCL
    {16, 0xFF00, 0x3000, Flow::skip},  // cpfslt
    {16, 0xFF00, 0x3100, Flow::skip},  // cpfseq
    {16, 0xFF00, 0x3200, Flow::skip},  // cpfsgt
    {16, 0xFF00, 0x3300, Flow::skip},  // tstfsz
    {16, 0xFE00, 0x1600, Flow::skip},  // decfsz
    {16, 0xFE00, 0x2600, Flow::skip},  // dcfsnz
    {16, 0xFE00, 0x1E00, Flow::skip},  // incfsz
    {16, 0xFE00, 0x2400, Flow::skip},  // infsnz
    {16, 0xF000, 0x9000, Flow::skip},  // btfss, btfsc
};

uint32_t WordAt(std::string_view bytes, size_t offset) {
    return offset + 2 > bytes.size() ? 0
                                     : static_cast<uint8_t>(bytes[offset]) |
                                           static_cast<uint32_t>(static_cast<uint8_t>(bytes[offset + 1])) << 8;
}

// The low `bits` of the word as a signed number, times the addresses of an instruction word.
uint32_t Relative(uint32_t word, int bits, uint32_t addressesPerWord) {
    const uint32_t sign = 1u << (bits - 1);
    return (((word & (2 * sign - 1)) ^ sign) - sign) * addressesPerWord;
}

}  // namespace

Instruction DecodeInstruction(int bits, std::string_view bytes, uint32_t address) {
    const uint32_t addressesPerWord = bits == 8 ? 2 : 1;
    Instruction result;
    result.size = addressesPerWord;
    if (bytes.size() < 2) return result;
    const uint32_t word = WordAt(bytes, 0), next = address + addressesPerWord;
    for (const Pattern &pattern : kPatterns) {
        if (pattern.bits != bits || (word & pattern.mask) != pattern.value) continue;
        result.flow = pattern.flow;
        switch (pattern.operand) {
            case Operand::none:
                break;
            case Operand::page:
                result.paged = true;
                result.target = word & ((1u << pattern.width) - 1);
                break;
            case Operand::relative:
                result.target = next + Relative(word, pattern.width, addressesPerWord);
                break;
            case Operand::words20:
                result.size = 2 * addressesPerWord;
                result.target = ((word & 0xFF) | (WordAt(bytes, 2) & 0xFFF) << 8) * addressesPerWord;
                break;
            case Operand::twoWords:
                result.size = 2 * addressesPerWord;
                break;
        }
        break;
    }
    return result;
}

uint32_t PageSize(int bits) {
    switch (bits) {
        case 12:
            return 0x200;
        case 14:
            return 0x800;
        case 16:
            return 0x2000;
        default:
            return 0;
    }
}
