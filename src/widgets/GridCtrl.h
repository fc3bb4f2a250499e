// A grid of small cells in a font of fixed width. Takes tens of thousands of them: paints what shows, each change once.
#pragma once

#include <QAbstractScrollArea>
#include <QFont>
#include <QIcon>
#include <functional>
#include <memory>
#include <vector>

#include "widgets/GridCell.h"

// One cell is the current one; the selection is the rectangle between it and the anchor. Typing goes to the current
// cell. Arrows, Home, End and the page keys move it, over fixed cells, with Ctrl to the ends; with Shift they extend
// the selection, as the mouse does. A click on a fixed cell at a row's beginning selects the row. Main thread.
class CGridCtrl : public QAbstractScrollArea {
public:
    explicit CGridCtrl(QWidget *parent = nullptr);

    void SetSize(int rows, int columns);  // of empty cells
    int RowCount() const { return rows_; }
    void SetCell(GridPlace place, std::unique_ptr<CGridCell> cell);
    CGridCell &Cell(GridPlace place);
    const CGridCell &Cell(GridPlace place) const;
    bool Contains(GridPlace place) const;

    // Cells are drawn anew at the next turn of the event loop, all in one pass.
    void RedrawCell(GridPlace place);
    void RedrawRow(int row);

    void AutoSize();  // each column gets the width of its longest text, with two blanks on either side
    int ColumnWidth(int column) const;  // pixels
    void SetColumnWidth(int column, int width);

    void SetMarkIcon(const QIcon &icon) { mark_ = icon; }
    void SetEmptyText(const std::string &text);  // shown while there are no cells

    GridPlace Current() const { return current_; }  // invalid: none
    void SetCurrent(GridPlace place);               // selects it alone and brings it into view
    int EditPosition() const { return editPosition_; }
    void SetEditPosition(int position);  // back at 0 when another cell becomes the current one

    std::string SelectedText() const;       // tabs between cells, a line end behind each row; gaps are left out
    QRect CellRect(GridPlace place) const;  // in the viewport
    GridPlace CellAt(const QPoint &at) const;

    std::function<void(GridPlace, const QPoint &)> onMenu;  // the right button or the menu key on a cell; global point

    QSize sizeHint() const override;

protected:
    bool event(QEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void changeEvent(QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    size_t IndexOf(GridPlace place) const { return static_cast<size_t>(place.row * columns_ + place.column); }
    void TakeFont();
    void SetRanges();
    void Reveal(GridPlace place);
    int RowsInView() const;  // whole ones, at least 1
    int ColumnAt(int x) const;

    void Select(GridPlace current, GridPlace anchor);
    void SelectRow(int row);
    bool IsSelected(GridPlace place) const;
    QRect Selection() const;  // columns by rows
    bool MoveByKey(const QKeyEvent &event);
    GridPlace Step(int rows, int columns) const;
    GridPlace EndOfRow(int row, int column, int step) const;
    bool EditByKey(const QKeyEvent &event);

    friend class CGridPainter;

    int rows_ = 0, columns_ = 0;
    std::vector<std::unique_ptr<CGridCell>> cells_;  // row by row; null: empty
    std::vector<int> lefts_{0};                      // of the columns, and the right end of the last
    QFont font_, boldFont_;
    int rowHeight_ = 1, charWidth_ = 1, ascent_ = 1;
    QIcon mark_;
    QString emptyText_;
    GridPlace current_, anchor_;
    int editPosition_ = 0;
};
