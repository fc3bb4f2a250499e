#include "debugger/RegisterItem.h"

#include <limits>

#include "app/IDEApp.h"
#include "app/StringIds.h"
#include "debugger/TypedValueMessages.h"
#include "debugger/ValueFormat.h"
#include "framework/Language.h"

namespace {

CDbgInterface &Debugger() { return CIDEApp::Get().debugger; }

}  // namespace

CRegisterItem::CRegisterItem(const std::string &name, int format, std::function<void()> onWritten)
    : CPropTreeItemEdit(name), expression_("$" + name), onWritten_(std::move(onWritten)) {
    value_.format = format;
}

std::optional<uint16_t> CRegisterItem::Read() const {
    std::string text;
    if (!Debugger().Evaluate(expression_, text, kDecimal, nullptr)) return {};
    const std::optional<int64_t> number = NumberOfAnswer(text, kDecimal);
    return number ? std::optional(static_cast<uint16_t>(*number)) : std::nullopt;
}

void CRegisterItem::Refresh(bool sameStop) {
    const bool keep = std::exchange(value_.keepPrevious, false) || sameStop;
    const std::optional<uint16_t> now = Read();
    if (!now) {
        ShowError();
        return;
    }
    if (!keep) value_.prev = value_.cur;
    value_.cur = held_ = *now;
    if (Value().empty()) value_.prev = value_.cur;  // the first value is no change
    SetLookOfAll(value_.prev == value_.cur ? PropLook::normal : PropLook::changed);
    SetValue(RegisterText(value_.cur, value_.format));
    ShowBits();
}

void CRegisterItem::SetFormat(int format) {
    if (value_.format == format) return;
    value_.format = format;
    value_.keepPrevious = true;
    Refresh(false);
}

void CRegisterItem::Blank() {
    SetLookOfAll(PropLook::normal);
    SetValue("");
    for (CRegisterBitItem *bit : bits_) bit->SetValue("");
}

void CRegisterItem::ShowError() {
    SetLookOfAll(PropLook::error);
    SetValue(LoadText(IDS_WATCH_ERROR));
}

void CRegisterItem::ShowBits() {
    for (CRegisterBitItem *bit : bits_) bit->Show(held_);
}

void CRegisterItem::SetLookOfAll(PropLook look) {
    SetLook(look);
    for (CRegisterBitItem *bit : bits_) bit->SetLook(look);
}

bool CRegisterItem::BeginEdit() { return CIDEApp::Get().session.IsOpen() && Look() != PropLook::error; }

// Reads behind a write what the chip has made of it: not all bits of a register can be written.
bool CRegisterItem::Write(int64_t value) {
    if (value < std::numeric_limits<int32_t>::min() || value > std::numeric_limits<uint32_t>::max() ||
        !Debugger().SetValue(expression_, static_cast<int32_t>(value))) {
        CIDEApp::Get().AddOutputLine(LoadText(IDS_REGISTER_NOT_SET, {Name()}));
        return false;
    }
    held_ = Read().value_or(static_cast<uint16_t>(value));
    return true;
}

void CRegisterItem::CommitEdit(const std::string &text) {
    const std::optional<int64_t> typed = ReadTypedRegister(text, value_.format);
    const bool allBinary = text.find_first_not_of("01") == text.npos;
    if (!typed || (value_.format == kBinary && !allBinary)) TellNoNumber(value_.format);
    if (!typed || !Write(*typed)) return;
    value_.cur = held_;
    SetValue(RegisterText(value_.cur, value_.format));
    SetLookOfAll(value_.prev == value_.cur ? PropLook::normal : PropLook::changed);
    ShowBits();
    onWritten_();
    // The chip keeps what it has room for.
    if (*typed > std::numeric_limits<uint8_t>::max() && value_.cur != *typed)
        CIDEApp::Get().AddOutputLine(LoadText(IDS_REGISTER_NOT_SET, {Name()}));
}

void CRegisterItem::CommitBit(int bit, bool on) {
    const int mask = 1 << bit;
    if (Write(on ? held_ | mask : held_ & ~mask)) onWritten_();
    ShowBits();
}

void CRegisterBitItem::CommitEdit(const std::string &text) {
    if (text == "1" || text == "0") {
        register_.CommitBit(bit_, text == "1");
        return;
    }
    CIDEApp::Get().AddOutputLine(LoadText(IDS_BIT_NOT_BINARY));
    register_.ShowBits();
}
