// The tree of projects, their files and their outputs.
#pragma once

#include <QTreeView>
#include <string>

#include "framework/CmdTarget.h"
#include "navigation/ProjectTreeModel.h"

class CWorkspaceBarHost;

// It is the target of its menus' commands while one of them is open, for those that concern the selected row. Projects
// and files are named in any spelling that the host understands. Main thread.
class CProjectTree : public QTreeView, public CCmdTarget {
public:
    explicit CProjectTree(CWorkspaceBarHost &host, QWidget *parent = nullptr);  // the host outlives the tree

    void Fill();  // keeps selection, scroll position and what is expanded of the projects that stay
    void Clear();
    void AddProject(const std::string &project);
    void RemoveProject(const std::string &project);
    void MarkActiveProject();
    void AddFile(const std::string &project, const std::string &file);
    void RemoveFile(const std::string &project, const std::string &file);
    void RebuildOutputRows();

    int FirstVisibleRow();
    void SetFirstVisibleRow(int row);

    std::string SelectedProject() const;  // of the selected row, else the active one; empty when there is none
    std::string SelectedFile() const;     // empty unless the row of a source file is selected

    // Adds dropped files to the active project; without one, and for project and workspace files, they are opened.
    void TakeDrop(QDropEvent &drop);
    void OfferDrop(QDropEvent &drag) const;  // accepts a drag of files

    CProjectTreeModel &Rows() { return *model_; }

    bool OnCmdMsg(int id, CCmdUI *ui) override;

protected:
    bool event(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void drawRow(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    struct Place;  // of the user in the tree
    Place NotePlace();
    void RestorePlace(const Place &place);
    void MapCommands();
    void MapProjectCommands();
    void MapFileCommands();
    std::string ProjectText() const;  // of the row of the selected project, for menu entries
    std::string RowText() const;      // of the selected row
    void OpenRow(const QModelIndex &index);
    void MakeProjectActive(const std::string &project);
    void RemoveSelectedFile();
    void MakeSelectedFileRelative();

    CWorkspaceBarHost &host_;
    CProjectTreeModel *model_;
};
