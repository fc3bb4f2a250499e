// The exports of debugger.dll that ask for and set values, places and stops, and those for plug-ins.
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "CurrentRun.h"
#include "platform/PathCalls.h"

namespace {

struct Name {
    const char *text;
};
// A file as the process can find it, which has a current directory of its own.
struct File {
    const char *name;
};
struct Bytes {
    std::span<const uint8_t> bytes;
};

void PutOne(CMessageWriter &out, int value) {
    out.PutNumber(value);
}
void PutOne(CMessageWriter &out, double value) {
    out.PutReal(value);
}
void PutOne(CMessageWriter &out, Name name) {
    out.PutText(name.text);
}
void PutOne(CMessageWriter &out, File file) {
    out.PutText(*file.name ? GetFullPathNameA(file.name) : std::string());
}
void PutOne(CMessageWriter &out, Bytes bytes) {
    out.PutBlock(bytes.bytes);
}

void TakeOne(CMessageReader &in, int &value) {
    value = in.Int();
}
void TakeOne(CMessageReader &in, int64_t &value) {
    value = in.Number();
}
void TakeOne(CMessageReader &in, uint16_t &value) {
    value = static_cast<uint16_t>(in.Number());
}
void TakeOne(CMessageReader &in, double &value) {
    value = in.Real();
}
void TakeOne(CMessageReader &in, std::string &value) {
    value = in.Text();
}
void TakeOne(CMessageReader &in, std::vector<uint8_t> &value) {
    value = in.Block();
}

bool IsGiven(Name name) {
    return name.text != nullptr;
}
bool IsGiven(File file) {
    return file.name != nullptr;
}
template <typename Value>
bool IsGiven(const Value &) {
    return true;
}

// A call without a result: failed when an argument is a null pointer.
template <typename... Arguments>
int Tell(Request request, const Arguments &...arguments) {
    if (!(IsGiven(arguments) && ...)) return kDbgFailed;
    return OnRun([&](CRun &run) {
        return Answer(run.Ask(request, [&](CMessageWriter &out) { (PutOne(out, arguments), ...); }));
    });
}

// A call with one result, which stays as it is when the call fails.
template <typename Result, typename... Arguments>
int Ask(Request request, Result *result, const Arguments &...arguments) {
    if (!result || !(IsGiven(arguments) && ...)) return kDbgFailed;
    return OnRun([&](CRun &run) {
        return Answer(run.Ask(
            request, [&](CMessageWriter &out) { (PutOne(out, arguments), ...); },
            [&](CMessageReader &in) { TakeOne(in, *result); }));
    });
}

// The low-power chips of the enhanced family are shown with their EEPROM at this address. No chip has as much of it.
int EepromAddress(int address) {
    constexpr int kLowPowerBase = 0x1BF00;
    return address >= kLowPowerBase ? address - kLowPowerBase : address;
}

// What a call has read, if it has.
template <typename Value>
int Give(const std::optional<int> &read, Value &value) {
    if (read) value = static_cast<Value>(*read);
    return Answer(read.has_value());
}

// A call whose failure has words for the user. `take` gets its results.
template <typename... Arguments>
int AskWithWords(Request request, const CRun::Take &take, const Arguments &...arguments) {
    if (!(IsGiven(arguments) && ...)) return kDbgFailed;
    std::string words = "There is no debug run.";
    const int answer = OnRun([&](CRun &run) {
        words = "The simulator doesn't answer.";
        return Answer(run.Ask(
            request, [&](CMessageWriter &out) { (PutOne(out, arguments), ...); }, take,
            [&](CMessageReader &in) { words = in.Text(); }));
    });
    KeepError(answer == kDbgOk ? std::string() : words);
    return answer;
}

// A call with a text for a buffer of the caller.
template <typename... Arguments>
int AskText(Request request, char *buffer, int size, const Arguments &...arguments) {
    std::string text;
    const int answer = Ask(request, &text, arguments...);
    return answer == kDbgOk ? GiveText(text, buffer, size) : answer;
}

}  // namespace

