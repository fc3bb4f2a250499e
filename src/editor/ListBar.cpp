#include "editor/ListBar.h"

#include <QDropEvent>

#include "app/BarIds.h"
#include "app/IDEApp.h"
#include "app/StringIds.h"
#include "editor/CodeViewContainer.h"
#include "editor/CodeWindowView.h"
#include "editor/IDEDoc.h"
#include "editor/ListBarDocument.h"
#include "editor/ListingView.h"
#include "framework/Language.h"
#include "project/Workspace.h"

namespace {

constexpr int kLeftMargin = 2;  // pixels

}  // namespace

CListBar::CListBar(QWidget *parent)
    : CDockBar(kBarListing, LoadText(IDS_BAR_LISTING), parent),
      barDocument_(std::make_unique<CListBarDocument>()),
      listingDocument_(std::make_unique<CIDEDoc>()),
      container_(new CCodeViewContainer(this)) {
    barDocument_->AddView(container_);
    const auto make = [this](QWidget *tabs) { return listingView_ = new CListingView(tabs); };
    container_->AddTab(LoadText(IDS_TAB_LISTING), make, *listingDocument_);
    container_->SetActiveTab(listingView_);
    container_->setContentsMargins(kLeftMargin, 0, 0, 0);
    setWidget(container_);
    setFocusProxy(container_);
    setAcceptDrops(true);  // to keep what is dropped here from the frame
}

CListBar::~CListBar() {
    delete container_;  // views go before their documents
}

void CListBar::LoadAll(bool onlyIfEmpty) {
    listingView_->LoadListing(onlyIfEmpty);
    for (const CodeWindow &window : codeWindows_)
        if (window.view) window.view->Load(onlyIfEmpty);
}

void CListBar::ClearAll() {
    listingView_->DropListing();
    for (const CodeWindow &window : codeWindows_)
        if (window.view) window.view->Clear();
}

void CListBar::OfferCodeWindow(int type, int caption, MakeCodeWindow make) {
    codeWindows_.push_back({type, caption, make, std::make_unique<CListBarDocument>(), nullptr});
}

void CListBar::UpdateCodeWindowTabs() {
    const auto workspace = CIDEApp::Get().workspace;
    CView *active = container_->GetActiveTab();
    for (CodeWindow &window : codeWindows_)
        ShowCodeWindow(window, workspace && workspace->SupportedCodeWindowType({}, window.type));
    container_->SetActiveTab(active);
}

void CListBar::ShowCodeWindow(CodeWindow &window, bool wanted) {
    if (wanted == (window.view != nullptr)) return;
    if (!wanted) {
        container_->RemoveTab(window.view);
        window.view = nullptr;
        return;
    }
    const auto make = [&window](QWidget *tabs) { return window.view = window.make(tabs); };
    container_->AddTab(LoadText(window.caption), make, *window.document);
    window.view->Load(false);
}

void CListBar::dragEnterEvent(QDragEnterEvent *event) {
    event->accept();
}

void CListBar::dragMoveEvent(QDragMoveEvent *event) {
    event->ignore();
}

void CListBar::dropEvent(QDropEvent *event) {
    event->ignore();
}
