// The bytes that instructions are said to write, against those that they write.
#include <gtest/gtest.h>

#include "DataWrite.h"
#include "OwnProcess.h"
#include "image/Image.h"
#include "support/ScratchDirectory.h"

namespace {

struct Case {
    const char *chip;
    Core core;
    const char *lines;
    std::vector<uint32_t> bytes;  // that are written, in their order; registers of the chip aside
};

const Case kCases[] = {
    {"16f628a", Core::midRange, R"(
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
)", {0x20, 0x20, 0x21, 0xA0, 0xF1, 0x30, 0x122}},
    {"18f4520", Core::pic18, R"(
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
)", {0x20, 0x7F, 0x221, 0x222, 0x345, 0x100, 0x101, 0x103, 0x103, 0x102, 0x17D, 0x180, 0x197}},
    {"16f1823", Core::enhanced, R"(
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
)", {0xA0, 0xA0, 0xF2, 0x41, 0x40, 0x42, 0x40, 0x42}},
};

void ComparesWrites(const Case &c) {
    CScratchDirectory scratch;
    const std::string chipName = c.chip;
    const std::string begin = " include \"p" + chipName + ".inc\"\n radix dec\nstart code 0\n";
    scratch.Write("a.asm", begin + c.lines + " goto $\n end\n");
    const std::string build = "gpasm -c -p " + chipName + " a.asm >log 2>&1 && gplink -c -o a.hex a.o >>log";
    ASSERT_EQ(system(("cd '" + scratch.Native() + "' && " + build).c_str()), 0) << scratch.Read("log");
    std::string error;
    auto image = CImage::Load(scratch.Windows("a.cof"), error);
    ASSERT_TRUE(image) << error;
    auto chip = CSimChip::Create(c.chip, error);
    ASSERT_TRUE(chip) << error;
    ASSERT_TRUE(chip->Load(image->Program(), error)) << error;
    chip->PowerOnReset();
    auto memory = [&] {
        std::vector<int> bytes;
        for (uint32_t address = 0; address < chip->DataSize(); address++)
            bytes.push_back(chip->RegisterName(address).empty() ? chip->ReadRegister(address).value_or(0) : -1);
        return bytes;
    };
    std::vector<uint32_t> told;
    for (uint32_t last = ~0u; chip->ProgramCounter() != last;) {
        last = chip->ProgramCounter();
        const auto before = memory();
        const auto byte = ByteToBeWritten(*chip, c.core);
        ASSERT_EQ(chip->Step(), ChipState::running);
        const auto after = memory();
        for (uint32_t address = 0; address < after.size(); address++) {
            // The common bytes of mid-range chips are there in each bank.
            const bool same = byte && (address == *byte || (c.core != Core::pic18 && (address ^ *byte) % 0x80 == 0));
            EXPECT_TRUE(after[address] == before[address] || same) << std::hex << last << " wrote " << address;
        }
        if (byte && (*byte >= after.size() || after[*byte] >= 0)) told.push_back(*byte);
    }
    EXPECT_EQ(told, c.bytes);
}

TEST(DataWrite, IsToldBeforeItHappens) {
    for (const Case &c : kCases) {
        SCOPED_TRACE(c.chip);
        InOwnProcess([&] { ComparesWrites(c); });
    }
}

}  // namespace
