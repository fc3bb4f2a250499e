// A tree whose rows have colours and fonts of their own, and tips where their text is cut off.
#pragma once

#include <QTreeView>
#include <cstdint>
#include <functional>
#include <string>

class CTreeModel;
struct TreeRow;
using TreeItem = TreeRow *;  // names a row until it is deleted; null: none, as a parent the top level

// One column without a header; all rows are of one height. Texts are UTF-8. Main thread.
class CTreeCtrlEx : public QTreeView {
public:
    explicit CTreeCtrlEx(QWidget *parent = nullptr);

    // Appends a row. Colours are words 0x00BBGGRR; 0 is the colour of normal text.
    TreeItem InsertItem(const std::string &text, TreeItem parent = nullptr, uint32_t colour = 0, intptr_t data = 0);
    void DeleteItem(TreeItem item);  // and the rows under it
    void DeleteAllItems();

    // Runs `insert` and shows all that it did at once, at the price of one insertion. The tree is folded afterwards and
    // nothing is selected. Not nested.
    void Fill(const std::function<void()> &insert);

    const std::string &GetItemText(TreeItem item) const;
    void SetItemText(TreeItem item, std::string text);
    void SetItemColour(TreeItem item, uint32_t colour);
    void SetItemFont(TreeItem item, const QFont &font);  // of the tree's size, else its row isn't high enough
    intptr_t GetItemData(TreeItem item) const;           // the owner's, as inserted

    TreeItem GetParentItem(TreeItem item) const;
    int GetChildCount(TreeItem item = nullptr) const;
    TreeItem GetChild(int place, TreeItem item = nullptr) const;  // null beyond the last

    TreeItem GetSelectedItem() const;
    void SelectItem(TreeItem item);  // and brings it into view
    void Expand(TreeItem item, bool expand);
    bool IsExpanded(TreeItem item) const;
    void ExpandAll();    // the selected row comes into view
    void CollapseAll();  // the selection moves up to a row that shows

    std::function<void(TreeItem)> onActivate;  // a double click or Return; the row is selected
    // A right click, which has selected the row under it, or the menu key on the selected row; null: beside all rows.
    // At this point of the screen.
    std::function<void(TreeItem, const QPoint &)> onMenu;

protected:
    bool event(QEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    void KeepRoomForDeepRows();

    CTreeModel *rows_;
};
