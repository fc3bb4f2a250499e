// Printing of the code view: its commands, and its part of the framework's print loop.
#include "app/CommandIds.h"
#include "app/StringIds.h"
#include "editor/IDEView.h"
#include "editor/ViewPrint.h"
#include "framework/Language.h"
#include "framework/Printing.h"

namespace {

void Print(CView &view, bool direct) {
    PrintView(view, direct,
              {LoadText(IDS_PRINTING_PAGE), LoadText(IDS_PRINTING_CANCEL), LoadText(IDS_NO_PRINTER),
               LoadText(IDS_PRINT_FAILED)});
}

void Preview(CView &view) {
    const bool print =
        PreviewView(view, {LoadText(IDS_DIALOG_PREVIEW), LoadText(IDS_PREVIEW_PRINT), LoadText(IDS_PREVIEW_PREVIOUS),
                           LoadText(IDS_PREVIEW_NEXT), LoadText(IDS_PREVIEW_PAGE), LoadText(IDS_PREVIEW_ZOOM_OUT),
                           LoadText(IDS_PREVIEW_ZOOM_IN), LoadText(IDS_PREVIEW_CLOSE), LoadText(IDS_PREVIEW_FAILED)});
    if (print) Print(view, false);
}

}  // namespace

void CIDEView::MapPrintCommands() {
    OnCommand(ID_FILE_PRINT, [this] { Print(*this, false); });
    OnCommand(ID_FILE_PRINT_DIRECT, [this] { Print(*this, true); });
    OnCommand(ID_FILE_PRINT_PREVIEW, [this] { Preview(*this); });
}

void CIDEView::OnBeginPrinting(CPrintDC &dc, CPrintInfo &info) {
    print_ = std::make_unique<CViewPrint>(*this, dc.figures, printMargins_);
    info.maxPage = print_->PageCount();
}

void CIDEView::OnPrint(CPrintDC &dc, CPrintInfo &info) {
    print_->DrawPage(*dc.painter, info.curPage);
}

void CIDEView::OnEndPrinting(CPrintDC &, CPrintInfo &) {
    print_.reset();
}