ENGINE_EXPORT int DbgEvaluate(const char *expression, char *buffer, int size, int format, char *error) {
    if (!expression || !buffer) return kDbgFailed;
    return OnRun([&](CRun &run) {
        std::string text, words = "The simulator doesn't answer.";
        const bool good = run.Ask(
            Request::evaluate,
            [&](CMessageWriter &out) {
                out.PutText(expression);
                out.PutNumber(format);
            },
            [&](CMessageReader &in) { text = in.Text(); }, [&](CMessageReader &in) { words = in.Text(); });
        if (good) return GiveText(text, buffer, size);
        if (error) GiveShortText(words, error);
        return kDbgFailed;
    });
}

ENGINE_EXPORT int DbgSet(const char *name, int value) {
    return AskWithWords(Request::set, {}, Name{name}, value);
}

ENGINE_EXPORT int DbgGetReg(int address, int *value) {
    if (!value) return kDbgFailed;
    return OnRun([&](CRun &run) { return Give(run.ReadData(address), *value); });
}
ENGINE_EXPORT int DbgSetReg(int address, int value) {
    return Tell(Request::setReg, address, value);
}

ENGINE_EXPORT int DbgRegNameToAddr(const char *name, uint16_t *address) {
    return Ask(Request::regNameToAddr, address, Name{name});
}

ENGINE_EXPORT int DbgRegAddrToName(int address, char *buffer) {
    std::string name;
    if (!buffer || Ask(Request::regAddrToName, &name, address) != kDbgOk) return kDbgFailed;
    GiveShortText(name, buffer);
    return kDbgOk;
}

ENGINE_EXPORT int DbgGetRegBits(const char *reg, char *buffer, int size) {
    return AskText(Request::regBits, buffer, size, Name{reg});
}

ENGINE_EXPORT int DbgValidateRegisterMap(uint8_t *map, int size) {
    std::vector<uint8_t> known;
    if (!map || size < 0 || Ask(Request::registerMap, &known) != kDbgOk) return kDbgFailed;
    for (size_t i = 0; i < static_cast<size_t>(size); ++i) map[i] = i < known.size() ? known[i] : 0;
    return kDbgOk;
}

ENGINE_EXPORT int DbgSymbolToAddr(const char *name, int *address) {
    return Ask(Request::symbolToAddr, address, Name{name});
}

ENGINE_EXPORT int DbgGetEepromSize(int *bytes) {
    return Ask(Request::eepromSize, bytes);
}

ENGINE_EXPORT int DbgGetEepromVal(int address, int count, uint8_t *bytes) {
    if (!bytes || count < 0) return kDbgFailed;
    address = EepromAddress(address);
    if (count == 1) return OnRun([&](CRun &run) { return Give(run.ReadEeprom(address), *bytes); });
    std::vector<uint8_t> read;
    if (Ask(Request::readEeprom, &read, address, count) != kDbgOk) return kDbgFailed;
    if (read.size() != static_cast<size_t>(count)) return kDbgFailed;
    std::copy(read.begin(), read.end(), bytes);
    return kDbgOk;
}

ENGINE_EXPORT int DbgSetEepromVal(int address, int count, uint8_t *bytes) {
    if (!bytes || count < 0) return kDbgFailed;
    return Tell(Request::writeEeprom, EepromAddress(address), Bytes{{bytes, static_cast<size_t>(count)}});
}

ENGINE_EXPORT int DbgPosToAddr(const char *file, int line, int *address, int *codeLine) {
    if (!file || !address || !codeLine) return kDbgFailed;
    return OnRun([&](CRun &run) {
        return Answer(run.Ask(
            Request::posToAddr,
            [&](CMessageWriter &out) {
                PutOne(out, File{file});
                out.PutNumber(line);
            },
            [&](CMessageReader &in) {
                *address = in.Int();
                *codeLine = in.Int();
            }));
    });
}

