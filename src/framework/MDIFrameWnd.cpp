#include "framework/MDIFrameWnd.h"

#include <QAbstractEventDispatcher>
#include <QEvent>
#include <QMdiArea>
#include <QMenu>
#include <QMenuBar>
#include <QShortcut>
#include <QStyle>
#include <QTimer>
#include <QVBoxLayout>

#include "framework/Document.h"
#include "framework/Icons.h"
#include "framework/Language.h"
#include "framework/MDIChildWnd.h"
#include "framework/MDITabs.h"
#include "framework/Text.h"
#include "framework/View.h"
#include "framework/WinApp.h"

namespace {

constexpr const char *kBaseText = "baseText";  // property of a menu entry: its own text, without keys
constexpr int kIdleMilliseconds = 40;          // shortest time between two passes over the tool bars

}  // namespace

CMDIFrameWnd::CMDIFrameWnd() {
    auto *centre = new QWidget(this);
    auto *column = new QVBoxLayout(centre);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    tabs_ = new CMDITabs(this);
    client_ = new QMdiArea(centre);
    client_->setFrameShape(QFrame::NoFrame);
    client_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    client_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    column->addWidget(tabs_);
    column->addWidget(client_, 1);
    setCentralWidget(centre);
    setDockNestingEnabled(true);
    setUnifiedTitleAndToolBarOnMac(false);

    connect(client_, &QMdiArea::subWindowActivated, this, [this](QMdiSubWindow *window) {
        OnClientChanged();
        if (window) SetActiveView(GetActiveView());
    });

    // Tool bars show what can be done now whenever the program has come to rest.
    idle_ = new QTimer(this);
    idle_->setSingleShot(true);
    connect(idle_, &QTimer::timeout, this, [this] { UpdateCommandUI(); });
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this, [this] {
        if (!updatedByIdle_.isValid() || updatedByIdle_.elapsed() >= kIdleMilliseconds) {
            if (std::exchange(restless_, false)) UpdateCommandUI();
        } else if (restless_ && !idle_->isActive()) {
            idle_->start(kIdleMilliseconds);
        }
    });
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, this, [this] { restless_ = true; });
}

CMDIFrameWnd::~CMDIFrameWnd() {
    QAbstractEventDispatcher::instance()->disconnect(this);
    disconnect(client_, nullptr, this, nullptr);
}

bool CMDIFrameWnd::LoadFrame(int resource) {
    if (CLanguage::Current().Menu(resource).empty()) return false;
    BuildAccelerators(resource);
    FillMenu(nullptr, resource, nullptr);
    UpdateTitle();
    return true;
}

void CMDIFrameWnd::FillMenu(QMenu *menu, int resource, CCmdTarget *target) {
    std::vector<QMenu *> parents{menu};  // by the depth of an entry; null: the menu bar
    for (const LangMenuEntry &entry : CLanguage::Current().Menu(resource)) {
        parents.resize(static_cast<size_t>(entry.depth) + 1);
        QMenu *parent = parents.back();
        if (entry.command == 0 && entry.text) {
            QMenu *sub = AddSubMenu(parent ? static_cast<QWidget *>(parent) : menuBar(), entry.text, target);
            parents.push_back(sub);
        } else if (!parent) {
            if (entry.command != 0)
                menuBar()->addAction(MakeCommandAction(entry.command, entry.text, menuBar(), target));
        } else if (entry.command == 0) {
            parent->addSeparator();
        } else {
            parent->addAction(MakeCommandAction(entry.command, entry.text, parent, target));
        }
    }
}

QMenu *CMDIFrameWnd::AddSubMenu(QWidget *parent, const std::string &text, CCmdTarget *target) {
    auto *menu = new QMenu(ToQString(text), parent);
    parent->addAction(menu->menuAction());
    connect(menu, &QMenu::aboutToShow, this, [this, menu, target] { PrepareMenu(menu, target); });
    connect(menu, &QMenu::aboutToHide, this, [this] { OnStatusHelp({}); });
    connect(menu, &QMenu::hovered, this, [this](QAction *action) { ShowCommandHelp(action->data().toInt()); });
    return menu;
}

QAction *CMDIFrameWnd::MakeCommandAction(int command, const std::string &text, QObject *owner, CCmdTarget *target) {
    auto *action = new QAction(owner);
    action->setData(command);
    action->setMenuRole(QAction::NoRole);
    const std::string keys = AcceleratorText(command);
    action->setProperty(kBaseText, ToQString(text));
    action->setText(ToQString(keys.empty() ? text : text + "\t" + keys));
    action->setIcon(LoadIcon(CLanguage::Current().CommandIcon(command)));

    const std::string help = LoadText(command);
    const size_t tip = help.find('\n');
    if (tip != std::string::npos)
        action->setToolTip(ToQString(help.substr(tip + 1) + (keys.empty() ? "" : " (" + keys + ")")));
    connect(action, &QAction::triggered, this, [this, command, target] { RunCommand(command, target); });
    connect(action, &QAction::hovered, this, [this, command] { ShowCommandHelp(command); });
    return action;
}

