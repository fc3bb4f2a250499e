// The workspace bar: the tree of projects and their files.
#pragma once

#include <memory>
#include <string>

#include "framework/DockBar.h"

class CProjectTree;
class CWorkspaceBarHost;
class QLabel;
class QTabWidget;

// Projects are named as in the workspace's project calls; paths are in the Windows form. Main thread.
class CWorkspaceBar : public CDockBar {
public:
    CWorkspaceBar(const std::string &title, QWidget *parent);
    ~CWorkspaceBar() override;

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
    void RebuildBrowseTree();                   // from the symbol index, in the present grouping
    void ClearBrowseTree();                     // no project is open
    void ReloadTodo();                          // all files of the active project
    void RescanTodo(const std::string &savedFile);  // one file, which was just written
    void ApplyGrouping(int grouping);

    int FirstVisibleRow() const;                // rows above the first visible one
    void SetFirstVisibleRow(int row);

    CProjectTree &Tree() { return *tree_; }

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    std::unique_ptr<CWorkspaceBarHost> host_;
    CProjectTree *tree_;
    QTabWidget *tabs_;
    QLabel *label_;  // above the tabs; hidden while it has no text
    int redrawLocks_ = 0;
    int grouping_ = 1;  // of the symbols: 1 by category, 2 by file
};
