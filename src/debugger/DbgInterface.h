// The adapter to the simulation engine, "debugger.dll" and "dbgpars.dll": starts and loads it, turns its callbacks into
// what the rest of the program sees, and converts between the editor's world (lines from 0, names as the project has
// them) and the engine's (lines from 1, full names).
#pragma once

#include <cstdint>
#include <functional>
#include <list>
#include <memory>
#include <string>
#include <thread>

#include "debugger/Engine.h"
#include "debugger/VariableTable.h"

class CDebugNotices;

// Every bool means that the engine answered 0. Main thread, except for the engine's callbacks.
class CDbgInterface {
public:
    CDbgInterface();
    virtual ~CDbgInterface();
    CDbgInterface(const CDbgInterface &) = delete;
    CDbgInterface &operator=(const CDbgInterface &) = delete;

    // Starts the engine for the active project's chip on its own thread, loads the image and resets the chip; the first
    // stop is told behind that. False, with the engine cleaned up and in most cases with the reason in the build list,
    // when a run can't begin.
    bool Init(const std::string &image);
    bool Run();           // snapshot of the plug-ins, then lets the target run
    bool EndCallbacks();  // those of clock and instructions; false: the engine refused
    bool DLLCleanup();    // ends the engine and waits for its thread; false: the engine refused, or there is none

    // The value of `name` as text, in value format `format` (see ValueFormat.h). A name that only the variable table
    // knows is read byte by byte, with "#" in front of the text. `errorText`, which may be null, gets the engine's
    // words for a failure. False, with `text` as it was, for what can't be evaluated.
    bool Evaluate(const std::string &name, std::string &text, int format, std::string *errorText) const;
    bool SetValue(const std::string &name, int32_t value);
    bool RegNameToAddr(const std::string &name, uint16_t &address) const;
    const CVariableTable &Variables() const { return variables_; }

    bool SetBreakpoint(const std::string &file, int line, int &id);  // line from 0
    bool SetBreakpointConditions(int id, const std::string &condition, int conditionType, int hitValue, int hitType);
    std::string ErrorText() const;  // the engine's words for its last failure, if it has any
    void SetClockRate(int hertz);   // of the simulated chip; nothing where the engine has no clock

    bool PosToAddr(const std::string &file, int line, int &address, int &codeLine) const;  // lines from 0; -1 none
    bool AddrToPos(int address, std::string &file, int &line) const;      // line as the engine gives it, from 1
    bool AddrToPosText(int address, std::string &file, int &line) const;  // the same for names of any length

    bool GetFrameList(std::list<std::string> &frames) const;  // "0x%04X" each, the innermost last
    // Calls `entry` for each function, in the engine's order. False, perhaps behind some calls, when it can't be read.
    bool GetProfileList(const std::function<void(const std::string &name, uint32_t count)> &entry) const;

    CDebugNotices *Notices() const { return notices_.get(); }  // of the last run; null before the first

    // Calls an entry point as it stands: debugger.Call(&EngineCalls::DbgStop). kDbgFailed when it isn't there.
    template <typename Fn, typename... Arguments>
    int Call(Fn *EngineCalls::*entry, Arguments... arguments) const {
        return engine_.Call(entry, arguments...);
    }
    uint64_t CallCount() const { return engine_.CallCount(); }  // every call to the engine takes this one road
    // Reads a text of the engine's: debugger.Read(&EngineReaders::dbgBitNames, text, fn, user). False when it can't be.
    template <typename Fn, typename... Arguments>
    bool Read(Fn *EngineReaders::*reader, Arguments... arguments) const {
        return engine_.Read(reader, arguments...);
    }

private:
    bool Begin(const std::string &target, const std::string &image);
    bool StartThread(void *proc, void *param);  // false when the system gives none
    bool SetUpRun();
    void FillVariables(const std::string &image);

    static void OnExecution(int reason, const char *file, int line, int address, const char *text, void *user);
    static void OnClock(int passed, int clk, void *user);
    static void OnInstruction(int address, int clk, void *user);

    CEngine engine_;
    CVariableTable variables_;
    std::unique_ptr<CDebugNotices> notices_;
    std::thread thread_;
};
