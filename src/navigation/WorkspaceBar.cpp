#include "navigation/WorkspaceBar.h"

#include <QDropEvent>
#include <QLabel>
#include <QMimeData>
#include <QTabWidget>
#include <QVBoxLayout>

#include "app/StringIds.h"
#include "framework/Icons.h"
#include "framework/Language.h"
#include "framework/Text.h"
#include "navigation/ProjectTree.h"
#include "navigation/WorkspaceBarHost.h"

namespace {

constexpr int kBarId = 0xe86e;  // names the bar in saved layouts
constexpr int kLabelMargin = 5;

}  // namespace

CWorkspaceBar::CWorkspaceBar(const std::string &title, QWidget *parent)
    : CDockBar(kBarId, title, parent), host_(MakeWorkspaceBarHost()) {
    auto *content = new QWidget(this);
    label_ = new QLabel(content);
    label_->setMargin(kLabelMargin);
    label_->setTextFormat(Qt::PlainText);
    label_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);  // a long text doesn't widen the bar
    label_->hide();

    tree_ = new CProjectTree(*host_, content);
    tabs_ = new QTabWidget(content);
    tabs_->setDocumentMode(true);
    tabs_->setTabPosition(QTabWidget::South);
    tabs_->setTabBarAutoHide(true);
    tabs_->addTab(tree_, LoadIcon("bar-workspace"), ToQString(LoadText(IDS_TAB_FILES)));

    auto *layout = new QVBoxLayout(content);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(label_);
    layout->addWidget(tabs_, 1);
    setWidget(content);
    setAcceptDrops(true);
}

CWorkspaceBar::~CWorkspaceBar() {
    delete widget();  // the tree speaks to the host until its end
}

void CWorkspaceBar::SetRedraw(bool redraw) {
    if (!redraw) {
        if (redrawLocks_++ == 0) tree_->setUpdatesEnabled(false);
        return;
    }
    if (redrawLocks_ == 0 || --redrawLocks_ > 0) return;
    tree_->setUpdatesEnabled(true);
}

void CWorkspaceBar::SetTitle(const std::string &text) {
    label_->setText(ToQString(text));
    label_->setToolTip(ToQString(text));
    label_->setVisible(!text.empty());
}

void CWorkspaceBar::Fill() {
    tree_->Fill();
}

void CWorkspaceBar::Clear() {
    tree_->Clear();
}

void CWorkspaceBar::AddProject(const std::string &project) {
    tree_->AddProject(project);
}

void CWorkspaceBar::RemoveProject(const std::string &project) {
    tree_->RemoveProject(project);
}

void CWorkspaceBar::MarkActiveProject() {
    tree_->MarkActiveProject();
}

void CWorkspaceBar::AddFile(const std::string &project, const std::string &file) {
    tree_->AddFile(project, file);
}

void CWorkspaceBar::RemoveFile(const std::string &project, const std::string &file) {
    tree_->RemoveFile(project, file);
}

void CWorkspaceBar::RebuildOutputRows() {
    tree_->RebuildOutputRows();
}

void CWorkspaceBar::RebuildBrowseTree() {}

void CWorkspaceBar::ClearBrowseTree() {}

void CWorkspaceBar::ReloadTodo() {}

void CWorkspaceBar::RescanTodo(const std::string &) {}

void CWorkspaceBar::ApplyGrouping(int grouping) {
    if (grouping == 1 || grouping == 2) grouping_ = grouping;
}

int CWorkspaceBar::FirstVisibleRow() const {
    return tree_->FirstVisibleRow();
}

void CWorkspaceBar::SetFirstVisibleRow(int row) {
    tree_->SetFirstVisibleRow(row);
}

void CWorkspaceBar::dragEnterEvent(QDragEnterEvent *event) {
    tree_->OfferDrop(*event);
}

void CWorkspaceBar::dropEvent(QDropEvent *event) {
    tree_->TakeDrop(*event, host_->ActiveProject());
}