bool CMDIFrameWnd::RouteCommand(int id, CCmdUI *ui, CCmdTarget *target) {
    return (target && target->OnCmdMsg(id, ui)) || OnCmdMsg(id, ui);
}

void CMDIFrameWnd::RunCommand(int id, CCmdTarget *target) {
    CCmdUI ui(id);
    if (!RouteCommand(id, &ui, target) || !ui.enabled) return;
    RouteCommand(id, nullptr, target);
    restless_ = true;
}

bool CMDIFrameWnd::OnCmdMsg(int id, CCmdUI *ui) {
    CMDIChildWnd *child = MDIGetActive();
    CView *barView = GetBarView();
    return (child && child->OnCmdMsg(id, ui)) || (barView && barView->OnCmdMsg(id, ui)) || CWnd::OnCmdMsg(id, ui) ||
           CWinApp::Get()->OnCmdMsg(id, ui);
}

void CMDIFrameWnd::PrepareMenu(QMenu *menu, CCmdTarget *target) {
    if (menuBar()->actions().contains(menu->menuAction())) OnInitMenu();
    for (QAction *action : menu->actions()) {
        if (!action->data().isValid()) continue;
        const int command = action->data().toInt();
        CCmdUI ui(command);
        if (!RouteCommand(command, &ui, target)) ui.enabled = false;
        action->setEnabled(ui.enabled);
        action->setCheckable(ui.checked.has_value());
        if (ui.checked) action->setChecked(*ui.checked);
        const std::string keys = AcceleratorText(command);
        const std::string text = ui.text ? *ui.text : FromQString(action->property(kBaseText).toString());
        action->setText(ToQString(keys.empty() ? text : text + "\t" + keys));
    }
}

void CMDIFrameWnd::BuildAccelerators(int resource) {
    for (const LangAccelerator &entry : CLanguage::Current().Accelerators(resource)) {
        const QKeySequence keys(ToQString(entry.keys), QKeySequence::PortableText);
        accelerators_.emplace_back(entry.command, FromQString(keys.toString(QKeySequence::NativeText)));
        // The command's state is asked at the key, not when a menu last opened.
        auto *shortcut = new QShortcut(keys, this, nullptr, nullptr, Qt::ApplicationShortcut);
        const int command = entry.command;
        connect(shortcut, &QShortcut::activated, this, [this, command] { RunCommand(command, nullptr); });
    }
}

std::string CMDIFrameWnd::AcceleratorText(int command) const {
    for (const auto &[id, keys] : accelerators_)
        if (id == command) return keys;
    return {};
}

QAction *CMDIFrameWnd::FindTopEntry(const std::string &text) const {
    for (QAction *top : menuBar()->actions())
        if (top->text() == ToQString(text)) return top;
    return nullptr;
}

QMenu *CMDIFrameWnd::FindTopMenu(const std::string &text) const {
    const QAction *top = FindTopEntry(text);
    return top ? top->menu() : nullptr;
}

void CMDIFrameWnd::RemoveCommands(QMenu *menu, int first, int last) {
    for (QAction *action : menu->actions()) {
        if (!action->data().isValid() || action->data().toInt() < first || action->data().toInt() > last) continue;
        menu->removeAction(action);
        action->deleteLater();
    }
}

QMenu *CMDIFrameWnd::MakeMenu(int resource, CCmdTarget *target) {
    auto *menu = new QMenu(this);
    FillMenu(menu, resource, target);
    connect(menu, &QMenu::aboutToShow, this, [this, menu, target] { PrepareMenu(menu, target); });
    connect(menu, &QMenu::aboutToHide, this, [this] { OnStatusHelp({}); });
    return menu;
}

void CMDIFrameWnd::TrackPopupMenu(int resource, const QPoint &at, CCmdTarget *target) {
    const std::unique_ptr<QMenu> menu(MakeMenu(resource, target));
    if (!menu->isEmpty()) menu->exec(at);
}

void CMDIFrameWnd::ShowCommandHelp(int command) {
    const std::string help = LoadText(command);
    OnStatusHelp(help.substr(0, help.find('\n')));
}

CMDIChildWnd *CMDIFrameWnd::MDIGetActive() const {
    // currentSubWindow keeps the answer while another window of the program has the focus.
    return dynamic_cast<CMDIChildWnd *>(client_->currentSubWindow());
}

CView *CMDIFrameWnd::GetActiveView() const {
    CMDIChildWnd *child = MDIGetActive();
    return child ? child->GetActiveView() : nullptr;
}

void CMDIFrameWnd::SetActiveView(CView *view) {
    if (activeView_ == view) return;
    if (auto *last = static_cast<CView *>(activeView_.data())) last->OnActivateView(false);
    activeView_ = view;
    if (view) view->OnActivateView(true);
}

