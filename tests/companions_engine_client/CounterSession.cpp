// A chip that counts: each instruction adds one, its program counter is the count modulo 1000, and a breakpoint in line
// n stops it at the count n. A step goes one on. Some names do what a simulator shouldn't.
#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <sstream>

#include "Session.h"
#include "debugger/EngineApi.h"

namespace {

constexpr int64_t kSlice = 20000;

class CCounterSession : public CSession {
public:
    bool Load(const std::string &image, std::string &error) override {
        if (image.ends_with("bad.cof")) error = "No image: " + image;
        return !image.ends_with("bad.cof");
    }
    bool Reset(bool) override {
        count_ = 0;
        return true;
    }
    bool Start(RunKind kind) override {
        if (kind == RunKind::stepOut) return false;
        kind_ = kind;
        stopping_ = false;
        return true;
    }
    SliceEnd Slice(CSessionEvents &events) override {
        for (int64_t i = 0; i < kSlice && !stopping_; ++i) {
            const int address = static_cast<int>(count_ % 1000);
            ++count_;
            if (count_ % 4096 == 0) memory_[count_ / 4096 % memory_.size()] = 1;
            if (tells_) events.InstructionDone(address, count_);
            if (count_ % 1000 == 0 && watchedRegister_)
                events.RegisterChanged(watchedRegister_, static_cast<int>(count_ / 1000));
            if (count_ % 1000 == 0 && watchedPin_) events.PinChanged(watchedPin_, volts_ / 2);
            if (count_ == 500) events.Tell(kDbgText, "half a thousand");
            if (kind_ != RunKind::run) return {true, kDbgStopped};
            for (const auto &[id, line] : breakpoints_)
                if (line == count_) return {true, kDbgStopped};
        }
        return {stopping_, kDbgStopped};
    }
    void Stop() override { stopping_ = true; }
    void TellInstructions(bool on) override { tells_ = on; }
    SessionPlace Place() override {
        return {"\\counter.asm", static_cast<int>(count_), static_cast<int>(count_ % 1000)};
    }
    int64_t Cycles() override { return count_; }

    bool Evaluate(const std::string &expression, int format, std::string &text, std::string &error) override {
        if (expression == "crash") kill(getpid(), SIGSEGV);
        if (expression == "exit") exit(0);
        while (expression == "hang") pause();
        if (expression == "print") {
            puts("to the output");
            fflush(stdout);
            fputs("to the log\n", stderr);
        }
        if (expression == "long") text.assign(1000, 'x');
        if (expression == "count") text = std::to_string(count_) + (format == kDbgHex ? "h" : "");
        if (expression == "file") text = file_;
        if (text.empty()) error = "No such name: " + expression;
        return !text.empty();
    }
    bool Set(const std::string &name, int value, std::string &error) override {
        if (name == "count") count_ = value;
        error = "only count, not " + name;
        return name == "count";
    }
    std::optional<int> GetReg(int address) override {
        if (address < 0 || address > 255) return {};
        return registers_[static_cast<size_t>(address)];
    }
    bool SetReg(int address, int value) override {
        if (address < 0 || address > 255) return false;
        registers_[static_cast<size_t>(address)] = value;
        return true;
    }
    std::optional<uint16_t> RegNameToAddr(const std::string &name) override {
        if (name == "TOP") return uint16_t{0xFFF0};
        return {};
    }
    std::optional<std::string> RegAddrToName(int) override { return std::string(300, 'N'); }
    std::optional<std::string> RegBits(const std::string &reg) override { return "bits of " + reg; }
    std::vector<uint8_t> RegisterMap() override { return {1, 0, 1}; }
    std::optional<int> SymbolToAddr(const std::string &) override { return {}; }
    int EepromSize() override { return 64; }
    std::optional<std::vector<uint8_t>> ReadEeprom(int address, int count) override {
        if (address < 0 || count < 0 || address + count > 64) return {};
        const auto begin = eeprom_.begin() + address;
        return std::vector<uint8_t>(begin, begin + count);
    }
    bool WriteEeprom(int address, const std::vector<uint8_t> &bytes) override {
        if (address < 0 || address + bytes.size() > eeprom_.size()) return false;
        std::copy(bytes.begin(), bytes.end(), eeprom_.begin() + address);
        return true;
    }
    std::optional<Line> PosToAddr(const std::string &file, int line) override {
        file_ = file;
        return Line{line % 1000, line + 1};
    }
    std::optional<SessionPlace> AddrToPos(int address) override {
        return SessionPlace{"\\counter.asm", address, address};
    }
    std::optional<std::string> FrameList() override { return "frames"; }
    std::optional<std::string> ProfileList() override { return std::string(200000, 'p'); }

    std::optional<int> SetBreakpoint(const std::string &, int line, std::string &) override {
        breakpoints_[++lastId_] = line;
        return lastId_;
    }
    bool DeleteBreakpoint(int id) override { return breakpoints_.erase(id) == 1; }
    bool SetBreakpointConditions(int, const Conditions &conditions, std::string &error) override {
        error = "no condition is known";
        return conditions.condition.empty();
    }
    std::optional<int> BreakpointHitCount(int) override { return 7; }
    bool ResetBreakpointHitCount(int) override { return true; }
    std::optional<int> SetWatchpoint(const std::string &, std::string &error) override {
        error = "nothing is watched";
        return {};
    }
    bool DeleteWatchpoint(int) override { return false; }

    bool WatchRegister(int handle, bool on) override {
        watchedRegister_ = on ? handle : 0;
        return handle > 0;
    }
    bool SetClockRate(int) override { return false; }
    std::optional<int> ConnectPin(const std::string &) override { return 1; }
    bool ReleaseConnection(int connection) override { return connection == 1; }
    bool SetConnectionV(int, double volts) override {
        volts_ = volts;
        return true;
    }
    bool SetConnectionR(int, double) override { return true; }
    std::optional<double> PinV(int) override { return volts_; }
    bool WatchPin(int pin, bool on) override {
        watchedPin_ = on ? pin : 0;
        return true;
    }

    std::optional<Change> TakeChange() override { return {}; }
    std::string Settings() override {
        std::ostringstream text;
        for (const auto &[id, line] : breakpoints_) text << id << ' ' << line << ' ';
        return text.str();
    }
    void TakeSettings(const std::string &settings) override {
        breakpoints_.clear();
        std::istringstream text(settings);
        for (int id, line; text >> id >> line; lastId_ = std::max(lastId_, id)) breakpoints_[id] = line;
    }

private:
    int64_t count_ = 0;
    RunKind kind_ = RunKind::run;
    bool stopping_ = false, tells_ = false;
    int watchedRegister_ = 0, watchedPin_ = 0, lastId_ = 0;
    double volts_ = 0;
    std::map<int, int> breakpoints_;  // line by id
    std::string file_;                // of the last PosToAddr
    std::vector<int> registers_ = std::vector<int>(256);
    std::vector<uint8_t> eeprom_ = std::vector<uint8_t>(64, 0xFF);
    std::vector<uint8_t> memory_ = std::vector<uint8_t>(1 << 20);  // some of what a simulator writes to
};

}  // namespace

std::unique_ptr<CSession> CreateSession(const std::string &target, std::string &error) {
    if (target == "COUNTER") return std::make_unique<CCounterSession>();
    error = "No such chip: " + target;
    return nullptr;
}
