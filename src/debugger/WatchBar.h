// The bar of watched expressions.
#pragma once

#include <string>

#include "debugger/DebugBar.h"

class CPropTree;
class CPropTreeItem;
class CWatchItem;

// Rows are kept with the project: read when a run starts, written when it ends. They can be changed during a run;
// behind it they stay on view with their last values.
class CWatchBar : public CDebugBar {
public:
    explicit CWatchBar(QWidget *parent);
    ~CWatchBar() override;

    void BeginRun() override;
    void Refresh() override;
    void BlankValues() override;
    void EndRun() override;
    void Clear() override;

    // A new row at the end in the user's default format; then all rows are read. During a run; nothing for blanks.
    void AddWatch(const std::string &text);
    void AddWatchByDialog(const std::string &text);  // asks first, with `text` on offer

    CPropTree &Tree() const { return *tree_; }

private:
    void MapCommands();
    void ShowMenu(CPropTreeItem *row, const QPoint &at);
    void InsertRow(const std::string &expression, int format);
    void EditExpression(CWatchItem *row);
    bool AskExpression(std::string &expression);
    void RemoveSelected();
    void RemoveAll();
    void SetFormat(int format);
    void OnWritten();
    void TakeDrop(const std::string &text);
    void Save() const;
    CWatchItem *CurrentRow() const;  // the one last clicked; null: none
    bool Holds(const CWatchItem *row) const;
    template <typename Act>
    void ForEachRow(Act act) const;

    CPropTree *tree_;
    CWatchItem *menuRow_ = nullptr;  // under the pointer of the open menu
    bool menuOpen_ = false;
};
