#include "framework/FlatComboBox.h"

#include <QSignalBlocker>

#include "framework/Text.h"

CXTFlatComboBox::CXTFlatComboBox(QWidget *parent) : QComboBox(parent) {
    setSizeAdjustPolicy(QComboBox::AdjustToContents);
    setMinimumContentsLength(12);
    setFocusPolicy(Qt::ClickFocus);
}

void CXTFlatComboBox::ResetContent() {
    const QSignalBlocker quiet(this);
    clear();
}

int CXTFlatComboBox::AddString(const std::string &text, intptr_t data) {
    const QSignalBlocker quiet(this);
    addItem(ToQString(text), QVariant::fromValue(static_cast<qlonglong>(data)));
    return count() - 1;
}

std::string CXTFlatComboBox::GetLBText(int index) const { return FromQString(itemText(index)); }

intptr_t CXTFlatComboBox::GetItemData(int index) const { return static_cast<intptr_t>(itemData(index).toLongLong()); }

void CXTFlatComboBox::SetCurSel(int index) {
    const QSignalBlocker quiet(this);
    setCurrentIndex(index);
}

int CXTFlatComboBox::FindStringExact(const std::string &text) const {
    return findText(ToQString(text), Qt::MatchFixedString);  // without regard to case
}
