// The bar of the call stack: the return addresses of the target where it stands, the innermost last.
#pragma once

#include "debugger/DebugBar.h"

class CStackListBox;

// A double click or Enter on a row leads to its line in the source and in the listing.
class CStackBar : public CDebugBar {
public:
    explicit CStackBar(QWidget *parent);

    void Refresh() override;
    void EndRun() override { ShowQuietText(); }

    CStackListBox &List() const { return *list_; }

private:
    void ShowPlace(const std::string &row) const;

    CStackListBox *list_;
};
