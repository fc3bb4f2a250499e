#include "navigation/WorkspaceBar.h"

#include <QDropEvent>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

#include "app/CommandIds.h"
#include "app/StringIds.h"
#include "framework/Icons.h"
#include "framework/Language.h"
#include "framework/MDIFrameWnd.h"
#include "framework/Text.h"
#include "navigation/BrowseRows.h"
#include "navigation/ProjectTree.h"
#include "navigation/TabBrowseView.h"
#include "navigation/TabTodoView.h"
#include "navigation/WorkspaceBarHost.h"

namespace {

constexpr int kBarId = 0xe86e;  // names the bar in saved layouts
constexpr int kLabelMargin = 5;
constexpr int kGroupingBarHeight = 22, kGroupingIconSize = 16;

struct GroupingCommand {
    int command, grouping;
    const char *icon;
};
constexpr GroupingCommand kGroupings[] = {{ID_GROUP_BY_CATEGORY, kGroupByCategory, "group-category"},
                                          {ID_GROUP_BY_FILE, kGroupByFile, "group-file"}};

QString CommandName(int command) {
    const QString help = ToQString(LoadText(command));
    return help.mid(help.indexOf('\n') + 1);
}

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
    symbols_ = new CTabBrowseView(*host_, content);
    symbols_->onMenu = [this](const QPoint &at) { host_->ShowMenu(IDR_GROUPING_MENU, at, *this); };
    todo_ = new CTabTodoView(*host_, content);

    tabs_ = new QTabWidget(content);
    tabs_->setDocumentMode(true);
    tabs_->setTabPosition(QTabWidget::South);
    tabs_->setUsesScrollButtons(false);  // in a narrow bar all tabs stay in reach, with cut captions
    tabs_->setElideMode(Qt::ElideRight);
    tabs_->addTab(tree_, LoadIcon("bar-workspace"), ToQString(LoadText(IDS_TAB_FILES)));
    tabs_->addTab(symbols_, LoadIcon("bar-symbols"), ToQString(LoadText(IDS_TAB_SYMBOLS)));
    tabs_->addTab(todo_, LoadIcon("bar-todo"), ToQString(LoadText(IDS_TAB_TODO)));

    for (int tab = 0; tab < tabs_->count(); ++tab) tabs_->setTabToolTip(tab, tabs_->tabText(tab));

    MakeGroupingBar(content);
    connect(tabs_, &QTabWidget::currentChanged, this, [this] { UpdateGroupingBar(); });
    UpdateGroupingBar();

    auto *layout = new QVBoxLayout(content);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(label_);
    layout->addWidget(groupingBar_);
    layout->addWidget(tabs_, 1);
    setWidget(content);
    setAcceptDrops(true);
}

void CWorkspaceBar::MakeGroupingBar(QWidget *parent) {
    groupingBar_ = new QToolBar(ToQString(LoadText(IDS_GROUPING_BAR)), parent);
    groupingBar_->setFixedHeight(kGroupingBarHeight);
    groupingBar_->setContentsMargins(kLabelMargin - 2, 0, 0, 0);
    groupingBar_->setIconSize(QSize(kGroupingIconSize, kGroupingIconSize));
    for (size_t i = 0; i < std::size(kGroupings); ++i) {
        const int grouping = kGroupings[i].grouping;
        auto *button = new QToolButton(groupingBar_);
        button->setText(CommandName(kGroupings[i].command));
        button->setIcon(LoadIcon(kGroupings[i].icon));
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        button->setPopupMode(QToolButton::InstantPopup);
        button->setFocusPolicy(Qt::TabFocus);
        if (auto *frame = dynamic_cast<CMDIFrameWnd *>(parentWidget())) {
            QMenu *menu = frame->MakeMenu(IDR_GROUPING_MENU, this);
            menu->setParent(button, Qt::Popup);
            button->setMenu(menu);
        }
        groupingButtons_[i] = groupingBar_->addWidget(button);
        OnCommand(
            kGroupings[i].command, [this, grouping] { ChooseGrouping(grouping); },
            [this, grouping](CCmdUI &ui) {
                ui.Enable(!host_->ActiveProject().empty());
                ui.SetCheck(grouping_ == grouping);
            });
    }
}

void CWorkspaceBar::UpdateGroupingBar() {
    for (size_t i = 0; i < std::size(kGroupings); ++i)
        groupingButtons_[i]->setVisible(kGroupings[i].grouping == grouping_);
    groupingBar_->setVisible(tabs_->currentIndex() == kTabSymbols);
}

CWorkspaceBar::~CWorkspaceBar() {
    delete widget();  // the views speak to the host until their end
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

void CWorkspaceBar::RebuildBrowseTree() {
    symbols_->Rebuild(grouping_);
}

void CWorkspaceBar::ClearBrowseTree() {
    symbols_->Clear();
}

void CWorkspaceBar::ChooseGrouping(int grouping) {
    grouping_ = grouping;
    UpdateGroupingBar();
    if (!host_->ActiveProject().empty()) host_->StoreGrouping(grouping);
    RebuildBrowseTree();
}

void CWorkspaceBar::ApplyGrouping(int grouping) {
    if ((grouping != kGroupByCategory && grouping != kGroupByFile) || grouping == grouping_) return;
    grouping_ = grouping;
    UpdateGroupingBar();
    RebuildBrowseTree();
}

void CWorkspaceBar::ReloadTodo() {
    todo_->Scan(host_->ActiveProject());
}

void CWorkspaceBar::RescanTodo(const std::string &savedFile) {
    todo_->Scan(host_->ActiveProject(), savedFile);
}

void CWorkspaceBar::dragEnterEvent(QDragEnterEvent *event) {
    tree_->OfferDrop(*event);
}

void CWorkspaceBar::dropEvent(QDropEvent *event) {
    tree_->TakeDrop(*event);
}
