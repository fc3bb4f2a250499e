#include "editor/ListingRedirect.h"

#include <algorithm>

#include "app/CommandIds.h"
#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "editor/CodeViewContainer.h"
#include "editor/ListBar.h"
#include "editor/ListingView.h"
#include "framework/CommandReplay.h"

namespace {

constexpr int kRedirected[] = {
    ID_EDIT_FIND,       ID_EDIT_REPLACE,  ID_EDIT_FIND_NEXT,    ID_EDIT_FIND_PREVIOUS, ID_EDIT_COPY,
    ID_BOOKMARK_TOGGLE, ID_BOOKMARK_NEXT, ID_BOOKMARK_PREVIOUS, ID_BREAKPOINT_TOGGLE,
};

// They would change a text that isn't the one in front of the user.
constexpr int kOff[] = {ID_EDIT_CUT, ID_EDIT_PASTE};

}  // namespace

bool RedirectToListing(int id, CCmdUI *ui) {
    const bool off = std::ranges::find(kOff, id) != std::end(kOff);
    if (!off && std::ranges::find(kRedirected, id) == std::end(kRedirected)) return false;
    CMainFrame *frame = CIDEApp::Get().GetMainFrame();
    CListBar *bar = frame ? &frame->ListBar() : nullptr;
    if (!bar || !bar->HoldsFocus()) return false;
    CView *shown = bar->Container().GetActiveTab();
    if (shown != &bar->ListingView()) {
        const bool handled = shown && shown->OnCmdMsg(id, ui);
        if (!handled && ui) ui->Enable(false);
    } else if (off) {
        if (ui) ui->Enable(false);
    } else if (!ui) {
        bar->ListingView().PostMessage(kCommandMessage, id);
    } else if (!bar->ListingView().OnCmdMsg(id, ui)) {
        ui->Enable(false);
    }
    return true;
}
