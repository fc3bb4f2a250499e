#include "debugger/TypedValue.h"

#include <limits>

#include "app/IDEApp.h"
#include "debugger/ValueFormat.h"

namespace {

CDbgInterface &Debugger() {
    return CIDEApp::Get().debugger;
}

}  // namespace

std::optional<int64_t> ReadNumber(const std::string &name) {
    std::string text;
    return Debugger().Evaluate(name, text, kDecimal, nullptr) ? NumberOfAnswer(text, kDecimal) : std::nullopt;
}

bool SetTypedValue(const std::string &name, int64_t value, std::string &why) {
    if (value < std::numeric_limits<int32_t>::min() || value > std::numeric_limits<uint32_t>::max()) return false;
    const std::optional<int64_t> old = ReadNumber(name);
    if (!Debugger().SetValue(name, static_cast<int32_t>(value))) {
        why = Debugger().ErrorText();
        return false;
    }
    if (value >= 0 && value <= std::numeric_limits<uint8_t>::max()) return true;
    if (!IsCutOff(ReadNumber(name).value_or(value), value)) return true;
    if (old) Debugger().SetValue(name, static_cast<int32_t>(*old));
    return false;
}

bool IsCutOff(int64_t now, int64_t value) {
    for (const int bits : {8, 16, 24}) {
        const int64_t most = (int64_t{1} << bits) - 1;
        if (now == (value & most)) return value > most || value < -(most + 1) / 2;
    }
    return false;
}
