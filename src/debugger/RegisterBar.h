// The bar of the chip's registers: a tree of groups, registers and named bits, as the engine tells them.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "debugger/DebugBar.h"

class CPropTree;
class CPropTreeItem;
class CRegisterItem;

// Formats, and which groups are open, are kept with the project.
class CRegisterBar : public CDebugBar {
public:
    explicit CRegisterBar(QWidget *parent);
    ~CRegisterBar() override;

    void BeginRun() override { LoadRegisters(); }
    void Refresh() override { RefreshRegisters(); }
    void BlankValues() override;
    void EndRun() override;
    void Clear() override;
    void MarkWatchpoint(const std::string &name, bool on) override;
    void ClearWatchpointMarks() override;

    void LoadRegisters();     // builds the tree for the target of the run
    void RefreshRegisters();  // one read and no layout for each register, one repaint

    CPropTree &Tree() const { return *tree_; }

private:
    struct Loading;
    static int OpenRow(int parent, const char *name, const char *value, void *user);
    static void CloseRow(int row, void *user);
    void BuildTree(Loading &loading);
    CPropTreeItem *AddRegister(const std::string &name, const std::string &value, CPropTreeItem *above);
    void AddBits(CRegisterItem &row, int value);
    void AddMessageRow(int text);

    void MapCommands();
    void ShowMenu(CPropTreeItem *row, const QPoint &at);
    void SetFormat(int format);
    CRegisterItem *RegisterOf(CPropTreeItem *row) const;  // a bit counts as its register; null for other rows
    CRegisterItem *ClickedRow() const;                    // the register last clicked itself; null: another row or none
    void StoreExpanded() const;
    void StoreFormats() const;

    CPropTree *tree_;
    std::vector<CRegisterItem *> registers_;  // in the order of their rows
    std::string watchedName_;                 // "$NAME" of the row that the open menu is about
};
