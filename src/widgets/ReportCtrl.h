// A report: rows under column headers that sort them.
#pragma once

#include <QTreeView>
#include <functional>

#include "widgets/ReportRow.h"

class CReportModel;

// A click on a header sorts by its column, the next one the other way round; Ctrl with 1 to 9 does the same by
// keyboard. Empty cells sort first, then numbers by their value, then texts without regard to case. Cells that are cut
// off show their text in a tip. The selected rows are copied as lines with tabs between their cells. Rows are named by
// their place in the order on show, from 0. Texts are UTF-8. Main thread.
class CReportCtrl : public QTreeView {
public:
    explicit CReportCtrl(QWidget *parent = nullptr);

    void SetColumns(std::vector<ReportColumn> columns);  // without rows yet

    // Shows these rows instead of those on show, by the present sorting, at the price of one repaint. The scroll
    // position stays, and the current row when a row with the same cells is there.
    void SetRows(std::vector<ReportRow> rows);
    void Clear();  // the next rows show from the first one on

    int RowCount() const;
    const ReportRow &Row(int place) const;

    int CurrentRow() const;     // -1: none
    void SelectRow(int place);  // alone, and brings it into view

    // Rows set later are sorted in the same way.
    void SortBy(int column, Qt::SortOrder order = Qt::AscendingOrder);

    std::string SelectedText() const;  // the selected rows in the order on show
    bool HasSelection() const;
    void Copy() const;  // the selected text, if any

    std::function<void(intptr_t)> onActivate;  // a double click or Return on a row with data

protected:
    bool event(QEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    int SortColumnOf(const QKeyEvent &event) const;  // -1: no such key
    void Activate(const QModelIndex &index);

    CReportModel *rows_;
};
