// A grid of common colours to pick one from, by mouse or arrow keys and Enter.
#pragma once

#include <QWidget>
#include <cstdint>
#include <functional>

class CColourPalette : public QWidget {
public:
    explicit CColourPalette(QWidget *parent = nullptr);

    void SetCurrent(uint32_t colour);  // 0x00BBGGRR; marks it where the grid has it, else the first cell

    std::function<void(uint32_t)> onPick;

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    QRect CellRect(int cell) const;
    int CellAt(const QPoint &at) const;  // -1: none
    void MoveTo(int cell);
    void Pick();

    int current_ = 0;
};
