// What is noticed of the writes to a chip's registers.
#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <random>

#include "Programs.h"

namespace {

// A chip in a process of its own.
void OnChip(const std::string &type, const std::string &lines, const std::function<void(CSimChip &)> &test) {
    SCOPED_TRACE(type);
    if (testing::Test::HasFailure()) return;  // the child would take it for its own
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        if (const auto chip = MakeChipOf(type, lines)) test(*chip);
        std::fflush(nullptr);
        _exit(testing::Test::HasFailure() ? 1 : 0);
    }
    int status = -1;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0) << "its process tells why";
}

constexpr uint32_t kW = CSimChip::kWorking;

const struct {
    const char *type, *lines;
    std::vector<std::pair<uint32_t, int>> writes;  // to each byte, until the program stands
    std::vector<uint32_t> refused;
} kPrograms[] = {
    {"PIC16F505", R"(
        clrf    FSR
        movlw   5
        movwf   0x10
        bsf     0x10, 3
        movf    0x10, w
        addwf   0x11, f
        movlw   0x32
        movwf   FSR
        incf    INDF, f
        movwf   0x13
        movwf   0x08
        clrf    FSR
        iorlw   0
        clrw
        goto    $
)", {{kW, 6}, {3, 8}, {4, 3}, {0x08, 1}, {0x28, 1}, {0x10, 2}, {0x11, 1}, {0x12, 0}, {0x32, 1}, {0x33, 1}}, {0}},
    {"PIC16F628A", R"(
        movlw   5
        movwf   0x20
        bsf     0x20, 3
        movf    0x20, w
        addwf   0x21, f
        bsf     STATUS, RP0
        movwf   0x20
        clrf    0x71
        bcf     STATUS, RP0
        movlw   0x30
        movwf   FSR
        incf    INDF, f
        bsf     STATUS, IRP
        movlw   0x22
        movwf   FSR
        incf    INDF, f
        clrwdt
        movlw   0x22
        option
        tris    6
        goto    $
)", {{kW, 5}, {3, 9}, {0x83, 9}, {4, 2}, {2, 0}, {0x20, 2}, {0x21, 1}, {0xA0, 1}, {0xF1, 1}, {0x71, 1}, {0x30, 1},
     {0x122, 1}, {0x22, 0}, {0x81, 1}, {0x86, 1}}, {0, 0x80}},
    {"PIC16F1823", R"(
        movlw   5
        movlb   1
        movwf   0x20
        lslf    0x20, f
        lslf    0x20, w
        movwf   0x72
        movlb   0
        movlw   0x21
        movwf   FSR0L
        movlw   0x20
        movwf   FSR0H
        incf    INDF0, f
        movlw   0x40
        movwf   FSR1L
        clrf    FSR1H
        movwi   FSR1++
        movwi   ++FSR1
        movwi   -2[FSR1]
        incf    INDF1, f
        moviw   FSR1++
        movlp   1
        goto    $
)", {{kW, 6}, {9, 6}, {3, 6}, {8, 2}, {6, 4}, {0x0A, 1}, {0x8A, 1}, {0xA0, 2}, {0xF2, 1}, {0x41, 1}, {0x2021, 1},
     {0x2050, 2}, {0x40, 2}, {0x42, 2}, {0x43, 0}}, {0, 1, 0x29B0}},
    {"PIC18F4520", R"(
        movlw   5
        movwf   0x20, A
        setf    0x7F, A
        movlb   2
        movwf   0x21, B
        bsf     0x22, 1, B
        addwf   0x21, w, B
        movff   0x20, 0x345
        lfsr    0, 0x100
        movwf   POSTINC0, A
        movwf   POSTINC0, A
        movwf   PREINC0, A
        movwf   POSTDEC0, A
        incf    INDF0, f, A
        lfsr    2, 0x180
        movlw   -3
        movff   WREG, PLUSW2
        movff   INDF0, INDF2
        lfsr    1, 0x190
        movlw   7
        movwf   PLUSW1, A
        mullw   0
        tblrd*
        movlb   2
        movlw   7
        bra     $
)", {{kW, 5}, {0xFE8, 5}, {0xFD8, 2}, {0xFE9, 5}, {0xFEA, 1}, {0xFE0, 2}, {0xFF3, 1}, {0xFF4, 1}, {0xFF5, 1},
     {0x20, 1}, {0x7F, 1}, {0x221, 1}, {0x222, 1}, {0x345, 1}, {0x100, 1}, {0x101, 1}, {0x102, 1}, {0x103, 2},
     {0x17D, 1}, {0x180, 1}, {0x197, 1}, {0x198, 0}}, {0xFEE, 0xFEB, 0x1000}},
    {"PIC18F4520", R"(
        config  XINST = ON
        lfsr    2, 0x180
        movlw   1
        movwf   0x10, A
        movwf   0x60, A
        movff   WREG, 0x181
        dw      0xEB02, 0xF190  ; movsf  [2], 0x190
        dw      0xEB81, 0xF005  ; movss  [1], [5]
        dw      0xEA03          ; pushl  3
        bra     $
)", {{0x190, 2}, {0x60, 1}, {0x180, 1}, {0x181, 1}, {0x185, 1}, {0xFD9, 2}}, {}},
};

}  // namespace