ENGINE_EXPORT int DbgAddrToPos(int address, char *file, int size, int *line) {
    if (!file || !line) return kDbgFailed;
    return OnRun([&](CRun &run) {
        std::string name;
        int found = 0;
        const bool good = run.Ask(
            Request::addrToPos, [&](CMessageWriter &out) { out.PutNumber(address); },
            [&](CMessageReader &in) {
                name = in.Text();
                found = in.Int();
            });
        const int answer = good ? GiveText(name, file, size) : kDbgFailed;
        if (answer == kDbgOk) *line = found;
        return answer;
    });
}

ENGINE_EXPORT int DbgGetFrameList(char *buffer, int size) {
    return AskText(Request::frameList, buffer, size);
}
ENGINE_EXPORT int DbgGetProfileList(char *buffer, int size) {
    return AskText(Request::profileList, buffer, size);
}

ENGINE_EXPORT int DbgSetBreakpointByLine(const char *file, int line, int *id) {
    if (!id) return kDbgFailed;
    return AskWithWords(
        Request::setBreakpoint, [&](CMessageReader &in) { *id = in.Int(); }, File{file}, line);
}

ENGINE_EXPORT int DbgDeleteBreakpoint(int id) {
    return Tell(Request::deleteBreakpoint, id);
}

ENGINE_EXPORT int DbgSetBreakpointConditions(int id, const char *condition, int conditionType, int hitValue,
                                             int hitType) {
    return AskWithWords(Request::setConditions, {}, id, Name{condition ? condition : ""}, conditionType, hitValue,
                        hitType);
}

ENGINE_EXPORT int DbgGetBreakpointHitCount(int id, int *count) {
    return Ask(Request::hitCount, count, id);
}
ENGINE_EXPORT int DbgResetBreakpointHitCount(int id) {
    return Tell(Request::resetHitCount, id);
}
ENGINE_EXPORT int DbgSetWatchpoint(const char *name, int *id) {
    if (!id) return kDbgFailed;
    return AskWithWords(
        Request::setWatchpoint, [&](CMessageReader &in) { *id = in.Int(); }, Name{name});
}
ENGINE_EXPORT int DbgDeleteWatchpoint(int id) {
    return Tell(Request::deleteWatchpoint, id);
}

ENGINE_EXPORT int DbgAddRegChangeCallBack(int handle, DbgRegChangeFn *fn, void *user) {
    return OnRun([&](CRun &run) {
        return Answer(run.AddChange(Request::watchRegister, ChangeCallback<DbgRegChangeFn>{handle, fn, user}));
    });
}

ENGINE_EXPORT int DbgRemoveRegChangeCallBack(int handle, DbgRegChangeFn *fn, void *user) {
    return OnRun([&](CRun &run) {
        return Answer(run.RemoveChange(Request::watchRegister, ChangeCallback<DbgRegChangeFn>{handle, fn, user}));
    });
}

ENGINE_EXPORT int DbgMakeConnectionToPin(const char *pin, int *connection) {
    return Ask(Request::connectPin, connection, Name{pin});
}

ENGINE_EXPORT int DbgReleaseConnection(int connection) {
    return Tell(Request::releaseConnection, connection);
}
ENGINE_EXPORT int DbgSetConnectionV(int connection, double volts) {
    return Tell(Request::setConnectionV, connection, volts);
}
ENGINE_EXPORT int DbgSetConnectionR(int connection, double ohms) {
    return Tell(Request::setConnectionR, connection, ohms);
}
ENGINE_EXPORT int DbgGetPinV(int pin, double *volts) {
    return Ask(Request::pinV, volts, pin);
}

ENGINE_EXPORT int DbgAddPinVChangeCallBack(int pin, DbgPinVChangeFn *fn, void *user) {
    return OnRun([&](CRun &run) {
        return Answer(run.AddChange(Request::watchPin, ChangeCallback<DbgPinVChangeFn>{pin, fn, user}));
    });
}

