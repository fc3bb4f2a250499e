// What each function of the active project's last build takes of the target's memory: a tab of the listing bar.
#pragma once

#include <vector>

#include "editor/CodeWindowView.h"
#include "navigation/BuildFile.h"
#include "navigation/FunctionStats.h"
#include "widgets/ReportCtrl.h"

// Return and a double click on a function lead to its source. A row without data says when there is nothing to show.
class CFuncInfoView : public CCodeWindowView {
public:
    explicit CFuncInfoView(QWidget *parent);

    void Load(bool onlyIfNeeded) override;  // only if needed: nothing unless the last load found no data
    void Clear() override;

    CReportCtrl &List() { return *list_; }

private:
    void ClearRows();
    void ShowRows();
    void Jump(intptr_t index);

    CReportCtrl *list_;
    std::vector<SStatData> stats_;  // the rows' data are the places in it
    BuildFileStamp shown_;
    bool reload_ = true;
};