TEST(Watch, NoticesEachWriteOfTheProgram) {
    for (const auto &c : kPrograms) {
        OnChip(c.type, "  org 0\n" + std::string(c.lines), [&](CSimChip &chip) {
            for (const auto &[address, writes] : c.writes) {
                chip.PowerOnReset();
                ASSERT_TRUE(chip.WatchByte(address, true) && chip.WatchByte(address, true)) << address;
                int noticed = 0;
                for (uint32_t last = ~0u; chip.ProgramCounter() != last;) {
                    last = chip.ProgramCounter();
                    ASSERT_EQ(chip.Step(), ChipState::running);
                    noticed += chip.TakeWritten();
                }
                EXPECT_EQ(noticed, writes) << std::hex << address;
                // One wish less leaves the other.
                ASSERT_TRUE(chip.WatchByte(address, false));
                chip.PowerOnReset();
                chip.RunTo({}, 1000);
                EXPECT_EQ(chip.TakeWritten(), writes > 0) << std::hex << address;
                ASSERT_TRUE(chip.WatchByte(address, false));
                EXPECT_FALSE(chip.WatchByte(address, false));
            }
            chip.PowerOnReset();
            chip.RunTo({}, 1000);
            EXPECT_FALSE(chip.TakeWritten());
            for (uint32_t address : c.refused) EXPECT_FALSE(chip.WatchByte(address, true)) << std::hex << address;
        });
    }
}

