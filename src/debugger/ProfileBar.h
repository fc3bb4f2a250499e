// The bar of the profile: where the target's time goes.
#pragma once

#include "debugger/DebugBar.h"

class CProfileListBox;

// Reads the engine's counts while profiling is on. A double click or Enter on a row leads to the function.
class CProfileBar : public CDebugBar {
public:
    explicit CProfileBar(QWidget *parent);

    void BeginRun() override;
    void Refresh() override;
    void Clear() override;

    CProfileListBox &List() const { return *list_; }

private:
    CProfileListBox *list_;
};
