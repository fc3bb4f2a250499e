#include "debugger/WatchItem.h"

#include <algorithm>
#include <charconv>
#include <limits>

#include "app/IDEApp.h"
#include "app/StringIds.h"
#include "debugger/TypedValueMessages.h"
#include "debugger/ValueFormat.h"
#include "framework/Language.h"
#include "platform/PathCalls.h"

namespace {

CDbgInterface &Debugger() { return CIDEApp::Get().debugger; }

void Tell(int text, const std::string &expression) { CIDEApp::Get().AddOutputLine(LoadText(text, {expression})); }

bool SetByte(int address, int64_t value) {
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

void CWatchItem::Blank() { Show({}); }

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

bool CWatchItem::BeginEdit() { return CIDEApp::Get().session.IsOpen() && Look() != PropLook::error && !readOnly_; }

void CWatchItem::CommitEdit(const std::string &text) {
    const std::string shown = Value();
    SetValue(text);
    if (Look() == PropLook::error) return;
    if (value_.isDouble) {
        RestoreOld(shown);
        Tell(IDS_WATCH_NOT_SET, Expression());
        return;
    }
    const TypedNumber typed = ReadTyped(text, value_.format);
    if (!typed.isWhole || !typed.hasDigits) TellNoNumber(value_.format);
    const bool same = typed.value == value_.curInt && !value_.isText;
    if (!typed.hasDigits || (!same && !Write(typed))) {
        SetValue(shown);
        return;
    }
    if (std::string formatted = FormatValue(typed.value, value_.format); !EqualNoCase(formatted, text))
        SetValue(std::move(formatted));
    onWritten_();
    // The target keeps what it has room for.
    if (typed.value > std::numeric_limits<uint8_t>::max() && value_.curInt != typed.value)
        Tell(IDS_WATCH_NOT_SET, Expression());
}

void CWatchItem::RestoreOld(const std::string &shown) {
    value_.curDouble = value_.prevDouble;
    value_.curInt = value_.prevInt;
    value_.curText = value_.prevText;
    SetValue(shown);
}

bool CWatchItem::Write(const TypedNumber &typed) const {
    const bool fitsIntoCall = typed.fits && typed.value >= 0 && typed.value <= std::numeric_limits<uint32_t>::max();
    if (Expression().starts_with('$') && fitsIntoCall) return WriteRegister(typed.value);
    const COspreyVar *const variable = Debugger().Variables().Find(Expression());
    bool taken = false;
    if (variable && variable->size > 0 && !Expression().starts_with('$')) {
        taken = typed.fits;
        auto bytes = static_cast<uint64_t>(typed.value);
        for (int i = 0; taken && i < variable->size; ++i, bytes >>= 8)
            taken = SetByte(variable->address + i, static_cast<int64_t>(bytes));
    } else {
        taken = fitsIntoCall && Debugger().SetValue(Expression(), static_cast<int32_t>(typed.value));
    }
    if (!taken) Tell(IDS_WATCH_NOT_SET, Expression());
    return taken;
}

bool CWatchItem::WriteRegister(int64_t value) const {
    const std::string name = Expression().substr(1);
    int address = AddressOf(name);
    if (uint16_t found = 0; address < 0) {
        if (!Debugger().RegNameToAddr(name, found)) {
            Tell(IDS_WATCH_NO_REGISTER, Expression());
            return false;
        }
        address = found;
    }
    if (SetByte(address, value)) return true;
    Tell(IDS_WATCH_NOT_SET, Expression());
    return false;
}
