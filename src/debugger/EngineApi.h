// The engine interface: what the simulator's two libraries export, "debugger.dll" (the chip and its run) and
// "dbgpars.dll" (readers of its text results).
//
// A debug run: DbgDLLInit gives a procedure that the caller runs on a thread of its own; DbgLoadFile; the three Set...
// calls; DbgPerformanceProfile; DbgReset, whose stop is the first to be told. Its end: the two Remove... calls, then
// DbgDLLCleanup, at which the procedure returns. All calls but the callbacks may come from any thread, also from within
// a callback; they are answered while the target runs, too. One run at a time in a process: DbgDLLInit fails while
// there is one.
//
// The chip lives in a process of its own ("simhost.exe" of the program directory). Should that end or hang, the calls
// fail, and the execution callback is told kDbgText with words for the user and, when a stop is awaited, kDbgStopped
// without a place; then the procedure returns. The run still ends with DbgDLLCleanup.
//
// Every Dbg call gives 0 on success, kDbgTooSmall where a buffer is too small for the text and its zero (nothing is
// written then, and the caller tries again with a larger one), anything else on failure. Texts are zero-terminated
// UTF-8. Names of files are in the Windows form; relative ones count from the current directory. Lines count from 1.
// Addresses are the chip's own: program memory in words, on PIC18 in bytes; data memory in bytes. Nothing is written to
// the standard output, and no call ends the process.
#pragma once

#include <cstdint>

inline constexpr int kDbgOk = 0, kDbgFailed = 1, kDbgTooSmall = 2;

// Why the execution callback is called.
enum DbgReason : int {
    kDbgStopped = 1,        // at a step's end, a breakpoint or the user's wish
    kDbgAfterReset = 3,
    kDbgAfterStepBack = 4,
    kDbgPlace = 5,          // a run has ended at a place to show
    kDbgNoteSleep = 6,      // the chip sleeps, or is held in reset, and nothing but a pin will wake it
    kDbgNoteStack = 7,      // stopped: its stack has run over or under; what begins there isn't stopped by it again
    kDbgBadMemory = 8,      // stopped: it has run off its program memory
    kDbgText = 100,         // `text` for the output list, as of the first reset by the program; null clears it
};

// Value formats of DbgEvaluate.
enum DbgFormat : int { kDbgDecimal = 0, kDbgBinary = 1, kDbgOctal = 2, kDbgHex = 3 };

// When a breakpoint's condition stops, and how its hits count; see DbgSetBreakpointConditions.
enum DbgCondition : int { kDbgNoCondition = 0, kDbgWhenChanged = 1, kDbgWhenTrue = 2 };
enum DbgHit : int { kDbgNoHit = 0, kDbgHitEqual = 1, kDbgHitMultiple = 2, kDbgHitAtLeast = 3 };

