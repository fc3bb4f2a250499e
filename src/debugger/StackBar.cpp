#include "debugger/StackBar.h"

#include "app/BarIds.h"
#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/StringIds.h"
#include "debugger/FrameAddress.h"
#include "debugger/StackListBox.h"
#include "editor/ListBar.h"
#include "editor/ListingView.h"
#include "framework/Language.h"
#include "navigation/OpenSource.h"

CStackBar::CStackBar(QWidget *parent)
    : CDebugBar(kBarStack, IDS_BAR_STACK, parent),
      list_(new CStackListBox([this](const std::string &row) { ShowPlace(row); }, this)) {
    SetContent(list_);
}

void CStackBar::Refresh() {
    std::list<std::string> frames;
    if (!CIDEApp::Get().debugger.GetFrameList(frames)) frames = {LoadText(IDS_NO_STACK)};
    list_->SetRows(frames);
    ShowContent();
}

void CStackBar::ShowPlace(const std::string &row) const {
    CIDEApp &app = CIDEApp::Get();
    const int address = FrameAddress(row);
    std::string file;
    int line = 0;
    if (!app.debugger.AddrToPosText(address, file, line)) {
        app.AddOutputLine(LoadText(IDS_FRAME_NO_SOURCE, {row}));
        return;
    }
    OpenSourceAtLine(file, line);
    CListingView &listing = app.GetMainFrame()->ListBar().ListingView();
    const int listingLine = address < 0 ? -1 : listing.AddressTable().LineOf(static_cast<uint64_t>(address));
    if (listingLine >= 0) listing.SelectWholeLine(listingLine);
}
