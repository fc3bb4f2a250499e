#include "build/OutputBar.h"

#include <QStackedWidget>
#include <QTabBar>
#include <QVBoxLayout>

#include "app/StringIds.h"
#include "build/BuildListBox.h"
#include "build/FindListBox.h"
#include "framework/Language.h"
#include "framework/Text.h"

namespace {

constexpr int kNoticeListId = 1004;

}  // namespace

COutputBar::COutputBar(QWidget *parent) : CDockBar(kId, LoadText(IDS_BAR_OUTPUT), parent) {
    auto *content = new QWidget(this);
    tabs_ = new QTabBar(content);
    tabs_->setShape(QTabBar::RoundedSouth);
    tabs_->setDrawBase(false);
    tabs_->setDocumentMode(true);
    tabs_->setExpanding(false);
    tabs_->setFocusPolicy(Qt::TabFocus);
    pages_ = new QStackedWidget(content);

    auto *column = new QVBoxLayout(content);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(pages_, 1);
    column->addWidget(tabs_);

    buildList_ = new CBuildListBox(pages_);
    findList_ = new CFindListBox(pages_);
    noticeList_ = new CListBoxForFlatTabCtrl(kNoticeListId, pages_);
    AddPage(buildList_, IDS_TAB_BUILD);
    AddPage(findList_, IDS_TAB_FIND);
    AddPage(noticeList_, IDS_TAB_NOTICES);
    connect(tabs_, &QTabBar::currentChanged, pages_, &QStackedWidget::setCurrentIndex);
    setWidget(content);
}

void COutputBar::AddPage(CListBoxForFlatTabCtrl *list, int title) {
    const QString text = ToQString(LoadText(title));
    list->setAccessibleName(text);
    pages_->addWidget(list);
    tabs_->addTab(text);
}

void COutputBar::ShowTab(Tab tab) {
    tabs_->setCurrentIndex(tab);
    show();
    raise();
}

void COutputBar::AddBuildLine(std::string_view text) { buildList_->AddLine(text); }

void COutputBar::ClearBuildList() { buildList_->ResetContent(); }

CListBoxForFlatTabCtrl *COutputBar::CurrentList() const {
    return static_cast<CListBoxForFlatTabCtrl *>(pages_->currentWidget());
}

bool COutputBar::OnCmdMsg(int id, CCmdUI *ui) {
    return CDockBar::OnCmdMsg(id, ui) || CurrentList()->OnCmdMsg(id, ui) || buildList_->OnCmdMsg(id, ui);
}
