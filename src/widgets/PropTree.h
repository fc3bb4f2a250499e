// A tree of properties: rows of a label and a value that can be typed over where it stands.
#pragma once

#include <QTreeView>
#include <functional>
#include <string>

#include "widgets/PropTreeItem.h"

class CPropTreeModel;

// F2 or Return begins the edit of the current row, as a click on the value of the selected row does; Return ends it,
// Esc leaves the value as it was. All rows are of one height. The selected rows are copied as lines "label<tab>value".
// Texts are UTF-8. Main thread.
class CPropTree : public QTreeView {
public:
    explicit CPropTree(QWidget *parent = nullptr);

    void SetTitles(const std::string &name, const std::string &value);  // of the columns
    void SetMark(const QIcon &mark);                                    // of marked rows below the top level

    CPropTreeItem *InsertItem(std::unique_ptr<CPropTreeItem> item, CPropTreeItem *parent = nullptr);  // at the end
    void DeleteItem(CPropTreeItem *item);  // and the rows under it
    void DeleteAllItems();

    // Runs `insert` and shows all that it did at once. The tree is folded afterwards and nothing is selected. Not
    // nested.
    void Fill(const std::function<void()> &insert);

    const std::vector<std::unique_ptr<CPropTreeItem>> &Items() const;  // of the top level

    CPropTreeItem *GetCurrentItem() const;  // null: none
    void SelectItem(CPropTreeItem *item);   // alone, and brings it into view
    void Expand(CPropTreeItem *item, bool expand);
    bool IsExpanded(const CPropTreeItem *item) const;
    bool BeginEdit(CPropTreeItem *item);  // false when the row can't be edited
    void CancelEdit();                    // the open one, if any: its value stays as it was

    std::vector<CPropTreeItem *> SelectedItems() const;  // in the order on show
    std::string SelectedText() const;
    void Copy() const;  // the selected text, if any

    void SetNameWidth(int width);  // of the left column, in pixels

    std::function<void(CPropTreeItem *)> onActivate;  // a double click; without it, edits the row or folds it
    std::function<void()> onInsert, onDelete;         // the keys of these names
    // A right click, which has selected the row under it, or the menu key on the current row; null: beside all rows. At
    // this point of the screen.
    std::function<void(CPropTreeItem *, const QPoint &)> onMenu;
    std::function<void(int)> onNameWidth;  // the user has moved the splitter and let it go

protected:
    bool edit(const QModelIndex &index, EditTrigger trigger, QEvent *event) override;
    bool event(QEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void drawRow(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;

private:
    void FitName();

    CPropTreeModel *rows_;
    int nameWidth_ = 0;     // as the user wants it
    bool fitting_ = false;  // the left column gets the width that there is room for
};
