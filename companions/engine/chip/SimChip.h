// One simulated chip: its memories, its registers and its clock, an instruction at a time.
//
// The simulator library behind it keeps its state in the process as a whole: there is one chip in the life of a
// process. Not for two threads at once. The library writes notes of its own to the standard output (a reset, a jump out
// of memory, a register that isn't there): whoever needs that stream gives the process another one.
#pragma once

#include <cstdint>
#include <limits>
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

// offProgram: the next instruction lies in memory that nothing was put into, or the last one was a jump out of all
// memory; the chip stands there until a reset. The two of the stack come when it happens, on chips that keep a flag of
// it again only when the flag has been cleared meanwhile; the chip goes on as the real one does.
enum class ChipState { running, asleep, offProgram, stackOverflow, stackUnderflow };

// One wire to a pin: a voltage behind a resistance, from 0 up; an infinite one carries nothing.
struct ChipWire {
    double volts = 0, ohms = std::numeric_limits<double>::infinity();
};

// Whose instructions a chip executes: of 12 bits, of 14 bits, of 14 bits with some more, of 16 bits.
enum class Core { baseline, midRange, enhanced, pic18 };

// What has reset a chip. `address`: of the instruction behind which it was reset.
enum class ResetCause { instruction, watchdog, stack, other };
struct ChipReset {
    ResetCause cause = ResetCause::other;
    uint32_t address = 0;
};

class CSimChip {
public:
    static std::vector<std::string> Types();  // of all chips that can be created: "PIC16F628A"..., sorted

    // Null, with the reason in `error`, for a chip that the simulator hasn't got. `type`: "PIC16F628A", "16f628a"...
    static std::unique_ptr<CSimChip> Create(const std::string &type, std::string &error);
    ~CSimChip();

    // Replaces the whole program memory. False, with nothing changed, for code or EEPROM data that the chip has no
    // place for; configuration that it hasn't got is passed over. PowerOnReset is due behind it.
    bool Load(const ChipProgram &program, std::string &error);
    void PowerOnReset();
    void Reset();  // as by the pin

    // One instruction, with all that happens in its cycles; when an interrupt comes in them, its entry too, so that the
    // program counter always tells the instruction of the next call. Asleep: one cycle.
    ChipState Step();

    // At least one instruction, then until the program counter is at an address that `stops` has set (indexed by the
    // chip's own addresses; it may be shorter than the memory), at most `most` in all; cycles of sleep count as well.
    // Ends with any state other than running, but asleep only when nothing inside the chip is due to happen, or at
    // `most`; and behind what has changed a watched pin, written a watched byte or reset the chip.
    ChipState RunTo(const std::vector<bool> &stops, uint64_t most);

    // Whether anything is due inside the chip: a watchdog, a timer. False while asleep: only a pin can wake it.
    bool SomethingIsDue() const;

    // How often the chip has been reset since power-on by its program or its watchdog, and by what last.
    uint64_t Resets() const;
    ChipReset LastReset() const;

    bool IsPic18() const;
    Core InstructionSet() const;
    uint32_t ProgramSize() const;  // in the chip's addresses
    uint32_t DataSize() const;     // of data memory, bytes
    uint32_t EepromSize() const;   // bytes

    uint32_t ProgramCounter() const;
    bool SetProgramCounter(uint32_t address);  // false: outside of program memory
    uint64_t Cycles() const;                   // instruction cycles since the power-on reset
    uint8_t W() const;
    void SetW(uint8_t value);
    uint32_t WordAt(uint32_t address) const;  // of program memory; all bits set where it is empty or there is none

    // Data memory by address; that of enhanced mid-range chips also in its linear form, from 0x2000 on.
    bool HasRegister(uint32_t address) const;
    std::string RegisterName(
        uint32_t address) const;  // upper case, as the chip's header has it; empty for plain memory
    std::optional<uint8_t> ReadRegister(uint32_t address) const;  // without the effects that a read has for the chip
    bool WriteRegister(uint32_t address, uint8_t value);          // as the chip itself would; PCL: a jump of no cycles

    // Watched bytes: each write of the program is noticed, whether the value changes or not, and each change that the
    // chip makes by itself or that comes in by its pins; of PCL, which every instruction moves, the writes alone. What
    // is written from here isn't. Wishes for a byte are counted. False where there is nothing to watch: no register, or
    // one that stands for another, as INDF does.
    static constexpr uint32_t kWorking = ~0u;  // the working register, wherever it is
    bool WatchByte(uint32_t address, bool on);
    bool TakeWritten();    // whether a watched byte was written since the last call
    void ForgetWritten();  // and what has changed while the chip stood

    std::optional<uint8_t> ReadEeprom(uint32_t address) const;
    bool WriteEeprom(uint32_t address, uint8_t value);

    // The oscillator that the chip's configuration reckons with, in hertz; one inside of the chip runs at its own rate.
    // Resets leave it.
    void SetClockRate(double hertz);

    // Pins, by their numbers on the chip's case. Names without regard to case: "RB0", "portb0", "GP3", "MCLR", and what
    // a pin is at the time ("an0"). A pin that shares its place with MCLR is found by its own name, too.
    std::optional<int> FindPin(const std::string &name) const;
    // All that hangs on the pin from now on, in the place of what did. At once: an input sees it before the next
    // instruction, and a change of the reset pin resets the chip.
    void SetWires(int pin, const std::vector<ChipWire> &wires);
    double PinVoltage(int pin) const;
    void WatchPin(int pin, bool on);
    bool TakePinChange();  // whether a watched pin has another voltage since the last call

    // Return addresses, the innermost last; behind an overflow of a mid-range chip those that are left of them.
    std::vector<uint32_t> Stack() const;

private:
    struct Impl;
    explicit CSimChip(std::unique_ptr<Impl> impl);
    std::unique_ptr<Impl> impl_;
};
