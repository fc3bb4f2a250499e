// What a debug run consists of, behind the process that serves it: the chip with its program, the run commands, the
// places to stop at, the values. One method for each request of the engine interface (debugger/EngineApi.h tells their
// meaning, names, text formats and limits); no transport in it.
//
// One session in the life of a process, on one thread. Whole processes are frozen as the states to step back to, so a
// session keeps everything that belongs to the target in its memory: it opens no file for longer than a call, starts no
// thread and no timer. Nothing throws; nothing ends the process; files come in the Windows form and full.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "protocol/RunKind.h"

struct SessionPlace {
    std::string file;  // empty: no source is known
    int line = 0;      // from 1; 0 with an empty file
    int address = 0;   // the program counter
};

// Whom a running session tells. A call returns when the debugger has dealt with it; meanwhile any request but Load,
// Reset and Start may come into the session, so these calls are made between two instructions and with all state in
// order.
class CSessionEvents {
public:
    virtual ~CSessionEvents() = default;

    // Behind each instruction, when TellInstructions is on: its address, and the cycles since the reset.
    virtual void InstructionDone(int address, int64_t cycles) = 0;
    virtual void RegisterChanged(int handle, int value) = 0;  // one of WatchRegister
    virtual void PinChanged(int pin, double volts) = 0;       // one of WatchPin
    // kDbgNoteSleep and kDbgNoteStack, once for each occurrence; kDbgText with words for the user.
    virtual void Tell(int reason, const std::string &text) = 0;
};

class CSession {
public:
    virtual ~CSession() = default;

    virtual bool Load(const std::string &image, std::string &error) = 0;

    // The run. None of these comes before Load has succeeded; Start, and Reset, come while the target stands.
    virtual bool Reset(bool powerOn) = 0;
    virtual bool Start(RunKind kind) = 0;  // false: refused, and nothing has changed. Forgets an earlier Stop
    struct SliceEnd {
        bool stopped = false;
        int reason = 0;  // when stopped: kDbgStopped, kDbgPlace or kDbgBadMemory
    };
    // Goes on with what Start began: until a stop, or for about a millisecond (some thousand instructions). Must return
    // though the chip sleeps.
    virtual SliceEnd Slice(CSessionEvents &events) = 0;
    virtual void
    Stop() = 0;  // the running Slice, or the next one, ends with kDbgStopped; may come from within an event
    virtual void TellInstructions(bool on) = 0;  // comes between slices and takes effect with the next one

    virtual SessionPlace Place() = 0;
    virtual int64_t Cycles() = 0;  // since the reset

    // Values.
    virtual bool Evaluate(const std::string &expression, int format, std::string &text, std::string &error) = 0;
    virtual bool Set(const std::string &name, int value, std::string &error) = 0;
    virtual std::optional<int> GetReg(int address) = 0;
    virtual bool SetReg(int address, int value) = 0;
    virtual std::optional<uint16_t> RegNameToAddr(const std::string &name) = 0;
    virtual std::optional<std::string> RegAddrToName(int address) = 0;
    virtual std::optional<std::string> RegBits(const std::string &reg) = 0;  // a name or an address
    virtual std::vector<uint8_t> RegisterMap() = 0;  // one byte for each address of data memory: 1 where it can be read
    virtual std::optional<int> SymbolToAddr(const std::string &name) = 0;
    virtual int EepromSize() = 0;  // bytes
    virtual std::optional<std::vector<uint8_t>> ReadEeprom(int address, int count) = 0;
    virtual bool WriteEeprom(int address, const std::vector<uint8_t> &bytes) = 0;

    // Source and lists.
    struct Line {
        int address = 0, line = 0;
    };
    virtual std::optional<Line> PosToAddr(const std::string &file, int line) = 0;
    virtual std::optional<SessionPlace> AddrToPos(int address) = 0;
    virtual std::optional<std::string> FrameList() = 0;    // text for dbgFrameList
    virtual std::optional<std::string> ProfileList() = 0;  // text for dbgProfileList

    // Places to stop at. Ids are at least 0 and shared by breakpoints and watchpoints.
    virtual std::optional<int> SetBreakpoint(const std::string &file, int line, std::string &error) = 0;
    virtual bool DeleteBreakpoint(int id) = 0;
    struct Conditions {
        std::string condition;
        int conditionType = 0, hitValue = 0, hitType = 0;
    };
    virtual bool SetBreakpointConditions(int id, const Conditions &conditions, std::string &error) = 0;
    virtual std::optional<int> BreakpointHitCount(int id) = 0;
    virtual bool ResetBreakpointHitCount(int id) = 0;
    virtual std::optional<int> SetWatchpoint(const std::string &name, std::string &error) = 0;
    virtual bool DeleteWatchpoint(int id) = 0;

    // For plug-ins. A watched register or pin is told by each change, not at once.
    virtual bool SetClockRate(int hertz) = 0;
    virtual bool WatchRegister(int handle, bool on) = 0;
    virtual std::optional<int> ConnectPin(const std::string &pin) = 0;  // at least 1
    virtual bool ReleaseConnection(int connection) = 0;
    virtual bool SetConnectionV(int connection, double volts) = 0;
    virtual bool SetConnectionR(int connection, double ohms) = 0;
    virtual std::optional<double> PinV(int pin) = 0;
    virtual bool WatchPin(int pin, bool on) = 0;

    // A watched register or pin that has changed without a slice that told it: by a call, a reset, a step back. It
    // counts as told. Comes between two slices.
    struct Change {
        bool isPin = false;
        int handle = 0, value = 0;
        double volts = 0;
    };
    virtual std::optional<Change> TakeChange() = 0;

    // What isn't the target's but the user's, and stays as it is when the target goes back: breakpoints with their
    // conditions, watchpoints, watched registers and pins, connections with their voltages, all under their ids, and
    // the clock rate (hit counts go back with the target). What the session gives here, an earlier state of it takes
    // when it is woken.
    virtual std::string Settings() = 0;
    virtual void TakeSettings(const std::string &settings) = 0;
};

// A session with the chip that `target` names ("PIC16F628A", or a path whose file name is that); null with the reason
// in `error`. Called once in the life of a process.
std::unique_ptr<CSession> CreateSession(const std::string &target, std::string &error);
