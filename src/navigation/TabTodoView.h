// The list of remarks in the active project's sources.
#pragma once

#include <QWidget>
#include <string>

#include "navigation/TodoList.h"

class CReportCtrl;
class CWorkspaceBarHost;
class QTimer;

// Main thread.
class CTabTodoView : public QWidget {
public:
    explicit CTabTodoView(CWorkspaceBarHost &host, QWidget *parent = nullptr);  // the host outlives the view

    // Reads all files of a project anew, or only `singleFile`, whatever its spelling. Empties the list for an empty
    // `projectFile`. The list shows the result at once, unless there is so much to read that the user would have to
    // wait; then it follows.
    void Scan(const std::string &projectFile, const std::string &singleFile = {});

    CReportCtrl &Report() { return *report_; }
    const std::vector<TodoRecord> &Records() const { return todos_.Records(); }

private:
    void ReadOn();
    void Fill();
    void OpenRow(intptr_t rowId);

    CWorkspaceBarHost &host_;
    CTodoList todos_;
    CReportCtrl *report_;
    QTimer *next_;  // of the steps that are left
};
