// A box for a text with the texts used before, which the user's settings keep.
#pragma once

#include <iosfwd>
#include <string>

#include "framework/FlatComboBox.h"

// Items are newest first. They are the values "<prefix>0", "<prefix>1", ... of section "Find". Main thread.
class CHistoryCombo : public CXTFlatComboBox {
public:
    // `sorted`: the box shows what it loads in the order of the alphabet, and not of use.
    explicit CHistoryCombo(QWidget *parent = nullptr, bool sorted = false);

    void SetMaxHistory(int count);  // deletes the items beyond

    // Fills the box from the settings and shows the text it had last, which it returns.
    std::string Load(const std::string &prefix);

    // Adds the text on show to the list and writes both. Nothing before Load.
    void Save();

    // Puts `text` in front of the list, where it stands once, and selects it. Its index; -1 for a text of blanks only.
    int AddString(const std::string &text);

    // The list and the text on show. Reading says false at a fault and then leaves the box as it was.
    void Serialize(std::ostream &archive);
    bool Serialize(std::istream &archive);

    std::string lastKey;   // key of the text on show; empty: the prefix, without one "Last"
    bool saveLast = true;  // whether the text on show is kept, too

private:
    std::string LastKey() const;
    std::string ItemKey(int index) const { return keyPrefix_ + std::to_string(index); }
    int FindItem(const std::string &text) const;
    void ShowText(const std::string &text);

    std::string section_;  // empty until loaded
    std::string keyPrefix_;
    int maxItems_ = 10;
    const bool sorted_;
};
