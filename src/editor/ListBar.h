// The docking bar with what the build made of the project: the listing, and further views that the toolsuite offers.
#pragma once

#include <memory>
#include <vector>

#include "framework/DockBar.h"

class CCodeViewContainer;
class CCodeWindowView;
class CIDEDoc;
class CListBarDocument;
class CListingView;

// Main thread. Listing view and listing document live as long as the bar.
class CListBar : public CDockBar {
public:
    using MakeCodeWindow = CCodeWindowView *(*)(QWidget *parent);

    explicit CListBar(QWidget *parent);
    ~CListBar() override;

    CListingView &ListingView() const { return *listingView_; }
    CIDEDoc &ListingDocument() const { return *listingDocument_; }  // outside all templates
    CCodeViewContainer &Container() const { return *container_; }

    void LoadAll(bool onlyIfEmpty);  // see CListingView::LoadListing
    void ClearAll();

    // A view that has a tab while the active toolsuite supports windows of `type`, captioned with text `caption`. Tabs
    // stand in the order of these calls.
    void OfferCodeWindow(int type, int caption, MakeCodeWindow make);
    void UpdateCodeWindowTabs();  // the active project or its toolsuite has changed

protected:
    // A file that is dropped on the bar isn't opened.
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    struct CodeWindow {
        int type, caption;
        MakeCodeWindow make;
        std::unique_ptr<CListBarDocument> document;
        CCodeWindowView *view;  // null: no tab
    };
    void ShowCodeWindow(CodeWindow &window, bool wanted);

    std::unique_ptr<CListBarDocument> barDocument_;
    std::unique_ptr<CIDEDoc> listingDocument_;
    CCodeViewContainer *container_;
    CListingView *listingView_ = nullptr;
    std::vector<CodeWindow> codeWindows_;
};
