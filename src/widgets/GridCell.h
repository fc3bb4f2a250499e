// One cell of a grid: its text, how it stands out, and what typing into it does.
#pragma once

#include <cstdint>
#include <string>

class CGridCtrl;

// Both count from 0.
struct GridPlace {
    int row = -1, column = -1;

    bool IsValid() const { return row >= 0 && column >= 0; }
    bool operator==(const GridPlace &) const = default;
};

// A way to stand out: a ground for light windows and one for dark ones (words 0x00BBGGRR), and something beside the
// colour, for those who can't tell it from others. Looks live in tables; cells point to them.
struct GridLook {
    uint32_t lightGround = 0xFFFFFF, darkGround = 0x000000;
    bool bold = false, underlined = false, struck = false, pale = false;
};

class CGridCell {
public:
    explicit CGridCell(std::string text = {}, bool fixed = false) : text_(std::move(text)), fixed_(fixed) {}
    virtual ~CGridCell() = default;
    CGridCell(const CGridCell &) = delete;
    CGridCell &operator=(const CGridCell &) = delete;

    virtual std::string Text() const { return text_; }
    virtual std::string Tip() const { return {}; }  // of the pointer over the cell; empty: none

    // A character typed while the cell is the current one, `grid.EditPosition()` characters into its edit. The cell
    // takes it, moves the edit or the current cell on, and redraws what has changed. False: it means nothing here.
    virtual bool OnTyped(CGridCtrl & /*grid*/, GridPlace /*place*/, char32_t /*typed*/) { return false; }

    bool IsFixed() const { return fixed_; }  // a heading or a gap: never the current cell

    // The setters tell whether something has changed and the cell has to be redrawn.
    const GridLook *Look() const { return look_; }  // null: as the desktop has it
    bool SetLook(const GridLook *look) { return Change(look_, look); }
    bool IsMarked() const { return marked_; }  // with the grid's mark image
    bool SetMarked(bool marked) { return Change(marked_, marked); }
    bool IsPointed() const { return pointed_; }  // between brackets
    bool SetPointed(bool pointed) { return Change(pointed_, pointed); }

private:
    template <typename Value>
    static bool Change(Value &to, Value value) {
        const bool changed = to != value;
        to = value;
        return changed;
    }

    std::string text_;
    const GridLook *look_ = nullptr;
    bool fixed_, marked_ = false, pointed_ = false;
};
