// The memory that the debugger's library and the simulator's processes share: one call at a time with its reply, one
// event at a time, what the debugger wants to be told, and who the simulator's processes are.
//
// It begins as zero bytes. Whoever waits for something in it waits with a limit and then looks whether the other side
// is still there: a process can be killed at any moment.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>

#include "protocol/Bell.h"

// The descriptors that the simulator's program is started with.
inline constexpr int kLifeDescriptor = 3;    // a socket that ends with the debugger's process
inline constexpr int kMemoryDescriptor = 4;  // the file of the shared block

// A call: its arguments in, its results out, in the order of the comments. Each reply begins with a number, 1 for
// success; a failure carries the results named behind "else".
enum class Request : uint32_t {
    openChip,       // text target; else text error
    load,           // text file; else text error
    reset,          // number power-on
    start,          // number RunKind
    stop,           //
    stepBack,       //
    evaluate,       // text expression, number format; text value; else text error
    set,            // text name, number value; else text error
    getReg,         // number address; number value
    dataBlock,      // number address, number count; block values, block 1 where there is one, else 0
    setReg,         // number address, number value
    regNameToAddr,  // text name; number address
    regAddrToName,  // number address; text name
    regBits,        // text register; text bits
    registerMap,    // ; block
    symbolToAddr,   // text name; number address
    eepromSize,     // ; number bytes
    readEeprom,     // number address, number count; block
    writeEeprom,    // number address, block
    posToAddr,      // text file, number line; number address, number line
    addrToPos,      // number address; text file, number line
    frameList,      // ; text
    profileList,    // ; text
    setBreakpoint,  // text file, number line; number id, else text error
    deleteBreakpoint,
    setConditions,  // number id, text condition, number its type, number hit value, number hit type; else text error
    hitCount,       // number id; number count
    resetHitCount,  // number id
    setWatchpoint,  // text name; number id, else text error
    deleteWatchpoint,
    setClockRate,   // number hertz
    watchRegister,  // number handle, number on
    connectPin,     // text pin; number connection
    releaseConnection,
    setConnectionV,  // number connection, real volts
    setConnectionR,  // number connection, real ohms
    pinV,            // number pin; real volts
    watchPin,        // number pin, number on
    cycles,          // ; number
    lock,            //
    unlock,          //
    count_
};

enum class CallState : uint32_t { idle, asked, answered };

enum class EventKind : uint32_t {
    clock,            // passed, clk
    instruction,      // address; passed, clk
    stop,             // reason, file, line, address; passed, clk
    tell,             // reason, file, line, address, text
    registerChanged,  // handle, value
    pinChanged,       // handle, volts
};

struct SharedEvent {
    EventKind kind;
    int32_t reason, line, address;
    int32_t clk, passed;
    int32_t handle, value;
    double volts;
    uint32_t hasText;
    char file[4096], text[4096];  // with their zero
};

// A frozen process: `word` is its generation and what it is to do. A word of another generation means that it has been
// dropped and its place given to another.
inline constexpr uint32_t kMostSnapshots = 128;
enum SnapshotOrder : uint32_t { kStayFrozen = 0, kWakeUp = 1, kGoAway = 2, kOrderMask = 3, kNextGeneration = 4 };

struct SharedBlock {
    CBell toHost;    // a call, an event dealt with, a wish
    CBell toCaller;  // the reply is there
    CBell toEngine;  // an event is there

    std::atomic<CallState> call;
    Request request;
    uint32_t requestSize, replySize;  // bytes

    std::atomic<uint32_t> eventWaits;  // 1 from its post until it has been dealt with
    SharedEvent event;

    // Wishes of the debugger.
    std::atomic<uint32_t> eachInstruction, wantsClock, wantsInstructions;

    // Of the simulator. Only the live process writes them, but for `gone`.
    std::atomic<uint32_t> gone;  // the live process has ended and nothing will answer any more
    std::atomic<int32_t> livePid;
    int32_t locks;          // DbgSimLock, less DbgSimUnlock
    uint64_t settingsSize;  // bytes of the settings for a woken process, behind this block in its file

    uint32_t oldestSnapshot, snapshotCount;  // the places in `snapshots`, cyclic
    struct Snapshot {
        std::atomic<uint32_t> word;
        int32_t pid;
    } snapshots[kMostSnapshots];

    // Sends all frozen processes away. For whoever finds that no live process is there any more.
    void DismissSnapshots();

    std::byte requestBytes[64 * 1024];
    std::byte replyBytes[1024 * 1024];
};
