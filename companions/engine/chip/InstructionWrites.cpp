// What an instruction writes, by its code and the state that the chip is in before it.
//
// Left out is what is seen by its change alone: pointers that count up and down, the stack, PCL as it goes on.
#include "chip/InstructionWrites.h"

#include <gpsim_classes.h>

#include <12bit-processors.h>
#include <16bit-processors.h>
#include <pic-processor.h>

namespace {

// Of an operation on a byte, by its number: whether it tells its result's properties in STATUS. The numbers are those
// of the 12-bit and 14-bit chips, from CLRF on; the enhanced ones and PIC18 have some of their own.
constexpr uint32_t kFlags14 = 0b0011'0111'1111'1110;
constexpr uint32_t kFlags18 = 0b1111'0011'0111'0111'1111'0010;  // by the upper six bits of the code

class CDecoder {
public:
    explicit CDecoder(pic_processor &cpu) : cpu_(cpu) {}

    WrittenBytes Decode(Core core) {
        const uint32_t index = cpu_.pc->value;
        const uint32_t code = cpu_.program_memory[index]->get_opcode();
        switch (core) {
            case Core::baseline:
                Baseline(code);
                break;
            case Core::midRange:
                MidRange(code);
                break;
            case Core::enhanced:
                Enhanced(code);
                break;
            case Core::pic18:
                Pic18(code, index);
                break;
        }
        return written_;
    }

private:
    uint32_t Byte(uint32_t address) const { return cpu_.registers[address]->get_value(); }  // of the core's registers
    uint32_t Pointer(uint32_t low) const { return Byte(low) | Byte(low + 1) << 8; }
    void WorkingAndStatus(uint32_t status) {
        written_.Add(CSimChip::kWorking);
        written_.Add(status);
    }

    // --- 12 and 14 bits ---

    static constexpr uint32_t kStatus = 0x03, kFsr = 0x04, kOption = 0x81, kBankSize = 0x80;

    void ByteOperation(uint32_t operation, bool toFile, uint32_t file) {
        written_.Add(toFile ? file : CSimChip::kWorking);
        if (kFlags14 >> operation & 1) written_.Add(kStatus);
    }

    void Baseline(uint32_t code) {
        auto &cpu = static_cast<_12bit_processor &>(cpu_);
        const uint32_t operation = code >> 6, fsr = Byte(kFsr);
        uint32_t file = code & 0x1F;
        file = file == 0 ? fsr & cpu.fsr_valid_bits() : file | (fsr & cpu.fsr_register_page_bits());
        if (operation == 0 && !(code & 0x20)) {
            if (code == 0x003 || code == 0x004) written_.Add(kStatus);  // SLEEP, CLRWDT
        } else if (operation < 0x10) {
            ByteOperation(operation, code & 0x20, file);
        } else if (operation < 0x18) {
            written_.Add(file);  // BCF, BSF
        } else if (code >> 8 == 0x8 || code >> 8 == 0xC) {
            written_.Add(CSimChip::kWorking);  // RETLW, MOVLW
        } else if (code >> 8 > 0xC) {
            WorkingAndStatus(kStatus);
        }
    }

    // The codes that mid-range chips and the enhanced ones have in common; false for any other.
    bool Common(uint32_t code, uint32_t file) {
        const uint32_t operation = code >> 8;
        if (operation < 0x10 && (operation > 0 || code & 0x80)) {
            ByteOperation(operation, code & 0x80, file);
        } else if (operation >= 0x10 && operation < 0x18) {
            written_.Add(file);  // BCF, BSF
        } else if (code == 0x0063 || code == 0x0064) {
            written_.Add(kStatus);  // SLEEP, CLRWDT
        } else if (operation == 0x30 || operation == 0x34) {
            written_.Add(CSimChip::kWorking);  // MOVLW, RETLW
        } else if ((operation >= 0x38 && operation <= 0x3A) || operation == 0x3C || operation == 0x3E) {
            WorkingAndStatus(kStatus);
        } else {
            return false;
        }
        return true;
    }

