// What the views show beside what the simulator's own program tells at the same cycle.
#include <fstream>

#include "MemoryProgram.h"
#include "debugger/RegisterBar.h"
#include "widgets/PropTree.h"

namespace {

struct PeerState {
    unsigned pc = 0, w = 0;
    std::vector<std::string> bytes[2];  // of data memory and EEPROM, as two digits; empty: nothing there
};

struct Meeting {
    const char *example, *watched;  // stops behind writes to it
};

class Peer : public MemoryProgram, public testing::WithParamInterface<Meeting> {
protected:
    PeerState PeerAt(int64_t cycle) {
        const std::string example = GetParam().example, told = scratch.Native("told");
        // It begins with pointers that POSTINC has moved already, and goes on to the end of the instruction that begins
        // at the cycle of a break.
        scratch.Write("commands", "fsr0l = 0\nfsr1l = 0\nfsr2l = 0\nbreak c " + std::to_string(cycle - 1) +
                                      "\nrun\ndump r\ndump e\nquit\n");
        const std::string command = "gpsim -i -s '" + scratch.Native(example + "/Debug/" + example + ".cod") +
                                    "' -c '" + scratch.Native("commands") + "' >'" + told + "' 2>&1 </dev/null";
        EXPECT_EQ(std::system(command.c_str()), 0) << command;
        PeerState peer;
        std::vector<std::string> *bytes = nullptr;
        std::ifstream in(told);
        for (std::string line; std::getline(in, line);) {
            if (line.ends_with(" 0c 0d 0e 0f")) bytes = &peer.bytes[bytes ? 1 : 0];
            if (const size_t at = line.find("PC      = "); at != std::string::npos)
                std::sscanf(line.c_str() + at, "PC = %x %*s status = %*x %*s W = %x", &peer.pc, &peer.w);
            if (!bytes || line.find(": ") != 4) continue;
            const auto address = std::stoul(line, nullptr, 16);
            bytes->resize(address);
            for (size_t i = 0; i < 16; ++i) bytes->push_back(line.substr(7 + 3 * i, 2));
        }
        return peer;
    }
    static std::string Told(const std::vector<std::string> &bytes, int address) {
        const auto place = static_cast<size_t>(address);
        const bool there = place < bytes.size() && bytes[place] != "--" && !bytes[place].empty();
        return there ? bytes[place] : std::string();
    }
    static std::string Shown(const CMemoryBar &bar, int address) {
        const CGridCellByte &cell = Hex(bar, address);
        return cell.IsAbsent() ? std::string() : FromQString(ToQString(cell.Text()).toLower());
    }
};

}  // namespace

TEST_P(Peer, ShowsTheSameAtTheSameCycle) {
    ASSERT_NO_FATAL_FAILURE(DebugWithBars(GetParam().example));
    Watchpoints().Toggle(GetParam().watched);
    const auto &tree = static_cast<CRegisterBar &>(*program.Frame().DebugBars().registers).Tree();
    for (int stop = 0; stop < 4; ++stop) {
        ASSERT_NO_FATAL_FAILURE(Do(ID_DEBUG_CONTINUE));
        const int64_t cycle = program.App().session.Clock().CurrentTick();
        SCOPED_TRACE(cycle);
        const PeerState peer = PeerAt(cycle);
        ASSERT_EQ(Pc(), static_cast<int>(peer.pc));
        for (int address = 0; address < CMemoryBar::kBytesInRow * Ram().Grid().RowCount(); ++address) {
            const std::string name = WatchedRegister("$" + std::to_string(address));
            if (name == "PCL") continue;  // it tells PCL as the next instruction reads it
            EXPECT_EQ(Shown(Ram(), address), Told(peer.bytes[0], address)) << address;
        }
        for (int address = 0; address < CMemoryBar::kBytesInRow * Eeprom().Grid().RowCount(); ++address)
            EXPECT_EQ(Shown(Eeprom(), address), Told(peer.bytes[1], address)) << address;
        int registers = 0;
        for (const auto &group : tree.Items())
            for (const auto &row : group->Children()) {
                uint16_t address = 0;
                const bool found = program.App().debugger.RegNameToAddr(row->Label(), address);
                const std::string told = found ? Told(peer.bytes[0], address) : "";
                const unsigned value = row->Label() == "PCL" ? peer.pc & 0xFF
                                       : row->Label() == "W" ? peer.w
                                                             : std::stoul("0" + told, nullptr, 16);
                EXPECT_EQ(row->Value(), std::to_string(value)) << row->Label();
                ++registers;
            }
        EXPECT_GT(registers, 30);
    }
}

INSTANTIATE_TEST_SUITE_P(Views, Peer, testing::Values(Meeting{"blink", "$PORTB"}, Meeting{"greeting", "$LATD"}),
                         [](const auto &info) { return info.param.example; });
