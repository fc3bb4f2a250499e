// A button that shows a colour and opens the choice of another.
#pragma once

#include <QPushButton>
#include <cstdint>
#include <functional>

class CColourPalette;

// Colours are words 0x00BBGGRR.
class CColourButton : public QPushButton {
public:
    // `moreText`: the entry below the common colours, which opens a dialog with all of them.
    explicit CColourButton(const QString &moreText, QWidget *parent = nullptr);

    uint32_t Colour() const { return colour_; }
    void SetColour(uint32_t colour);  // tells nobody

    std::function<void(uint32_t)> onChange;  // the user chose this

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void Choose(uint32_t colour);
    void ChooseFromAll();

    uint32_t colour_ = 0;
    CColourPalette *palette_;
};
