#include "debugger/RegisterItem.h"

#include <limits>
#include <utility>

#include "app/IDEApp.h"
#include "app/StringIds.h"
#include "debugger/TypedValue.h"
#include "debugger/TypedValueMessages.h"
#include "framework/Language.h"

namespace {

CDbgInterface &Debugger() {
    return CIDEApp::Get().debugger;
}

}  // namespace

CRegisterItem::CRegisterItem(const std::string &name, int format, std::function<void()> onWritten)
    : CPropTreeItemEdit(name), expression_("$" + name), onWritten_(std::move(onWritten)) {
    value_.format = format;
}

std::optional<uint16_t> CRegisterItem::Read() const {
    const std::optional<int64_t> number = ReadNumber(expression_);
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
    held_ = now;
    value_.cur = *now;
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
    held_.reset();
    for (CRegisterBitItem *bit : bits_) bit->SetValue("");
}

void CRegisterItem::ShowError() {
    SetLookOfAll(PropLook::error);
    SetValue(LoadText(IDS_WATCH_ERROR));
}

void CRegisterItem::ShowBits() {
    if (!held_) return;
    for (CRegisterBitItem *bit : bits_) bit->Show(*held_);
}

void CRegisterItem::SetLookOfAll(PropLook look) {
    SetLook(look);
    for (CRegisterBitItem *bit : bits_) bit->SetLook(look);
}

bool CRegisterItem::BeginEdit() {
    return CIDEApp::Get().session.IsAlive() && Look() != PropLook::error;
}

bool CRegisterItem::HasRoomFor(int64_t value) const {
    uint16_t address = 0;
    const int64_t most = Debugger().RegNameToAddr(Name(), address) ? std::numeric_limits<uint8_t>::max()
                                                                   : std::numeric_limits<uint16_t>::max();
    return value <= most && value >= -(most + 1) / 2;
}

// Reads behind a write what the chip has made of it: not all bits of a register can be written.
bool CRegisterItem::Write(int64_t value) {
    std::string why;
    if (!HasRoomFor(value) || !SetTypedValue(expression_, value, why)) {
        TellNotSet(IDS_REGISTER_NOT_SET, Name(), why);
        return false;
    }
    held_ = Read().value_or(static_cast<uint16_t>(value));
    return true;
}

void CRegisterItem::CommitEdit(const std::string &text) {
    if (!CIDEApp::Get().session.IsAlive()) return;
    const TypedNumber typed = ReadTypedRegister(text, value_.format);
    if (!typed.isWhole || !typed.hasDigits) TellNoNumber(value_.format);
    if (!typed.hasDigits) return;
    if (!typed.fits) TellNotSet(IDS_REGISTER_NOT_SET, Name(), {});
    if (!typed.fits || !Write(typed.value)) return;
    value_.cur = *held_;
    SetValue(RegisterText(value_.cur, value_.format));
    SetLookOfAll(value_.prev == value_.cur ? PropLook::normal : PropLook::changed);
    ShowBits();
    onWritten_();
}

// The other bits are written as they are now: the target may run, or its first stop may still be to come.
void CRegisterItem::CommitBit(int bit, bool on) {
    if (!CIDEApp::Get().session.IsAlive()) return;
    if (const std::optional<uint16_t> now = Read()) held_ = now;
    const int mask = 1 << bit;
    if (!held_)
        TellNotSet(IDS_REGISTER_NOT_SET, Name(), {});
    else if (Write(on ? *held_ | mask : *held_ & ~mask))
        onWritten_();
    ShowBits();
}

void CRegisterBitItem::CommitEdit(const std::string &text) {
    if (text == "1" || text == "0") {
        register_.CommitBit(bit_, text == "1");
        return;
    }
    if (!CIDEApp::Get().session.IsAlive()) return;
    CIDEApp::Get().AddOutputLine(LoadText(IDS_BIT_NOT_BINARY));
    register_.ShowBits();
}
