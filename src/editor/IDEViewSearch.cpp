// The searching commands of the code view.
#include "app/CommandIds.h"
#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "editor/FindDlg.h"
#include "editor/IDEView.h"
#include "editor/ReplaceDlg.h"
#include "editor/ViewSearch.h"
#include "editor/ViewSetup.h"

namespace {

// The dialog belongs to the frame and ends by itself when its view goes, which a build can bring about.
template <class Dialog>
void RunSearchDialog(CIDEView &view) {
    const QPointer<QWidget> component = view.Sci().Widget();
    view.findPos = kFindFromSelection;
    Dialog(CIDEApp::Get().GetMainFrame(), view, TextToFind(view)).exec();
    if (component) component->setFocus();
}

}  // namespace

void CIDEView::MapSearchCommands() {
    const auto find = [this](bool reverse) {
        return [this, reverse] {
            findPos = kFindFromSelection;
            findPos = FindNext(*this, reverse);
        };
    };
    OnCommand(ID_EDIT_FIND, [this] { RunSearchDialog<CFindDlg>(*this); });
    OnCommand(ID_EDIT_REPLACE, [this] { RunSearchDialog<CReplaceDlg>(*this); });
    OnCommand(ID_EDIT_FIND_NEXT, find(false));
    OnCommand(ID_EDIT_FIND_PREVIOUS, find(true));
}

void CIDEView::EditQuietly(const std::function<bool()> &edit) {
    Send(SCI_SETMODEVENTMASK, 0);
    const bool changed = edit();
    Send(SCI_SETMODEVENTMASK, kChangesOfText);
    if (!changed) return;
    SciLexerNotification all{};
    all.code = SCN_MODIFIED;
    all.modificationType = kChangesOfText;
    OnModified(all);
}