extern "C" {

// The callbacks come on the engine's thread; the target stands still meanwhile. `file` is empty and `line` 0 where no
// source is known; `address` is the program counter. `clk` counts instruction cycles since the reset, in 32 bits.
using DbgExecutionFn = void(int reason, const char *file, int line, int address, const char *text, void *user);
using DbgClockFn = void(int passed, int clk, void *user);  // `passed`: cycles since the last such call
using DbgInstFn = void(int address, int clk, void *user);  // behind each instruction; `address`: of that instruction

// `proc` and `param` come out: void proc(void *param), to be run on a new thread; null is failure. `target` is the path
// or the bare name of the chip's description ("PIC16F628A"); `callback` serves until DbgSetExecutionChangeCallback;
// `frame` is not looked at.
using DbgDLLInitFn = int(void **proc, void **param, const char *target, DbgExecutionFn *callback, void *frame);

// Safe to repeat, without a run, while the target runs, and from within a callback. Doesn't wait for a callback that is
// being made; behind that one none comes and the procedure returns. The library stays loaded until it has.
using DbgDLLCleanupFn = int();
using DbgLoadFileFn = int(const char *image);
// Why the last of these calls has failed, in words for the user; empty when it hasn't: DbgDLLInit, DbgLoadFile, DbgSet,
// DbgSetBreakpointByLine, DbgSetBreakpointConditions, DbgSetWatchpoint, DbgStepOut, DbgStepBack.
using DbgGetErrorTextFn = int(char *buffer, int size);
using DbgSetExecutionChangeCallbackFn = int(DbgExecutionFn *fn, void *user);

// With the profile off, the clock callback comes some times a second while the target runs, and before each stop; with
// it on, both callbacks come for each instruction. Behind the stop of a step back it tells the time that holds again.
using DbgSetClkCallBackFn = int(DbgClockFn *fn, void *user);
// Only the pair that was set can be removed. A call that is being made meanwhile goes on to its end.
using DbgRemoveClkCallBackFn = int(DbgClockFn *fn, void *user);
using DbgSetInstCallBackFn = int(DbgInstFn *fn, void *user);
using DbgRemoveInstCallBackFn = int(DbgInstFn *fn, void *user);
using DbgPerformanceProfileFn = int(int on);

// Accepted (0) or refused; the stop comes as a callback: DbgReset, DbgPowerOnReset, DbgRun, DbgStop, DbgStepInto,
// DbgStepIntoInstr, DbgStepOver, DbgStepOverInstr, DbgStepOut, DbgStepBack. All but DbgStop are refused while the
// target runs, and DbgStop while it doesn't. The target runs until the stop is told.
//
// DbgStepBack takes back the last of the others, a reset too, up to 100 times; it is refused where there is nothing to
// take back. Breakpoints, watchpoints, connections and change callbacks stay as they are.
//
// A step by source line ends at the first address of another line's code, or of a line at another depth of the stack; a
// line that loops is run through, a jump to itself ends the step. Code without source is stepped over, or by
// instruction where the step begins in it. Interrupts are passed over, but by DbgStepIntoInstr; breakpoints and
// watchpoints stop in all that is passed over. DbgStepOut stops behind the return and is refused with an empty stack. A
// step ends where the program or a watchdog resets the chip; a run goes on.
using DbgCommandFn = int();

// `expression` is a name or an expression of C over names: symbols of the image, "$NAME" a register, "$%d" a byte of
// data memory by its address, "$pc". "_registers" gives the text of all registers for dbgSymbolValue, of at most 4,094
// bytes. `error`, which may be null, takes at least 256 bytes.
using DbgEvaluateFn = int(const char *expression, char *buffer, int size, int format, char *error);
using DbgSetFn = int(const char *name, int value);

// Data memory by address; on enhanced mid-range chips by the linear one, from 0x2000 on, too.
using DbgGetRegFn = int(int address, int *value);
using DbgSetRegFn = int(int address, int value);
using DbgRegNameToAddrFn = int(const char *name, uint16_t *address);
using DbgRegAddrToNameFn = int(int address, char *buffer);  // at least 256 bytes
using DbgGetRegBitsFn = int(const char *reg, char *buffer, int size);  // a name or an address; text for dbgBitNames
using DbgValidateRegisterMapFn = int(uint8_t *map, int size);  // map[a] becomes 1 where address a can be read, else 0
using DbgSymbolToAddrFn = int(const char *name, int *address);

using DbgGetEepromSizeFn = int(int *bytes);
using DbgEepromValFn = int(int address, int count, uint8_t *bytes);  // DbgGet..., DbgSetEepromVal; 0 or 0x1BF00 on

using DbgPosToAddrFn = int(const char *file, int line, int *address, int *codeLine);  // the first line from `line` on
using DbgAddrToPosFn = int(int address, char *file, int size, int *line);
// DbgGetFrameList, DbgGetProfileList. The profile counts instruction cycles by function, from the first such call of a
// run on, and anew with each reset. Counting makes the target slower, so it pauses, with the sums as they are, once
// nobody has asked for about two seconds of a run, or between two stops; the next call goes on with it. All texts of a
// run have the same functions in the same order. A count has 32 bits: when the largest needs more, all are shifted
// right alike, so that their shares stay true.
using DbgGetListFn = int(char *buffer, int size);

using DbgSetBreakpointByLineFn = int(const char *file, int line, int *id);  // one that is there already gives its id
using DbgDeleteBreakpointFn = int(int id);

// Refused when the condition doesn't read or names what is neither in the image nor in the chip. A hit is an arrival at
// which the condition holds: is not 0, or has another value than at the arrival before (at first, than now). A
// condition without a value, as by a division by zero, stops and tells why as kDbgText. A multiple of 0 is each hit.
using DbgSetBreakpointConditionsFn = int(int id, const char *condition, int conditionType, int hitValue, int hitType);
using DbgGetBreakpointHitCountFn = int(int id, int *count);
using DbgResetBreakpointHitCountFn = int(int id);

// `name`: "$NAME", "$%d" or a symbol of data memory with all its bytes; one on the same bytes that is there already
// gives its id. "$W" is watched also where it has no address. Stops behind each instruction that writes there, also
// when the value stays, and behind what changes the value by itself: a timer, a pin, a flag. Of PCL, which each
// instruction moves, the writes of the program alone. Refused for what stands for another byte, as INDF.
using DbgSetWatchpointFn = int(const char *name, int *id);
using DbgDeleteWatchpointFn = int(int id);

// The rate of the chip's oscillator, 1,000 to 1,000,000,000 hertz, from DbgLoadFile on; 20 MHz when never set. By it
// the chip has what takes real time, as its watchdog, in cycles. Resets and steps back leave it. A chip that has chosen
// an inner oscillator, by its configuration or OSCCON, runs at that one's rate, if the simulator knows it.
using DbgSetClkRateFn = int(int hertz);

// For plug-ins.
//
// Change callbacks: with what the register or pin has come to, behind the instruction that has changed it, and as well
// when a call, a reset or a step back has. A value that has been there for less than an instruction isn't told.
// With a register's callback set the target runs slower.
//
// A pin is named "RB0" or "portb0", "GP3" or "gpio3", "MCLR", or by what it serves as at the time ("an0"), without
// regard to case. A connection is one side's wire to it: volts against ground, behind a resistance in ohms. It carries
// nothing until one of the two is set; then it has 0 V and 1,000 ohms as long as the other one isn't. 0 ohms is a firm
// hold, an infinite resistance lets go, a negative one is refused. Any number of connections may be on a pin: its
// voltage is what they and the chip's own side, an output of some 150 ohms or a weak pull-up, make of it together. An
// input reads its level off that voltage, and analog inputs measure it. What is released floats. MCLR is pulled up
// weakly on the board.
//
// A connection, from 1 on, is also the pin's handle for the voltage calls. It stays as it is, with its volts and ohms,
// through resets and steps back, and its number isn't given again.
using DbgRegChangeFn = void(int handle, int value, void *user);
using DbgRegChangeCallBackFn = int(int handle, DbgRegChangeFn *fn, void *user);  // DbgAdd..., DbgRemove...
using DbgMakeConnectionToPinFn = int(const char *pin, int *connection);
using DbgReleaseConnectionFn = int(int connection);
using DbgSetConnectionVFn = int(int connection, double volts);
using DbgSetConnectionRFn = int(int connection, double ohms);
using DbgGetPinVFn = int(int pin, double *volts);  // the pin by its connection; also while it runs
using DbgPinVChangeFn = void(int pin, double volts, void *user);
using DbgPinVChangeCallBackFn = int(int pin, DbgPinVChangeFn *fn, void *user);  // DbgAdd..., DbgRemove...
using DbgGetClkFn = int(int64_t *cycles);
using DbgSimLockFn = int();  // DbgSimLock, DbgSimUnlock: hold the target between two instructions; nest

// dbgpars.dll: each reads one text and calls `fn` for what it finds, with `user` as it stands. True when the whole text
// was read; of a text that can't be read nothing is told. `count` has the bits of a uint32_t, to be cast back; a larger
// one in the text is told as the largest.
using DbgFrameFn = void(int address, void *user);
using dbgFrameListFn = bool(const char *text, DbgFrameFn *fn, void *user);  // the innermost frame last
using DbgProfileFn = void(const char *name, int count, void *user);
using dbgProfileListFn = bool(const char *text, DbgProfileFn *fn, void *user);
using DbgBitFn = void(const char *name, int bit, void *user);
using dbgBitNamesFn = bool(const char *text, DbgBitFn *fn, void *user);
// A row of the register text: `parent` is what the call for the row above it gave, at first the number that the reader
// was called with; what it gives stands for this row. A `value` that begins with "?" can't be read.
using DbgOpenFn = int(int parent, const char *name, const char *value, void *user);
using DbgCloseFn = void(int row, void *user);  // all rows below it have been told
using dbgSymbolValueFn = bool(const char *text, int parent, DbgOpenFn *open, DbgCloseFn *close, void *user);
// A line that tells where a variable of a compiler lies: "name EQU 0x0020 ; bytes:2"; the size is 1 where it isn't
// told. `address` is below 65535, `size` 1 to 255; false, with nothing written, for any other line.
using dbgParseOrgStringFn = bool(const char *line, char *name, uint16_t *address, uint16_t *size);  // name: 256 bytes

}  // extern "C"
