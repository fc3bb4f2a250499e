// The engine's two libraries, "debugger.dll" and "dbgpars.dll" of the program directory, as loaded.
#pragma once

#include <atomic>
#include <cstdint>

#include "debugger/EngineApi.h"
#include "platform/SharedLibrary.h"

// The entry points that are called here, each with its type. What a library doesn't export stays null.
#define DEBUGGER_CALLS(CALL)                                          \
    CALL(DbgDLLInit, DbgDLLInitFn)                                    \
    CALL(DbgDLLCleanup, DbgDLLCleanupFn)                              \
    CALL(DbgLoadFile, DbgLoadFileFn)                                  \
    CALL(DbgGetErrorText, DbgGetErrorTextFn)                          \
    CALL(DbgSetExecutionChangeCallback, DbgSetExecutionChangeCallbackFn) \
    CALL(DbgSetClkCallBack, DbgSetClkCallBackFn)                      \
    CALL(DbgRemoveClkCallBack, DbgRemoveClkCallBackFn)                \
    CALL(DbgSetInstCallBack, DbgSetInstCallBackFn)                    \
    CALL(DbgRemoveInstCallBack, DbgRemoveInstCallBackFn)              \
    CALL(DbgPerformanceProfile, DbgPerformanceProfileFn)              \
    CALL(DbgSetClkRate, DbgSetClkRateFn)                              \
    CALL(DbgReset, DbgCommandFn)                                      \
    CALL(DbgPowerOnReset, DbgCommandFn)                               \
    CALL(DbgRun, DbgCommandFn)                                        \
    CALL(DbgStop, DbgCommandFn)                                       \
    CALL(DbgStepInto, DbgCommandFn)                                   \
    CALL(DbgStepIntoInstr, DbgCommandFn)                              \
    CALL(DbgStepOver, DbgCommandFn)                                   \
    CALL(DbgStepOverInstr, DbgCommandFn)                              \
    CALL(DbgStepOut, DbgCommandFn)                                    \
    CALL(DbgStepBack, DbgCommandFn)                                   \
    CALL(DbgEvaluate, DbgEvaluateFn)                                  \
    CALL(DbgSet, DbgSetFn)                                            \
    CALL(DbgGetReg, DbgGetRegFn)                                      \
    CALL(DbgSetReg, DbgSetRegFn)                                      \
    CALL(DbgRegNameToAddr, DbgRegNameToAddrFn)                        \
    CALL(DbgRegAddrToName, DbgRegAddrToNameFn)                        \
    CALL(DbgGetRegBits, DbgGetRegBitsFn)                              \
    CALL(DbgValidateRegisterMap, DbgValidateRegisterMapFn)            \
    CALL(DbgSymbolToAddr, DbgSymbolToAddrFn)                          \
    CALL(DbgGetEepromSize, DbgGetEepromSizeFn)                        \
    CALL(DbgGetEepromVal, DbgEepromValFn)                             \
    CALL(DbgSetEepromVal, DbgEepromValFn)                             \
    CALL(DbgPosToAddr, DbgPosToAddrFn)                                \
    CALL(DbgAddrToPos, DbgAddrToPosFn)                                \
    CALL(DbgGetFrameList, DbgGetListFn)                               \
    CALL(DbgGetProfileList, DbgGetListFn)                             \
    CALL(DbgSetBreakpointByLine, DbgSetBreakpointByLineFn)            \
    CALL(DbgDeleteBreakpoint, DbgDeleteBreakpointFn)                  \
    CALL(DbgSetBreakpointConditions, DbgSetBreakpointConditionsFn)    \
    CALL(DbgGetBreakpointHitCount, DbgGetBreakpointHitCountFn)        \
    CALL(DbgResetBreakpointHitCount, DbgResetBreakpointHitCountFn)    \
    CALL(DbgSetWatchpoint, DbgSetWatchpointFn)                        \
    CALL(DbgDeleteWatchpoint, DbgDeleteWatchpointFn)

#define READER_CALLS(CALL)                   \
    CALL(dbgFrameList, dbgFrameListFn)       \
    CALL(dbgProfileList, dbgProfileListFn)   \
    CALL(dbgBitNames, dbgBitNamesFn)         \
    CALL(dbgSymbolValue, dbgSymbolValueFn)   \
    CALL(dbgParseOrgString, dbgParseOrgStringFn)

#define DECLARE_CALL(name, type) type *name = nullptr;
struct EngineCalls {
    DEBUGGER_CALLS(DECLARE_CALL)
};
struct EngineReaders {
    READER_CALLS(DECLARE_CALL)
};
#undef DECLARE_CALL

class CEngine {
public:
    bool Load();  // both libraries; true when they are loaded already
    void Free();  // only when no thread is in them
    bool IsLoaded() const { return debugger_.IsLoaded(); }

    // The engine's answer to an entry point; kDbgFailed where it isn't there.
    template <typename Fn, typename... Arguments>
    int Call(Fn *EngineCalls::*entry, Arguments... arguments) const {
        Fn *const fn = calls_.*entry;
        ++callCount_;
        return fn ? fn(arguments...) : kDbgFailed;
    }
    uint64_t CallCount() const { return callCount_; }  // of all of them: what a refresh of the views costs

    // A reader's result; false where it isn't there.
    template <typename Fn, typename... Arguments>
    bool Read(Fn *EngineReaders::*reader, Arguments... arguments) const {
        Fn *const fn = readers_.*reader;
        return fn && fn(arguments...);
    }

private:
    CSharedLibrary debugger_, parser_;
    EngineCalls calls_;
    EngineReaders readers_;
    mutable std::atomic<uint64_t> callCount_ = 0;
};
