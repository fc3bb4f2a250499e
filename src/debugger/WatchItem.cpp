#include "debugger/WatchItem.h"

#include <charconv>
#include <limits>

#include "app/IDEApp.h"
#include "app/StringIds.h"
#include "debugger/TypedValue.h"
#include "debugger/TypedValueMessages.h"
#include "debugger/ValueFormat.h"
#include "framework/Language.h"
#include "platform/PathCalls.h"

namespace {

CDbgInterface &Debugger() {
    return CIDEApp::Get().debugger;
}

bool SetByte(int address, uint64_t value) {
    return Debugger().Call(&EngineCalls::DbgSetReg, address, static_cast<int>(value)) == kDbgOk;
}

// The address that `digits` is as a whole; -1 when it is none.
int AddressOf(std::string_view digits) {
    int address = -1;
    const auto [end, failure] = std::from_chars(digits.data(), digits.data() + digits.size(), address);
    return failure == std::errc() && end == digits.data() + digits.size() ? address : -1;
}

}  // namespace

CWatchItem::CWatchItem(std::string expression, int format, std::function<void()> onWritten)
    : CPropTreeItemEdit(std::move(expression)), onWritten_(std::move(onWritten)) {
    value_.format = format;
}

void CWatchItem::SetExpression(std::string expression) {
    SetLabel(std::move(expression));
    Blank();
}

void CWatchItem::SetFormat(int format) {
    if (value_.format == format) return;
    value_.format = format;
    Show(ReformatWatch(value_, Ask(), Shown(), LoadText(IDS_WATCH_ERROR)));
}

void CWatchItem::Refresh(bool sameStop) {
    value_.keepPrevious = sameStop;
    Show(RefreshWatch(value_, Ask(), Shown(), LoadText(IDS_WATCH_ERROR)));
}

void CWatchItem::Blank() {
    Show({});
}

WatchAnswer CWatchItem::Ask() const {
    WatchAnswer answer;
    std::string text;
    if (Debugger().Evaluate(Expression(), text, value_.format, &answer.error)) answer.text = std::move(text);
    return answer;
}

void CWatchItem::Show(WatchShown shown) {
    readOnly_ = shown.readOnly;
    SetLook(shown.look);
    SetValue(std::move(shown.text));
}

bool CWatchItem::BeginEdit() {
    return CIDEApp::Get().session.IsAlive() && Look() != PropLook::error && !readOnly_;
}

void CWatchItem::CommitEdit(const std::string &text) {
    const CDebugSession &session = CIDEApp::Get().session;
    if (!session.IsAlive()) return;
    const std::string shown = Value();
    SetValue(text);
    if (Look() == PropLook::error) return;
    if (value_.isDouble) {
        RestoreOld(shown);
        Refuse();
        return;
    }
    const TypedNumber typed = ReadTyped(text, value_.format);
    if (!typed.isWhole || !typed.hasDigits) TellNoNumber(value_.format);
    const bool isKnown = !session.IsRunning() && !shown.empty() && !value_.isText;
    const bool same = isKnown && typed.fits && typed.value == value_.curInt;
    const Taken taken = !typed.hasDigits ? Taken::none : same ? Taken::all : Write(typed);
    if (taken != Taken::all)
        SetValue(shown);
    else if (std::string formatted = FormatValue(typed.value, value_.format); !EqualNoCase(formatted, text))
        SetValue(std::move(formatted));
    if (taken != Taken::none) onWritten_();
}

void CWatchItem::RestoreOld(const std::string &shown) {
    value_.curDouble = value_.prevDouble;
    value_.curInt = value_.prevInt;
    value_.curText = value_.prevText;
    SetValue(shown);
}

CWatchItem::Taken CWatchItem::Refuse(const std::string &why) const {
    TellNotSet(IDS_WATCH_NOT_SET, Expression(), why);
    return Taken::none;
}

CWatchItem::Taken CWatchItem::Write(const TypedNumber &typed) const {
    if (!typed.fits) return Refuse();
    const auto value = static_cast<uint64_t>(typed.value);
    if (Expression().starts_with('$')) return WriteRegister(value);
    const COspreyVar *const variable = Debugger().Variables().Find(Expression());
    return variable && variable->size > 0 ? WriteVariable(*variable, value) : WriteName(value);
}

CWatchItem::Taken CWatchItem::WriteRegister(uint64_t value) const {
    const std::string name = Expression().substr(1);
    int address = AddressOf(name);
    if (uint16_t found = 0; address < 0) {
        if (!Debugger().RegNameToAddr(name, found)) {
            TellNotSet(IDS_WATCH_NO_REGISTER, Expression(), {});
            return Taken::none;
        }
        address = found;
    }
    return value <= std::numeric_limits<uint8_t>::max() && SetByte(address, value) ? Taken::all : Refuse();
}

CWatchItem::Taken CWatchItem::WriteVariable(const COspreyVar &variable, uint64_t value) const {
    const int size = variable.size;
    if (size < static_cast<int>(sizeof value) && value >> size * 8 != 0) return Refuse();
    for (int i = 0; i < size; ++i, value >>= 8) {
        if (SetByte(variable.address + i, value)) continue;
        Refuse();
        return i > 0 ? Taken::part : Taken::none;
    }
    return Taken::all;
}

CWatchItem::Taken CWatchItem::WriteName(uint64_t value) const {
    if (value > std::numeric_limits<uint32_t>::max()) return Refuse();
    std::string why;
    return SetTypedValue(Expression(), static_cast<int64_t>(value), why) ? Taken::all : Refuse(why);
}