    void MidRange(uint32_t code) {
        const uint32_t status = Byte(kStatus);
        uint32_t file = code & 0x7F;
        file = file == 0 ? (status & 0x80) << 1 | Byte(kFsr) : (status >> 5 & 3) * kBankSize | file;
        if (Common(code, file)) return;
        if (code == 0x0062) return written_.Add(kOption);
        if (code >= 0x0065 && code <= 0x0067) return written_.Add(kBankSize | (code & 7));    // TRIS
        if (code >> 10 == 0xC || code >> 10 == 0xD) return written_.Add(CSimChip::kWorking);  // MOVLW, RETLW
        if (code >> 9 == 0x1E || code >> 9 == 0x1F) return WorkingAndStatus(kStatus);         // SUBLW, ADDLW
    }

    void Enhanced(uint32_t code) {
        constexpr uint32_t kFsr0 = 0x04, kFsr1 = 0x06, kBsr = 0x08, kPclath = 0x0A, kCoreEnd = 0x0C;
        constexpr uint32_t kOptionReg = 0x95, kTrisA = 0x8C;
        uint32_t file = code & 0x7F;
        if (file < 2)
            file = Pointer(file == 0 ? kFsr0 : kFsr1);
        else if (file >= kCoreEnd)
            file |= Byte(kBsr) * kBankSize;
        if (Common(code, file)) return;
        const uint32_t operation = code >> 8;
        if (operation >= 0x35 && operation <= 0x3D) {  // LSLF, LSRF, ASRF, SUBWFB, ADDWFC
            written_.Add(code & 0x80 ? file : CSimChip::kWorking);
            return written_.Add(kStatus);
        }
        if ((code & 0x3FF0) == 0x0010) {  // MOVIW, MOVWI, with a step of the pointer
            if (!(code & 8)) return WorkingAndStatus(kStatus);
            const uint32_t mode = code & 3, step = mode == 0 ? 1 : mode == 1 ? ~0u : 0;
            return written_.Add(Pointer(code & 4 ? kFsr1 : kFsr0) + step);
        }
        if (operation == 0x3F) {  // the same at a distance of six bits with a sign
            if (!(code & 0x80)) return WorkingAndStatus(kStatus);
            return written_.Add(Pointer(code & 0x40 ? kFsr1 : kFsr0) + ((code & 0x3F) ^ 0x20) - 0x20);
        }
        if (code == 0x0009) {  // RETFIE, with all that the interrupt has saved
            WorkingAndStatus(kStatus);
            for (uint32_t address : {kBsr, kPclath, kFsr0, kFsr0 + 1, kFsr1, kFsr1 + 1}) written_.Add(address);
            return;
        }
        if ((code & 0x3FE0) == 0x0020) return written_.Add(kBsr);
        if ((code & 0x3F80) == 0x3180) return written_.Add(kPclath);
        if (code == 0x0062) return written_.Add(kOptionReg);
        if (code >= 0x0065 && code <= 0x0067) return written_.Add(kTrisA + code - 0x0065);
    }

    // --- PIC18 ---

    static constexpr uint32_t kStatus18 = 0xFD8, kBsr18 = 0xFE0, kWreg = 0xFE8, kProduct = 0xFF3, kTablat = 0xFF5,
                              kFsr2 = 0xFD9;
    static constexpr uint32_t kHighAccess = 0xF00, kPointerBits = 0xFFF, kBeyondPointers = 0xFC0;

    uint32_t Indirect18(uint32_t address) const {
        constexpr uint32_t kIndfs[] = {0xFEF, 0xFE7, 0xFDF};  // below each: POSTINC, POSTDEC, PREINC, PLUSW, FSRH, FSRL
        for (uint32_t indf : kIndfs) {
            if (address > indf || indf - address > 4) continue;
            uint32_t pointer = Pointer(indf - 6);
            if (indf - address == 3) pointer++;
            if (indf - address == 4) pointer += static_cast<uint32_t>(static_cast<int8_t>(Byte(kWreg)));
            pointer &= kPointerBits;
            return pointer >= kBeyondPointers ? 0 : pointer;  // where the library then writes
        }
        return address;
    }

