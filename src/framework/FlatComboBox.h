// A drop-down list for tool bars: items with text and a number.
#pragma once

#include <QComboBox>
#include <cstdint>
#include <string>

class CXTFlatComboBox : public QComboBox {
public:
    explicit CXTFlatComboBox(QWidget *parent = nullptr);

    void ResetContent();
    int AddString(const std::string &text, intptr_t data = 0);
    int GetCount() const { return count(); }
    std::string GetLBText(int index) const;
    intptr_t GetItemData(int index) const;
    int GetCurSel() const { return currentIndex(); }
    void SetCurSel(int index);                   // -1: none; runs no command
    int FindStringExact(const std::string &text) const;  // ignoring case; -1
};
