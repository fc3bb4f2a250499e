#include "StopSettings.h"

#include <algorithm>
#include <charconv>
#include <string_view>

namespace {

// Numbers end with a blank; a text has its length in front, so that it may hold anything.
class CWriter {
public:
    void Put(int64_t number) { text_ += std::to_string(number) + ' '; }
    void PutReal(double real) {
        char digits[32];
        text_.append(digits, std::to_chars(digits, digits + sizeof digits, real).ptr) += ' ';
    }
    void Put(const std::string &text) {
        Put(static_cast<int64_t>(text.size()));
        text_ += text;
    }
    std::string Take() { return std::move(text_); }

private:
    std::string text_;
};

class CReader {
public:
    explicit CReader(std::string_view text) : rest_(text) {}

    int64_t Number() { return Read<int64_t>(); }
    double Real() { return Read<double>(); }
    int Int() { return static_cast<int>(Number()); }
    size_t Count() {  // of parts that follow, each of a character at least
        int64_t count = Number();
        return count < 0 || static_cast<size_t>(count) > rest_.size() ? static_cast<size_t>(Fail())
                                                                      : static_cast<size_t>(count);
    }
    std::string Text() {
        std::string text(rest_.substr(0, Count()));
        rest_.remove_prefix(text.size());
        return text;
    }
    bool IsGood() const { return good_; }

private:
    template <typename Value>
    Value Read() {
        Value value = 0;
        auto [end, failure] = std::from_chars(rest_.data(), rest_.data() + rest_.size(), value);
        size_t length = static_cast<size_t>(end - rest_.data());
        if (failure != std::errc() || length == rest_.size() || rest_[length] != ' ') return static_cast<Value>(Fail());
        rest_.remove_prefix(length + 1);
        return value;
    }
    int64_t Fail() {
        good_ = false;
        rest_ = {};
        return 0;
    }

    std::string_view rest_;
    bool good_ = true;
};

}  // namespace

void TakeStops(const CBreakpoints &from, const CWatchpoints &watchpoints, StopSettings &settings) {
    for (const auto &[id, entry] : from.All())
        settings.breakpoints.push_back({id, entry.file, entry.line, entry.addresses, entry.rule});
    for (const auto &[id, entry] : watchpoints.All()) settings.watchpoints.emplace_back(id, entry.name);
}

void PutStops(const StopSettings &settings, CBreakpoints &breakpoints, CWatchpoints &watchpoints) {
    std::vector<int> gone;
    for (const auto &[id, entry] : breakpoints.All()) {
        if (std::none_of(settings.breakpoints.begin(), settings.breakpoints.end(),
                         [id = id](const auto &breakpoint) { return breakpoint.id == id; }))
            gone.push_back(id);
    }
    for (int id : gone) breakpoints.Delete(id);
    std::string error;
    for (const StopSettings::Breakpoint &breakpoint : settings.breakpoints) {
        breakpoints.Set(breakpoint.id, breakpoint.file, breakpoint.line, breakpoint.addresses);
        breakpoints.SetRule(breakpoint.id, breakpoint.rule, error);
    }
    watchpoints.Clear();
    for (const auto &[id, name] : settings.watchpoints) watchpoints.Set(id, name, error);
}

std::string WriteStopSettings(const StopSettings &settings) {
    CWriter out;
    out.Put(settings.nextId);
    out.Put(static_cast<int64_t>(settings.breakpoints.size()));
    for (const StopSettings::Breakpoint &breakpoint : settings.breakpoints) {
        out.Put(breakpoint.id);
        out.Put(breakpoint.file);
        out.Put(breakpoint.line);
        out.Put(static_cast<int64_t>(breakpoint.addresses.size()));
        for (uint32_t address : breakpoint.addresses) out.Put(address);
        out.Put(breakpoint.rule.condition);
        out.Put(breakpoint.rule.conditionType);
        out.Put(breakpoint.rule.hitValue);
        out.Put(breakpoint.rule.hitType);
    }
    out.Put(static_cast<int64_t>(settings.watchpoints.size()));
    for (const auto &[id, name] : settings.watchpoints) {
        out.Put(id);
        out.Put(name);
    }
    out.Put(static_cast<int64_t>(settings.registers.size()));
    for (const auto &[address, value] : settings.registers) {
        out.Put(address);
        out.Put(value);
    }
    out.Put(static_cast<int64_t>(settings.connections.size()));
    for (const auto &[id, connection] : settings.connections) {
        for (int64_t number : {id, connection.pin, int{connection.drives}, int{connection.watched}}) out.Put(number);
        for (double real : {connection.volts, connection.ohms, connection.told}) out.PutReal(real);
    }
    out.Put(settings.clockRate);
    return out.Take();
}

bool ReadStopSettings(const std::string &text, StopSettings &settings) {
    CReader in(text);
    StopSettings read;
    read.nextId = in.Int();
    for (size_t count = in.Count(); count > 0 && in.IsGood(); count--) {
        StopSettings::Breakpoint &breakpoint = read.breakpoints.emplace_back();
        breakpoint.id = in.Int();
        breakpoint.file = in.Text();
        breakpoint.line = in.Int();
        for (size_t left = in.Count(); left > 0 && in.IsGood(); left--)
            breakpoint.addresses.push_back(static_cast<uint32_t>(in.Number()));
        breakpoint.rule.condition = in.Text();
        breakpoint.rule.conditionType = in.Int();
        breakpoint.rule.hitValue = in.Int();
        breakpoint.rule.hitType = in.Int();
    }
    for (size_t count = in.Count(); count > 0 && in.IsGood(); count--) {
        int id = in.Int();
        read.watchpoints.emplace_back(id, in.Text());
    }
    for (size_t count = in.Count(); count > 0 && in.IsGood(); count--) {
        const auto address = static_cast<uint32_t>(in.Number());
        read.registers[address] = static_cast<uint8_t>(in.Number());
    }
    for (size_t count = in.Count(); count > 0 && in.IsGood(); count--) {
        Connection &connection = read.connections[in.Int()];
        connection.pin = in.Int();
        connection.drives = in.Int() != 0;
        connection.watched = in.Int() != 0;
        connection.volts = in.Real();
        connection.ohms = in.Real();
        connection.told = in.Real();
    }
    read.clockRate = in.Int();
    if (!in.IsGood()) return false;
    settings = std::move(read);
    return true;
}
