// The list of the call stack: one return address a row.
#pragma once

#include <functional>
#include <list>
#include <string>

#include "build/ListBoxForFlatTabCtrl.h"

class CStackListBox : public CListBoxForFlatTabCtrl {
public:
    static constexpr int kId = 1005;
    using ActivateRow = std::function<void(const std::string &row)>;

    CStackListBox(ActivateRow activate, QWidget *parent)
        : CListBoxForFlatTabCtrl(kId, parent), activate_(std::move(activate)) {}

    void SetRows(const std::list<std::string> &rows);  // in their order; the last one is selected

protected:
    void OnActivate(int index) override { activate_(std::string(GetText(index))); }

private:
    ActivateRow activate_;
};
