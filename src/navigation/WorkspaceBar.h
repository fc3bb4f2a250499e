// The workspace bar: the tree of projects and their files, the tree of symbols and the list of remarks.
#pragma once

#include <QTabWidget>
#include <array>
#include <memory>
#include <string>

#include "framework/DockBar.h"

class CProjectTree;
class CTabBrowseView;
class CTabTodoView;
class CWorkspaceBarHost;
class QLabel;
class QToolBar;

// Projects are named as in the workspace's project calls; paths are in the Windows form. Main thread.
class CWorkspaceBar : public CDockBar {
public:
    enum Tab { kTabProjects, kTabSymbols, kTabTodo };

    CWorkspaceBar(const std::string &title, QWidget *parent);
    ~CWorkspaceBar() override;

    QWidget *GetView(int tab) const { return tabs_->widget(tab); }  // null beyond the last
    template <class View>
    View *GetView() const {
        for (int tab = 0; tab < tabs_->count(); ++tab)
            if (auto *view = dynamic_cast<View *>(tabs_->widget(tab))) return view;
        return nullptr;
    }
    void ShowTab(Tab tab) { tabs_->setCurrentIndex(tab); }

    void SetRedraw(bool redraw);             // nested; the last true repaints once
    void SetTitle(const std::string &text);  // text above the tree: what kind of workspace is open

    void Fill();   // all rows of the open workspace; "empty" without projects
    void Clear();  // no workspace
    void AddProject(const std::string &project);
    void RemoveProject(const std::string &project);
    void MarkActiveProject();  // bold and tinted
    void AddFile(const std::string &project, const std::string &file);
    void RemoveFile(const std::string &project, const std::string &file);
    void RebuildOutputRows();  // of all projects; keeps selection and scroll position

    void RebuildBrowseTree();                   // from the symbol index, in the present grouping
    void ClearBrowseTree();                     // no project is open
    int Grouping() const { return grouping_; }  // of the symbols: 1 by category, 2 by file
    void ApplyGrouping(int grouping);           // a project's; 0: the present one stays

    void ReloadTodo();                              // all files of the active project
    void RescanTodo(const std::string &savedFile);  // one file, which was just written

    CProjectTree &Tree() { return *tree_; }

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void MakeGroupingBar(QWidget *parent);
    void UpdateGroupingBar();
    void ChooseGrouping(int grouping);  // the user's choice

    std::unique_ptr<CWorkspaceBarHost> host_;
    QLabel *label_;          // above the tabs; hidden while it has no text
    QToolBar *groupingBar_;  // shows on the tab of the symbols, with the button of the present grouping
    std::array<QAction *, 2> groupingButtons_{};
    QTabWidget *tabs_;
    CProjectTree *tree_;
    CTabBrowseView *symbols_;
    CTabTodoView *todo_;
    int redrawLocks_ = 0;
    int grouping_ = 1;
};
