#include "SessionCalls.h"

#include <climits>
#include <vector>

namespace {

constexpr int kLargestBlock = 65536;

using Reader = CMessageReader;
using Writer = CMessageWriter;
using Handler = bool(CSession &, Reader &, Writer &);

bool PutNumber(Writer &out, const auto &value) {
    if (value) out.PutNumber(*value);
    return value.has_value();
}

bool PutText(Writer &out, const std::optional<std::string> &text) {
    if (text) out.PutText(*text);
    return text.has_value();
}

bool Evaluate(CSession &session, Reader &in, Writer &out) {
    const std::string expression = in.Text();
    const int format = in.Int();
    std::string text, error;
    const bool good = session.Evaluate(expression, format, text, error);
    out.PutText(good ? text : error);
    return good;
}

// What a call has given; else why it gave nothing.
bool PutNumberOr(Writer &out, const std::optional<int> &value, const std::string &error) {
    value ? out.PutNumber(*value) : out.PutText(error);
    return value.has_value();
}

bool DoneOr(Writer &out, bool done, const std::string &error) {
    if (!done) out.PutText(error);
    return done;
}

bool Set(CSession &session, Reader &in, Writer &out) {
    const std::string name = in.Text();
    std::string error;
    const bool done = session.Set(name, in.Int(), error);
    return DoneOr(out, done, error);
}

bool GetReg(CSession &session, Reader &in, Writer &out) {
    return PutNumber(out, session.GetReg(in.Int()));
}

bool DataBlock(CSession &session, Reader &in, Writer &out) {
    const int first = in.Int(), count = in.Int();
    if (count < 0 || count > kLargestBlock || first > INT_MAX - count) return false;
    std::vector<uint8_t> values, known;
    for (int address = first; address < first + count; ++address) {
        const auto value = session.GetReg(address);
        values.push_back(static_cast<uint8_t>(value.value_or(0)));
        known.push_back(value ? 1 : 0);
    }
    out.PutBlock(values);
    out.PutBlock(known);
    return true;
}

bool SetReg(CSession &session, Reader &in, Writer &) {
    const int address = in.Int();
    return session.SetReg(address, in.Int());
}

bool RegNameToAddr(CSession &session, Reader &in, Writer &out) {
    return PutNumber(out, session.RegNameToAddr(in.Text()));
}

bool RegAddrToName(CSession &session, Reader &in, Writer &out) {
    return PutText(out, session.RegAddrToName(in.Int()));
}

bool RegBits(CSession &session, Reader &in, Writer &out) {
    return PutText(out, session.RegBits(in.Text()));
}

bool RegisterMap(CSession &session, Reader &, Writer &out) {
    out.PutBlock(session.RegisterMap());
    return true;
}

bool SymbolToAddr(CSession &session, Reader &in, Writer &out) {
    return PutNumber(out, session.SymbolToAddr(in.Text()));
}

bool EepromSize(CSession &session, Reader &, Writer &out) {
    out.PutNumber(session.EepromSize());
    return true;
}

bool ReadEeprom(CSession &session, Reader &in, Writer &out) {
    const int address = in.Int();
    const auto bytes = session.ReadEeprom(address, in.Int());
    if (bytes) out.PutBlock(*bytes);
    return bytes.has_value();
}

bool WriteEeprom(CSession &session, Reader &in, Writer &) {
    const int address = in.Int();
    return session.WriteEeprom(address, in.Block());
}

bool PosToAddr(CSession &session, Reader &in, Writer &out) {
    const std::string file = in.Text();
    const auto line = session.PosToAddr(file, in.Int());
    if (!line) return false;
    out.PutNumber(line->address);
    out.PutNumber(line->line);
    return true;
}

bool AddrToPos(CSession &session, Reader &in, Writer &out) {
    const auto place = session.AddrToPos(in.Int());
    if (!place) return false;
    out.PutText(place->file);
    out.PutNumber(place->line);
    return true;
}

bool FrameList(CSession &session, Reader &, Writer &out) {
    return PutText(out, session.FrameList());
}
bool ProfileList(CSession &session, Reader &, Writer &out) {
    return PutText(out, session.ProfileList());
}

bool SetBreakpoint(CSession &session, Reader &in, Writer &out) {
    const std::string file = in.Text();
    std::string error;
    const auto id = session.SetBreakpoint(file, in.Int(), error);
    return PutNumberOr(out, id, error);
}

bool DeleteBreakpoint(CSession &session, Reader &in, Writer &) {
    return session.DeleteBreakpoint(in.Int());
}

bool SetConditions(CSession &session, Reader &in, Writer &out) {
    const int id = in.Int();
    CSession::Conditions conditions;
    conditions.condition = in.Text();
    conditions.conditionType = in.Int();
    conditions.hitValue = in.Int();
    conditions.hitType = in.Int();
    std::string error;
    const bool done = session.SetBreakpointConditions(id, conditions, error);
    return DoneOr(out, done, error);
}

bool HitCount(CSession &session, Reader &in, Writer &out) {
    return PutNumber(out, session.BreakpointHitCount(in.Int()));
}
bool ResetHitCount(CSession &session, Reader &in, Writer &) {
    return session.ResetBreakpointHitCount(in.Int());
}
bool SetWatchpoint(CSession &session, Reader &in, Writer &out) {
    std::string error;
    const auto id = session.SetWatchpoint(in.Text(), error);
    return PutNumberOr(out, id, error);
}
bool DeleteWatchpoint(CSession &session, Reader &in, Writer &) {
    return session.DeleteWatchpoint(in.Int());
}

bool WatchRegister(CSession &session, Reader &in, Writer &) {
    const int handle = in.Int();
    return session.WatchRegister(handle, in.Int() != 0);
}

bool SetClockRate(CSession &session, Reader &in, Writer &) {
    return session.SetClockRate(in.Int());
}

bool ConnectPin(CSession &session, Reader &in, Writer &out) {
    return PutNumber(out, session.ConnectPin(in.Text()));
}
bool ReleaseConnection(CSession &session, Reader &in, Writer &) {
    return session.ReleaseConnection(in.Int());
}

bool SetConnectionV(CSession &session, Reader &in, Writer &) {
    const int connection = in.Int();
    return session.SetConnectionV(connection, in.Real());
}

bool SetConnectionR(CSession &session, Reader &in, Writer &) {
    const int connection = in.Int();
    return session.SetConnectionR(connection, in.Real());
}

bool PinV(CSession &session, Reader &in, Writer &out) {
    const auto volts = session.PinV(in.Int());
    if (volts) out.PutReal(*volts);
    return volts.has_value();
}

bool WatchPin(CSession &session, Reader &in, Writer &) {
    const int pin = in.Int();
    return session.WatchPin(pin, in.Int() != 0);
}

bool Cycles(CSession &session, Reader &, Writer &out) {
    out.PutNumber(session.Cycles());
    return true;
}

Handler *HandlerOf(Request request) {
    switch (request) {
        case Request::evaluate:
            return Evaluate;
        case Request::set:
            return Set;
        case Request::getReg:
            return GetReg;
        case Request::dataBlock:
            return DataBlock;
        case Request::setReg:
            return SetReg;
        case Request::regNameToAddr:
            return RegNameToAddr;
        case Request::regAddrToName:
            return RegAddrToName;
        case Request::regBits:
            return RegBits;
        case Request::registerMap:
            return RegisterMap;
        case Request::symbolToAddr:
            return SymbolToAddr;
        case Request::eepromSize:
            return EepromSize;
        case Request::readEeprom:
            return ReadEeprom;
        case Request::writeEeprom:
            return WriteEeprom;
        case Request::posToAddr:
            return PosToAddr;
        case Request::addrToPos:
            return AddrToPos;
        case Request::frameList:
            return FrameList;
        case Request::profileList:
            return ProfileList;
        case Request::setBreakpoint:
            return SetBreakpoint;
        case Request::deleteBreakpoint:
            return DeleteBreakpoint;
        case Request::setConditions:
            return SetConditions;
        case Request::hitCount:
            return HitCount;
        case Request::resetHitCount:
            return ResetHitCount;
        case Request::setWatchpoint:
            return SetWatchpoint;
        case Request::deleteWatchpoint:
            return DeleteWatchpoint;
        case Request::setClockRate:
            return SetClockRate;
        case Request::watchRegister:
            return WatchRegister;
        case Request::connectPin:
            return ConnectPin;
        case Request::releaseConnection:
            return ReleaseConnection;
        case Request::setConnectionV:
            return SetConnectionV;
        case Request::setConnectionR:
            return SetConnectionR;
        case Request::pinV:
            return PinV;
        case Request::watchPin:
            return WatchPin;
        case Request::cycles:
            return Cycles;
        default:
            return nullptr;
    }
}

}  // namespace

bool AskSession(CSession &session, Request request, CMessageReader &in, CMessageWriter &out) {
    Handler *const handler = HandlerOf(request);
    return handler && handler(session, in, out);
}