ENGINE_EXPORT int DbgRemovePinVChangeCallBack(int pin, DbgPinVChangeFn *fn, void *user) {
    return OnRun([&](CRun &run) {
        return Answer(run.RemoveChange(Request::watchPin, ChangeCallback<DbgPinVChangeFn>{pin, fn, user}));
    });
}

ENGINE_EXPORT int DbgGetClk(int64_t *cycles) {
    return Ask(Request::cycles, cycles);
}
ENGINE_EXPORT int DbgSetClkRate(int hertz) {
    return Tell(Request::setClockRate, hertz);
}

namespace {

// The exports have the types that the contract gives them.
[[maybe_unused]] constexpr DbgEvaluateFn *kEvaluate = &DbgEvaluate;
[[maybe_unused]] constexpr DbgSetFn *kSet = &DbgSet;
[[maybe_unused]] constexpr DbgGetRegFn *kGetReg = &DbgGetReg;
[[maybe_unused]] constexpr DbgSetRegFn *kSetReg = &DbgSetReg;
[[maybe_unused]] constexpr DbgRegNameToAddrFn *kNameToAddr = &DbgRegNameToAddr;
[[maybe_unused]] constexpr DbgRegAddrToNameFn *kAddrToName = &DbgRegAddrToName;
[[maybe_unused]] constexpr DbgGetRegBitsFn *kBits = &DbgGetRegBits;
[[maybe_unused]] constexpr DbgValidateRegisterMapFn *kMap = &DbgValidateRegisterMap;
[[maybe_unused]] constexpr DbgSymbolToAddrFn *kSymbol = &DbgSymbolToAddr;
[[maybe_unused]] constexpr DbgGetEepromSizeFn *kEepromSize = &DbgGetEepromSize;
[[maybe_unused]] constexpr DbgEepromValFn *kEeprom[] = {&DbgGetEepromVal, &DbgSetEepromVal};
[[maybe_unused]] constexpr DbgPosToAddrFn *kPosToAddr = &DbgPosToAddr;
[[maybe_unused]] constexpr DbgAddrToPosFn *kAddrToPos = &DbgAddrToPos;
[[maybe_unused]] constexpr DbgGetListFn *kLists[] = {&DbgGetFrameList, &DbgGetProfileList};
[[maybe_unused]] constexpr DbgSetBreakpointByLineFn *kBreak = &DbgSetBreakpointByLine;
[[maybe_unused]] constexpr DbgSetBreakpointConditionsFn *kConditions = &DbgSetBreakpointConditions;
[[maybe_unused]] constexpr DbgGetBreakpointHitCountFn *kHits = &DbgGetBreakpointHitCount;
[[maybe_unused]] constexpr DbgSetWatchpointFn *kWatch = &DbgSetWatchpoint;
[[maybe_unused]] constexpr DbgDeleteBreakpointFn *kById[] = {&DbgDeleteBreakpoint, &DbgResetBreakpointHitCount,
                                                             &DbgDeleteWatchpoint, &DbgReleaseConnection};
[[maybe_unused]] constexpr DbgRegChangeCallBackFn *kRegChange[] = {&DbgAddRegChangeCallBack,
                                                                   &DbgRemoveRegChangeCallBack};
[[maybe_unused]] constexpr DbgPinVChangeCallBackFn *kPinChange[] = {&DbgAddPinVChangeCallBack,
                                                                    &DbgRemovePinVChangeCallBack};
[[maybe_unused]] constexpr DbgMakeConnectionToPinFn *kConnect = &DbgMakeConnectionToPin;
[[maybe_unused]] constexpr DbgSetConnectionVFn *kSetV = &DbgSetConnectionV;
[[maybe_unused]] constexpr DbgGetPinVFn *kPinV = &DbgGetPinV;
[[maybe_unused]] constexpr DbgGetClkFn *kClk = &DbgGetClk;
[[maybe_unused]] constexpr DbgSetClkRateFn *kClkRate = &DbgSetClkRate;

}  // namespace