    uint32_t BehindFsr2(uint32_t distance) const { return (Pointer(kFsr2) + distance) & kPointerBits; }

    uint32_t File18(uint32_t code) const {
        constexpr uint32_t kIndexedEnd = 0x60;
        const uint32_t file = code & 0xFF;
        if (code & 0x100) return Indirect18((Byte(kBsr18) & 0xF) << 8 | file);
        if (file < kIndexedEnd && static_cast<_16bit_processor &>(cpu_).extended_instruction()) return BehindFsr2(file);
        return file < cpu_.access_gprs() ? file : Indirect18(kHighAccess + file);
    }

    uint32_t SecondWord(uint32_t index) const {
        const uint32_t code = index + 1 < cpu_.program_memory_size() ? cpu_.program_memory[index + 1]->get_opcode() : 0;
        return code >> 12 == 0xF ? code : 0;  // as the library takes a word that isn't one
    }

    void Product() {
        written_.Add(kProduct);
        written_.Add(kProduct + 1);
    }

    void Control18(uint32_t code) {
        if (code == 0x0007) return WorkingAndStatus(kStatus18);              // DAW
        if (code >= 0x0008 && code <= 0x000B) return written_.Add(kTablat);  // TBLRD
        if (code == 0x0011 || code == 0x0013) {                              // RETFIE FAST, RETURN FAST
            WorkingAndStatus(kStatus18);
            return written_.Add(kBsr18);
        }
        if (code >> 4 == 0x010) return written_.Add(kBsr18);  // MOVLB
        if (code >> 9 == 1) return Product();                 // MULWF
    }

    void Literal18(uint32_t operation) {
        if (operation == 0xD) return Product();                                             // MULLW
        if (operation == 0xC || operation == 0xE) return written_.Add(CSimChip::kWorking);  // RETLW, MOVLW
        WorkingAndStatus(kStatus18);
    }

    void Pic18(uint32_t code, uint32_t index) {
        const uint32_t operation = code >> 10;
        if (operation == 0) return Control18(code);
        if (operation == 2 || operation == 3) return Literal18(code >> 8);
        if (operation < 0x18) {
            written_.Add(code & 0x200 ? File18(code) : CSimChip::kWorking);
            if (kFlags18 >> operation & 1) written_.Add(kStatus18);
        } else if (code >= 0x6800 && code < 0x7000) {  // SETF, CLRF, NEGF, MOVWF
            written_.Add(File18(code));
            if (code >= 0x6A00 && code < 0x6E00) written_.Add(kStatus18);
        } else if (code >= 0x7000 && code < 0xA000) {  // BTG, BSF, BCF
            written_.Add(File18(code));
        } else if (code >> 12 == 0xC || code >> 7 == 0x1D6) {  // MOVFF, MOVSF
            written_.Add(Indirect18(SecondWord(index) & kPointerBits));
        } else if (code >> 7 == 0x1D7) {  // MOVSS
            written_.Add(BehindFsr2(SecondWord(index) & 0x7F));
        } else if (code >> 8 == 0xEA) {  // PUSHL
            written_.Add(BehindFsr2(0));
        } else if (code >> 6 == 0x3B8) {  // LFSR
            constexpr uint32_t kLows[] = {0xFE9, 0xFE1, 0xFD9, 0xFD9};
            written_.Add(kLows[code >> 4 & 3]);
            written_.Add(kLows[code >> 4 & 3] + 1);
        }
    }

    pic_processor &cpu_;
    WrittenBytes written_;
};

}  // namespace

WrittenBytes BytesToBeWritten(pic_processor &cpu, Core core) {
    return CDecoder(cpu).Decode(core);
}
