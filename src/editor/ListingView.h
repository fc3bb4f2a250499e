// The listing of the active project: a read-only code view that knows which line each program address stands on.
#pragma once

#include "editor/AddressTable.h"
#include "editor/IDEView.h"

// Shows a fixed text while there is no listing. An outside change of the file raises no question: the next load shows
// it. Commands don't go on to its document, which is nobody's to save. Lines count from 0. Main thread.
class CListingView : public CIDEView {
public:
    explicit CListingView(QWidget *parent);

    void OnInitialUpdate() override;
    bool OnCmdMsg(int id, CCmdUI *ui) override;

    // Shows what the active configuration's last build left; its toolsuite is asked for the file when there is none.
    // `onlyIfEmpty`: a listing that is on show isn't read again.
    void LoadListing(bool onlyIfEmpty);
    void ClearListing();  // the fixed text; the document keeps its path
    void DropListing();   // no project is open: the fixed text, and no path

    bool HasListing() const { return !noListing_; }
    const CAddressTable &AddressTable() const { return addressTable_; }

    // The line of the target's program counter, and that in `pc`: 0 when it can't be read. -1 when no line gives it.
    intptr_t LineOfProgramCounter(uint32_t &pc) const;

    // Marks that line as the one where execution stands and brings it into view; without it a line in the build list.
    void ShowListingPosition();

    void OnDebugToggleBreakpoint(intptr_t, int) override {}  // none can be set here
    void OnPathNamed() override {}                           // a load comes next, not a save

protected:
    void OnNotify(const SciLexerNotification &notification) override;
    void OnFileChanged() override {}
    void OnFileDeleted() override {}
    void ToggleBookmark() override;

private:
    void BuildAddressTable();
    void WaitUntilUntracked(const std::string &path) const;
    void ReadAddresses();

    bool noListing_ = true;
    std::string tracked_;  // the file whose record in the tracker is this view's
    CAddressTable addressTable_;
};
