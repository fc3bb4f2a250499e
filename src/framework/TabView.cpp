#include "framework/TabView.h"

#include <QFocusEvent>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

#include "framework/Document.h"
#include "framework/Text.h"

CTabView::CTabView(QWidget *parent) : CView(parent), tabs_(new QTabWidget(this)) {
    tabs_->setDocumentMode(true);
    tabs_->setTabPosition(QTabWidget::South);
    tabs_->setTabBarAutoHide(true);
    // The keyboard belongs to the view of the tab; the strip comes behind it.
    tabs_->setFocusProxy(nullptr);
    tabs_->setFocusPolicy(Qt::NoFocus);
    tabs_->tabBar()->setFocusPolicy(Qt::TabFocus);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(tabs_);
}

CTabView::~CTabView() {
    delete tabs_;  // views look for this window while they go
}

void CTabView::SetImageList(std::vector<QIcon> images, int size) {
    images_ = std::move(images);
    tabs_->setIconSize({size, size});
}

CView *CTabView::AddTab(const std::string &caption, const MakeView &make, CDocument &document, int image) {
    CView *view = make(tabs_);
    document.AddView(view);
    const bool pictured = image >= 0 && image < static_cast<int>(images_.size());
    tabs_->addTab(view, pictured ? images_[static_cast<size_t>(image)] : QIcon(), ToQString(caption));
    setTabOrder(view, tabs_->tabBar());
    view->OnInitialUpdate();
    return view;
}

void CTabView::RemoveTab(CView *view) {
    const int tab = tabs_->indexOf(view);
    if (tab < 0) return;
    tabs_->removeTab(tab);
    delete view;
}

int CTabView::TabCount() const { return tabs_->count(); }

std::string CTabView::TabCaption(int tab) const { return FromQString(tabs_->tabText(tab)); }

CView *CTabView::GetActiveTab() const { return dynamic_cast<CView *>(tabs_->currentWidget()); }

void CTabView::SetActiveTab(CView *view) {
    if (tabs_->indexOf(view) >= 0) tabs_->setCurrentWidget(view);
}

void CTabView::focusInEvent(QFocusEvent *event) {
    CView::focusInEvent(event);
    if (CView *view = GetActiveTab()) view->setFocus(event->reason());
}
