// One simulated chip: its memories, its registers and its clock, an instruction at a time.
//
// The simulator library behind it keeps its state in the process as a whole: there is one chip in the life of a process.
// Not for two threads at once.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

// What a program is made of, in the chip's own addresses: words, on PIC18 bytes.
struct ChipProgram {
    struct Word {
        uint32_t address;
        uint16_t value;
    };
    std::vector<Word> code;    // PIC18: one for each two bytes, at even addresses
    std::vector<Word> config;  // configuration words (PIC18: bytes) and identification
    std::vector<Word> eeprom;  // bytes; addresses from 0
};

enum class ChipState { running, asleep, offProgram, stackOverflow, stackUnderflow };

class CSimChip {
public:
    // Null, with the reason in `error`, for a chip that the simulator hasn't got. `type`: "PIC16F628A", "16f628a"...
    static std::unique_ptr<CSimChip> Create(const std::string &type, std::string &error);
    ~CSimChip();

    bool Load(const ChipProgram &program, std::string &error);
    void PowerOnReset();
    void Reset();  // as by the pin

    // One instruction, with all that happens in its cycles; an instruction of the next call may be an interrupt's first.
    ChipState Step();

    // Instructions until `stop` is set at a word's address, at most `most`. The caller tests everything else.
    ChipState RunTo(const std::vector<bool> &stops, uint64_t most);

    bool IsPic18() const;
    uint32_t ProgramSize() const;  // in the chip's addresses
    uint32_t DataSize() const;     // of data memory, bytes
    uint32_t EepromSize() const;   // bytes

    uint32_t ProgramCounter() const;
    uint64_t Cycles() const;  // instruction cycles since the power-on reset
    uint8_t W() const;
    uint32_t WordAt(uint32_t address) const;  // of program memory

    bool HasRegister(uint32_t address) const;
    std::string RegisterName(uint32_t address) const;  // upper case, as the chip's header has it; empty for plain memory
    std::optional<uint8_t> ReadRegister(uint32_t address) const;  // without the effects that a read has for the chip
    bool WriteRegister(uint32_t address, uint8_t value);          // as the chip itself would
    std::optional<uint8_t> ReadEeprom(uint32_t address) const;
    bool WriteEeprom(uint32_t address, uint8_t value);

    std::vector<uint32_t> Stack() const;  // return addresses, the innermost last

private:
    struct Impl;
    explicit CSimChip(std::unique_ptr<Impl> impl);
    std::unique_ptr<Impl> impl_;
};
