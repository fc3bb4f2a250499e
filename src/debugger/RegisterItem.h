// The rows of the register tree: registers, and the named bits below them.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "debugger/RegisterValue.h"
#include "widgets/PropTreeItem.h"

class CRegisterBitItem;

class CRegisterItem : public CPropTreeItemEdit {
public:
    // `onWritten`: the user has typed a value, which the target has taken.
    CRegisterItem(const std::string &name, int format, std::function<void()> onWritten);

    const std::string &Name() const { return Label(); }
    int Format() const { return value_.format; }
    void SetFormat(int format);  // and reads the value, which stands out as it did before
    void AddBit(CRegisterBitItem &bit) { bits_.push_back(&bit); }  // a row below this one

    // Reads the value and compares it with the one of the refresh before; or, at the same stop of the target, with the
    // one that this was compared with.
    void Refresh(bool sameStop);
    void Blank();  // with its bits
    void ShowError();

    // The user has typed "1" or "0" over a bit. The value of the register itself shows at the next stop.
    void CommitBit(int bit, bool on);
    void ShowBits();  // nothing before a value was read

    void CommitEdit(const std::string &text) override;
    bool BeginEdit() override;

private:
    std::optional<uint16_t> Read() const;
    bool Write(int64_t value);  // false, with a line in the build list, when the target doesn't take it as it is
    bool HasRoomFor(int64_t value) const;
    void SetLookOfAll(PropLook look);

    RegisterValue value_;
    std::optional<uint16_t> held_;  // what the bits show: `cur`, or what bits were made to since; none: not read yet
    std::string expression_;        // "$NAME"
    std::vector<CRegisterBitItem *> bits_;
    std::function<void()> onWritten_;
};

class CRegisterBitItem : public CPropTreeItemEdit {
public:
    CRegisterBitItem(const std::string &name, int bit, CRegisterItem &reg)
        : CPropTreeItemEdit(name), bit_(bit), register_(reg) {}

    CRegisterItem &Register() const { return register_; }
    void Show(uint16_t value) { SetValue(value >> bit_ & 1 ? "1" : "0"); }  // `value`: of the register

    void CommitEdit(const std::string &text) override;
    bool BeginEdit() override { return register_.BeginEdit(); }

private:
    const int bit_;  // from 0
    CRegisterItem &register_;
};
