// A row of the watch bar: an expression and its value on the target.
#pragma once

#include <functional>
#include <string>

#include "debugger/WatchValue.h"
#include "widgets/PropTreeItem.h"

struct COspreyVar;

class CWatchItem : public CPropTreeItemEdit {
public:
    // `onWritten`: the user has typed a value, which the target has taken.
    CWatchItem(std::string expression, int format, std::function<void()> onWritten);

    const std::string &Expression() const { return Label(); }
    void SetExpression(std::string expression);  // the next refresh is its first
    int Format() const { return value_.format; }
    void SetFormat(int format);  // and reads the value, which stands out as it did before

    // Reads the value and compares it with the one of the refresh before; or, at the same stop of the target, with the
    // one that this was compared with.
    void Refresh(bool sameStop);
    void Blank();

    void CommitEdit(const std::string &text) override;
    bool BeginEdit() override;

private:
    WatchAnswer Ask() const;
    WatchShown Shown() const { return {Value(), Look(), readOnly_}; }
    void Show(WatchShown shown);

    // How much of a number the target has taken; with a line in the build list when it isn't all.
    enum class Taken { none, part, all };
    Taken Write(const TypedNumber &typed) const;
    Taken WriteRegister(uint64_t value) const;
    Taken WriteVariable(const COspreyVar &variable, uint64_t value) const;
    Taken WriteName(uint64_t value) const;
    Taken Refuse(const std::string &why = {}) const;
    void RestoreOld(const std::string &shown);

    WatchValue value_;
    bool readOnly_ = false;
    std::function<void()> onWritten_;
};
