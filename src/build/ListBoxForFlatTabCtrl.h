// A list of text lines under a tab: takes a million of them, paints only what shows.
#pragma once

#include <QAbstractScrollArea>
#include <QElapsedTimer>
#include <QTimer>
#include <string_view>

#include "build/LineStore.h"
#include "framework/CmdTarget.h"

// Indices count from 0; -1 is none. Main thread.
class CListBoxForFlatTabCtrl : public QAbstractScrollArea, public CCmdTarget {
public:
    CListBoxForFlatTabCtrl(int id, QWidget *parent);

    int Id() const { return id_; }  // the control's number
    int GetCount() const { return static_cast<int>(store_.Count()); }
    std::string_view GetText(int index) const;  // valid until the list is cleared; empty for an index beyond it
    int GetCurSel() const { return selected_; }

    void AddLine(std::string_view text);  // at the end, and selects it: the list follows the newest line
    void ResetContent();
    void SetCurSel(int index);  // and brings it into view
    bool CopyAll();             // all lines, each ended with CR LF, to the clipboard; false when it can't be had

    QRect RowRect(int index) const;  // in the viewport; empty for a line that isn't in view

protected:
    struct Row {
        QString text;  // tabs expanded; of a very long line only the part that shows
        qreal left;    // where it begins
        QRect area;
        bool selected;
    };

    virtual void OnActivate(int index) {}              // double click or Enter on a line
    virtual void OnClick(int index) {}                 // left click on a line, before it is selected
    virtual void OnReset() {}                          // the list has been emptied
    virtual int MenuResource() const { return 0; }     // of the pop-up of the right button; 0: none
    virtual QColor TextColor(std::string_view line) const;  // on the ordinary background
    virtual void DrawText(QPainter &painter, const Row &row) const;

    bool IsDark() const;  // the list's background is darker than its text

    bool event(QEvent *event) override;  // keeps the key for copying from the frame's command
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void changeEvent(QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    QSize sizeHint() const override;

private:
    void TakeFont();
    void ScheduleRefresh();
    void Refresh();
    void SetRanges();
    int RowsInView() const;  // whole ones, at least 1
    int RowAt(const QPoint &at) const;
    void Reveal(int index);
    Row LayOutRow(int index) const;

    int id_;
    LineStore store_;
    int selected_ = -1;
    bool revealSelected_ = false;
    int rowHeight_ = 1;
    qreal columnWidth_ = 1;
    size_t longestColumns_ = 0;  // of all lines
    QTimer refresh_;
    QElapsedTimer sinceRefresh_;
};
