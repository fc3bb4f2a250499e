// The chip beside the simulator's own program: the same code, instruction by instruction.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "Programs.h"

namespace {

struct Write {
    int address;  // -1: W
    unsigned value;
};

struct Traced {
    uint64_t cycle;
    uint32_t address;
    bool isBehindInterrupt;  // the instructions just before it aren't told
    std::vector<Write> writes;
};

// The instructions that the program tells, with what they wrote into W, STATUS and plain memory. (What it tells of
// other registers is what was put in, not what can be read.) Asleep, it tells the last one over and over; when an
// interrupt is taken, it tells one that would have been next, and the one before it at any cycle.
std::vector<Traced> ReadTrace(const std::string &file) {
    std::vector<Traced> trace;
    std::optional<uint64_t> last;
    bool isNew = false, isBehindInterrupt = false;
    std::ifstream in(file);
    for (std::string line; std::getline(in, line);) {
        unsigned value = 0, address = 0, opcode = 0;
        unsigned long long cycle = 0;
        char name[32] = "";
        if (isNew && std::sscanf(line.c_str(), "  Wrote: 0x%x to %31[^ ]", &value, name) == 2) {
            const std::string target = name;
            const size_t bracket = target.find("(0x");
            if (target == "W" || target.starts_with("W("))
                trace.back().writes.push_back({-1, value});
            else if (bracket != std::string::npos && (target.starts_with("REG") || target.starts_with("status")))
                trace.back().writes.push_back({static_cast<int>(std::strtol(name + bracket + 3, nullptr, 16)), value});
            continue;
        }
        if (line.find("*** Interrupt ***") != std::string::npos) {
            trace.resize(trace.size() - std::min<size_t>(trace.size(), isNew ? 2 : 1));
            isNew = false;
            isBehindInterrupt = true;
        }
        const size_t start = line.find("0x00");  // behind the prompt
        if (start == std::string::npos ||
            std::sscanf(line.c_str() + start, "0x%16llx %*s 0x%x 0x%x", &cycle, &address, &opcode) != 3)
            continue;
        isNew = !last || cycle > *last;
        if (!isNew) continue;
        last = cycle;
        trace.push_back({cycle, address, isBehindInterrupt, {}});
        isBehindInterrupt = false;
    }
    return trace;
}

// `turns` times kStepsOfTurn single steps; then, when `unseen` isn't 0, that many cycles in one go, and some turns
// more.
constexpr int kStepsOfTurn = 2500, kTurnsBehind = 12;

std::vector<Traced> TraceOf(const CBuildDirectory &build, const std::string &type, const std::string &hex, int turns,
                            int unseen) {
    {
        // The time it takes to read a command file goes with the square of its length.
        std::ofstream steps(build.Path("steps.stc")), commands(build.Path("commands.stc"));
        for (int i = 0; i < kStepsOfTurn; ++i) steps << "step\n";
        for (int i = 0; i < turns; ++i) commands << "load steps.stc\n";
        if (unseen > 0) commands << "step " << unseen << "\n";
        for (int i = 0; unseen > 0 && i < kTurnsBehind; ++i) commands << "load steps.stc\n";
        commands << "quit\n";
    }
    const std::string command = "gpsim -i -p p" + BareName(type) + " '" + hex + "' -c '" + build.Path("commands.stc") +
                                "' >'" + build.Path("trace") + "' 2>&1 </dev/null";
    EXPECT_EQ(std::system(command.c_str()), 0);
    return ReadTrace(build.Path("trace"));
}

void CompareWithPeer(const std::string &type, const std::string &name, int turns, int unseen = 0) {
    CBuildDirectory build;
    const std::string hex = build.AssembleFile(std::string(PROGRAMS_DIRECTORY) + "/" + name + ".asm");
    ASSERT_FALSE(hex.empty());
    const std::vector<Traced> trace = TraceOf(build, type, hex, turns, unseen);
    ASSERT_GE(trace.size(), 100000u);

    const std::unique_ptr<CSimChip> chip = MakeChip(type, hex);
    ASSERT_TRUE(chip);
    bool hasSlept = false;
    for (size_t i = 0; i < trace.size(); ++i) {
        const Traced &traced = trace[i];
        if (traced.isBehindInterrupt || traced.cycle > chip->Cycles() + kStepsOfTurn)
            while (chip->Cycles() < traced.cycle) hasSlept |= chip->Step() == ChipState::asleep;
        // A look at every register in between must not be seen by the program.
        if (i % 1009 == 0)
            for (uint32_t address = 0; address < chip->DataSize(); ++address) (void)chip->ReadRegister(address);
        const uint64_t begin = chip->Cycles();
        const uint32_t address = chip->ProgramCounter();
        // Each write is noticed when its place is watched; of the places one at a time.
        const auto watched = [&] {
            const int place = traced.writes[i % traced.writes.size()].address;
            return place < 0 ? CSimChip::kWorking : static_cast<uint32_t>(place);
        };
        // What a return restores is told with the instruction behind it.
        const uint32_t former = i > 0 ? chip->WordAt(trace[i - 1].address) : 0;
        const bool restores = former == 0x0009 || former == 0x0011 || former == 0x0013;
        const bool watches = !traced.writes.empty() && !restores && chip->WatchByte(watched(), true);
        const ChipState state = chip->Step();
        ASSERT_TRUE(state == ChipState::running || state == ChipState::asleep) << "instruction " << i;
        if (watches) {
            ASSERT_TRUE(chip->TakeWritten()) << "instruction " << i << " at " << address << ", " << watched();
            chip->WatchByte(watched(), false);
        }
        // Skips and computed jumps are told a cycle late, and those jumps at the wrong address.
        const bool isLate = traced.cycle > begin && traced.cycle < chip->Cycles();
        ASSERT_EQ(isLate ? traced.cycle : begin, traced.cycle) << "instruction " << i << " at " << address;
        ASSERT_EQ(isLate ? traced.address : address, traced.address) << "instruction " << i;
        std::map<int, unsigned> values;  // only the last write to each place can be seen behind the instruction
        for (const Write &write : traced.writes) values[write.address] = write.value;
        for (const auto &[place, value] : values)
            ASSERT_EQ(place < 0 ? chip->W() : chip->ReadRegister(place).value_or(0x100), value)
                << "register " << place << " behind instruction " << i << " at " << address;
    }
    EXPECT_EQ(hasSlept, unseen > 0);
}

}  // namespace

