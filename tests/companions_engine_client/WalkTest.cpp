#include <signal.h>
#include <unistd.h>

#include <climits>

#include "DebugRun.h"

namespace {

// Every byte from 0 to `count` - 1, -1 where there is none.
std::vector<int> Walk(const CDebugger &debugger, int count) {
    std::vector<int> bytes;
    for (int address = 0; address < count; ++address) {
        int value = -1;
        debugger.Call<DbgGetRegFn>("DbgGetReg", address, &value);
        bytes.push_back(value);
    }
    return bytes;
}

}  // namespace

// Bytes that are asked for one after the other are read ahead: what changes meanwhile has to be seen all the same.
TEST(Walks, SeeWhatIsWrittenBetweenTwoBytesAndWhereMemoryEnds) {
    const CDebugger debugger;
    CDebugRun run(debugger);
    std::vector<int> expected(260, -1);
    for (int address = 0; address < 256; ++address) {
        expected[static_cast<size_t>(address)] = address ^ 0x5A;
        ASSERT_EQ(debugger.Call<DbgSetRegFn>("DbgSetReg", address, address ^ 0x5A), kDbgOk);
    }
    EXPECT_EQ(Walk(debugger, 260), expected);
    for (int address = 100; address < 120; ++address) {
        ASSERT_EQ(debugger.Call<DbgSetRegFn>("DbgSetReg", address + 1, 7), kDbgOk);
        int value = 0;
        ASSERT_EQ(debugger.Call<DbgGetRegFn>("DbgGetReg", address, &value), kDbgOk);
        EXPECT_EQ(value, address == 100 ? 100 ^ 0x5A : 7) << address;
    }
    int value = 0;
    for (const int from : {INT_MAX - 9, INT_MIN}) {
        for (int i = 0; i < 10; ++i)
            EXPECT_EQ(debugger.Call<DbgGetRegFn>("DbgGetReg", from + i, &value), kDbgFailed) << from << i;
    }
    Walk(debugger, 260);
    kill(HostProcesses(getpid())[0], SIGKILL);
    EXPECT_TRUE(run.HasReturned());
    EXPECT_EQ(Walk(debugger, 260), std::vector<int>(260, -1)) << "the simulator is lost";
}

TEST(Walks, OverEepromEndWithItFromEitherBase) {
    const CDebugger debugger;
    CDebugRun run(debugger);
    uint8_t written[] = {7, 9};
    ASSERT_EQ(debugger.Call<DbgEepromValFn>("DbgSetEepromVal", 0x1BF00 + 40, 2, written), kDbgOk);
    for (const int base : {0, 0x1BF00}) {
        for (int address = 0; address < 70; ++address) {
            uint8_t byte = 0;
            const int answer = debugger.Call<DbgEepromValFn>("DbgGetEepromVal", base + address, 1, &byte);
            ASSERT_EQ(answer == kDbgOk, address < 64) << address;
            if (address < 64) {
                ASSERT_EQ(byte, address == 40 ? 7 : address == 41 ? 9 : 0xFF) << address;
            }
        }
    }
}