void CMDIFrameWnd::FocusActiveView() {
    activateWindow();  // a floating bar is a window of its own
    CView *view = GetActiveView();
    (view ? static_cast<QWidget *>(view) : client_)->setFocus(Qt::OtherFocusReason);
}

std::vector<CMDIChildWnd *> CMDIFrameWnd::Children() const {
    std::vector<CMDIChildWnd *> children;
    for (QMdiSubWindow *window : client_->subWindowList(QMdiArea::CreationOrder))
        if (auto *child = dynamic_cast<CMDIChildWnd *>(window); child && child->GetActiveView())
            children.push_back(child);
    return children;
}

void CMDIFrameWnd::AddChild(CMDIChildWnd *child) {
    const QRect place = CascadePlace(static_cast<int>(Children().size()));
    client_->addSubWindow(child);
    child->setGeometry(place);
    child->show();
    if (!child->isMaximized()) child->setGeometry(place);  // the area seeks a free place of its own
    OnClientChanged();
}

QRect CMDIFrameWnd::CascadePlace(int index) const {
    const QSize area = client_->viewport()->size(), size = area * 3 / 4;
    const int step = std::max(style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, client_), 1);
    const int places = std::max((area.height() - size.height()) / step, 1);  // then from the top again
    return {QPoint(1, 1) * (index % places * step), size};
}

void CMDIFrameWnd::Cascade() {
    int place = 0;
    for (CMDIChildWnd *child : Children()) {
        if (child->isMinimized()) continue;
        child->showNormal();
        child->setGeometry(CascadePlace(place++));
        child->raise();
    }
    if (CMDIChildWnd *active = MDIGetActive()) active->raise();
}

void CMDIFrameWnd::Tile(Qt::Orientation rows) {
    std::vector<CMDIChildWnd *> children = Children();
    std::erase_if(children, [](const CMDIChildWnd *child) { return child->isMinimized(); });
    const int count = static_cast<int>(children.size());
    const QRect area = client_->viewport()->rect();
    for (int i = 0; i < count; ++i) {
        children[static_cast<size_t>(i)]->showNormal();
        const bool stacked = rows == Qt::Horizontal;
        const int from = (stacked ? area.height() : area.width()) * i / count;
        const int to = (stacked ? area.height() : area.width()) * (i + 1) / count;
        children[static_cast<size_t>(i)]->setGeometry(stacked ? QRect(0, from, area.width(), to - from)
                                                              : QRect(from, 0, to - from, area.height()));
    }
}

void CMDIFrameWnd::FillWindowList(QMenu *menu, int firstCommand, const std::string &all) {
    RemoveCommands(menu, firstCommand, firstCommand + kWindowListEntries);
    const std::vector<CMDIChildWnd *> children = Children();
    const int count = static_cast<int>(children.size());
    if (count > 0 && !menu->actions().empty() && !menu->actions().back()->isSeparator()) menu->addSeparator();
    for (int i = 0; i < std::min(kWindowListEntries, count); ++i) {
        const QString title = children[static_cast<size_t>(i)]->windowTitle().replace("&", "&&");
        const QString text = QString("&%1 %2").arg(i + 1).arg(title);
        menu->addAction(MakeCommandAction(firstCommand + i, FromQString(text), menu));
    }
    if (count > kWindowListEntries) menu->addAction(MakeCommandAction(firstCommand + kWindowListEntries, all, menu));
}

void CMDIFrameWnd::SetTabs(bool on, bool top) {
    auto *column = static_cast<QVBoxLayout *>(centralWidget()->layout());
    column->removeWidget(tabs_);
    column->insertWidget(top ? 0 : -1, tabs_);
    tabs_->SetAtTop(top);
    tabsOn_ = on;
    RefreshTabs();
}

void CMDIFrameWnd::HideTabs(bool hide) {
    tabsHidden_ = hide;
    RefreshTabs();
}

void CMDIFrameWnd::RefreshTabs() {
    tabs_->Refresh();
    tabs_->setVisible(tabsOn_ && !tabsHidden_ && tabs_->count() > 0);
}

void CMDIFrameWnd::OnClientChanged() { RefreshTabs(); }

void CMDIFrameWnd::UpdateTitle() {
    composing_ = true;
    setWindowTitle(ToQString(ComposeTitle()));
    composing_ = false;
}

bool CMDIFrameWnd::event(QEvent *event) {
    if (event->type() == QEvent::Polish || event->type() == QEvent::PaletteChange)
        client_->setBackground(palette().brush(QPalette::Active, QPalette::Window));
    // A maximised child writes its own title into the main window's; the composed one stays.
    if (event->type() == QEvent::WindowTitleChange && !composing_) {
        const bool handled = QMainWindow::event(event);
        if (windowTitle() != ToQString(ComposeTitle())) UpdateTitle();
        return handled;
    }
    return QMainWindow::event(event);
}
