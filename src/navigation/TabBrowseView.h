// The tree of the symbol index.
#pragma once

#include <QTreeView>
#include <functional>
#include <string>
#include <vector>

class CBrowseTreeModel;
class CWorkspaceBarHost;

// Main thread.
class CTabBrowseView : public QTreeView {
public:
    explicit CTabBrowseView(CWorkspaceBarHost &host, QWidget *parent = nullptr);  // the host outlives the view

    // Shows the index by category (1) or by file (2). What the user folded stays folded, what is new is unfolded, and
    // the first row on show and the current row stay as far as they are there. Rows stand until the next call, also
    // when the index changes.
    void Rebuild(int grouping);
    void Clear();

    CBrowseTreeModel &Rows() { return *model_; }

    std::function<void(const QPoint &)> onMenu;  // a right click or the menu key, at this point of the screen

protected:
    bool event(QEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    struct SItemState {  // of a top-level row
        std::string name;
        bool expanded = false;
    };
    struct Spot {  // a row, by its text and its parent's
        std::string group, symbol;
        bool isSymbol = false;
    };
    std::vector<SItemState> SaveState() const;
    Spot SpotOf(const QModelIndex &index) const;
    void RestoreScrolling(const Spot &first);
    void RestoreCurrent(const Spot &current);
    void OpenRow(const QModelIndex &index);

    CWorkspaceBarHost &host_;
    CBrowseTreeModel *model_;
};
