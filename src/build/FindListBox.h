// The list on the find tab.
#pragma once

#include "build/ListBoxForFlatTabCtrl.h"

class CFindListBox : public CListBoxForFlatTabCtrl {
public:
    static constexpr int kId = 1003;

    explicit CFindListBox(QWidget *parent) : CListBoxForFlatTabCtrl(kId, parent) {}
};
