#include "debugger/StackListBox.h"

void CStackListBox::SetRows(const std::list<std::string> &rows) {
    ResetContent();
    for (const std::string &row : rows) AddLine(row);
}
