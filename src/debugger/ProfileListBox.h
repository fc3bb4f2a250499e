// The list of the profile: name, bar and figures of each function.
#pragma once

#include <QListView>
#include <functional>
#include <string>

#include "debugger/ProfileRows.h"

class CProfileListModel;

// The selected rows are copied as lines with tabs, below a line of headings. Main thread.
class CProfileListBox : public QListView {
public:
    explicit CProfileListBox(QWidget *parent);

    // Changes the rows, at the price of one repaint; the current row and the selection stay the same functions'.
    void Change(const std::function<void(CProfileRows &)> &change);
    const CProfileRows &Rows() const;
    void SetEmptyText(const std::string &text);  // shown while there are no rows

    std::string SelectedText() const;

    std::function<void(const std::string &name)> onActivate;  // a double click or Return on a row

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;

private:
    void Activate(const QModelIndex &index);

    CProfileListModel *model_;
    QString emptyText_;
};
