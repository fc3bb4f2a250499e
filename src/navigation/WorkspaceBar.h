// The workspace bar: the tree of projects and their files.
#pragma once

#include <string>

#include "framework/DockBar.h"

class CProjectTree;
class QTabWidget;

// Projects are named as in the workspace's project calls; paths are in the Windows form. Main thread.
class CWorkspaceBar : public CDockBar {
public:
    CWorkspaceBar(const std::string &title, QWidget *parent);

    void SetRedraw(bool redraw);                // nested; the last true repaints once
    void SetTitle(const std::string &text);     // text above the tree: what kind of workspace is open

    void Fill();                                // all rows of the open workspace; "empty" without projects
    void Clear();                               // no workspace
    void AddProject(const std::string &project);
    void RemoveProject(const std::string &project);
    void MarkActiveProject();                   // bold and tinted
    void AddFile(const std::string &project, const std::string &file);
    void RemoveFile(const std::string &project, const std::string &file);
    void RebuildOutputRows();                   // of all projects; keeps selection and scroll position
    void ReloadTodo();
    void ApplyGrouping(int grouping);

    int FirstVisibleRow() const;                // rows above the first visible one
    void SetFirstVisibleRow(int row);

    CProjectTree &Tree() { return *tree_; }

private:
    CProjectTree *tree_;
    QTabWidget *tabs_;
    int redrawLocks_ = 0;
};