TEST(Peer, TimerInterrupts) {
    CompareWithPeer("PIC16F84", "timer84", 41);
}
TEST(Peer, EepromWrites) {
    CompareWithPeer("PIC16F628A", "eeprom628a", 42);
}
TEST(Peer, TablesAndIndirectAddressing) {
    CompareWithPeer("PIC16F877A", "tables877a", 41);
}
TEST(Peer, SleepUntilTheWatchdog) {
    CompareWithPeer("PIC16F628A", "sleep628a", 42, 120000);
}
TEST(Peer, EnhancedCore) {
    CompareWithPeer("PIC16F1823", "enhanced1823", 41);
}
TEST(Peer, TableReadsAndTwoInterruptLevels) {
    CompareWithPeer("PIC18F452", "table452", 42);
}
TEST(Peer, JumpTableOfPic18) {
    CompareWithPeer("PIC18F1220", "jump1220", 41);
}
TEST(Peer, TwelveBits) {
    CompareWithPeer("PIC16F505", "baseline505", 41);
}
TEST(Peer, ConverterAndPulseWidth) {
    CompareWithPeer("PIC16F877A", "analog877a", 42);
}
TEST(Peer, SerialLineFromTheFirstCycle) {
    CompareWithPeer("PIC16F877A", "serial877a", 41);
}
TEST(Peer, SerialLineByInterrupts) {
    CompareWithPeer("PIC18F452", "serial452", 42);
}