// Memory at random as a program: no byte of memory changes unnoticed, and none is noticed for nothing.
TEST(Watch, KnowsWhatAnyInstructionWrites) {
    const struct {
        const char *type;
        uint32_t codes;
    } cases[] = {{"PIC16F505", 0x1000}, {"PIC16F628A", 0x4000}, {"PIC16F1823", 0x4000}, {"PIC18F1220", 0x10000}};
    for (const auto &c : cases) {
        OnChip(c.type, "  org 0\n  nop", [&](CSimChip &chip) {
            std::vector<uint32_t> memory;
            for (uint32_t address = 0; address < chip.DataSize(); ++address)
                if (chip.HasRegister(address) && chip.RegisterName(address).empty()) memory.push_back(address);
            for (uint32_t address : memory) ASSERT_TRUE(chip.WatchByte(address, true));
            const auto values = [&] {
                std::vector<uint8_t> read;
                for (uint32_t address : memory) read.push_back(chip.ReadRegister(address).value_or(0));
                return read;
            };
            std::mt19937 random(1);
            ChipProgram program;
            for (uint32_t i = 0; i < 512; ++i) {
                uint16_t code = static_cast<uint16_t>(random() % c.codes);
                if (code < 0x20 && chip.InstructionSet() == Core::baseline) code &= 7;  // the others are none
                program.code.push_back({chip.IsPic18() ? i * 2 : i, code});
            }
            std::string error;
            ASSERT_TRUE(chip.Load(program, error)) << error;
            int changes = 0;
            auto before = values();
            for (int i = 0; i < 4000; ++i) {
                const uint32_t address = random() % 500;
                ASSERT_TRUE(chip.SetProgramCounter(chip.IsPic18() ? address * 2 : address));
                chip.ForgetWritten();
                if (chip.Step() != ChipState::running) chip.Reset();
                const auto after = values();
                const bool noticed = chip.TakeWritten();
                const auto change = std::mismatch(after.begin(), after.end(), before.begin()).first;
                ASSERT_TRUE(noticed || change == after.end())
                    << std::hex << chip.WordAt(chip.IsPic18() ? address * 2 : address) << " changes "
                    << memory[static_cast<size_t>(change - after.begin())];
                changes += change != after.end();
                before = after;
            }
            EXPECT_GT(changes, 100);
        });
    }
}

// What the hardware changes is noticed where it changes, and not elsewhere.
TEST(Watch, NoticesWhatTheChipChangesItself) {
    const struct {
        const char *type, *lines;
        uint32_t address;
        int least;
    } cases[] = {
        {"PIC16F84", "  bsf STATUS, RP0\n  clrf OPTION_REG\n  bcf STATUS, RP0\n  goto $", 0x01, 50},
        {"PIC16F84", "  bsf STATUS, RP0\n  bcf OPTION_REG, T0CS\n  bcf STATUS, RP0\n  goto $", 0x0B, 1},
        {"PIC18F452", "  clrf TMR1L\n  bsf T1CON, TMR1ON\n  bra $", 0xFCE, 200},
        {"PIC18F452", "  bsf T0CON, TMR0ON\n  bcf T0CON, T0CS\n  bra $", 0xFD6, 200},
        {"PIC18F452", "  rcall next\nnext\n  rcall last\nlast\n  bra $", 0xFFC, 2},
        {"PIC16F628A",
         "  goto start\n  org 0x2100\n  de 7\n  org 1\nstart\n  bsf STATUS, RP0\n  bsf EECON1, RD\n  goto $", 0x9A, 1},
        {"PIC16F1823", "  movlw 0x11\n  movwf FSR0L\n  moviw FSR0++\n  bra $", 0x04, 2},
    };
    for (const auto &c : cases) {
        OnChip(c.type, "  org 0\n" + std::string(c.lines), [&](CSimChip &chip) {
            ASSERT_TRUE(chip.WatchByte(c.address, true));
            int noticed = 0;
            for (int i = 0; i < 1000; ++i) {
                const auto before = chip.ReadRegister(c.address);
                chip.Step();
                const bool written = chip.TakeWritten();
                EXPECT_TRUE(written || chip.ReadRegister(c.address) == before) << i;
                noticed += written;
            }
            EXPECT_GE(noticed, c.least) << c.lines;
        });
    }
    OnChip("PIC16F628A", "  org 0\n  goto $", [](CSimChip &chip) {
        const auto pin = chip.FindPin("RB4");
        ASSERT_TRUE(pin && chip.WatchByte(0x06, true));
        for (double volts : {0.0, 5.0, 0.0, 0.0}) {
            const auto before = chip.ReadRegister(0x06);
            chip.SetWires(*pin, {{volts, 100}});
            chip.RunTo({}, 100);
            EXPECT_EQ(chip.TakeWritten(), chip.ReadRegister(0x06) != before) << volts;
        }
        EXPECT_TRUE(chip.WriteRegister(0x06, 0xFF));
        chip.RunTo({}, 100);
        EXPECT_FALSE(chip.TakeWritten()) << "the user's own write";
    });
}
