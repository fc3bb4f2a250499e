#include "app/MainFrame.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QMenu>
#include <QMimeData>
#include <QScreen>
#include <QUrl>

#include "app/BarIds.h"
#include "app/CommandIds.h"
#include "app/IDEApp.h"
#include "app/Path.h"
#include "app/ProjectDirScope.h"
#include "app/Settings.h"
#include "app/StringIds.h"
#include "build/OutputBar.h"
#include "framework/CommandReplay.h"
#include "framework/Document.h"
#include "framework/Icons.h"
#include "framework/Language.h"
#include "framework/MDIChildWnd.h"
#include "framework/RecentList.h"
#include "framework/Text.h"
#include "framework/View.h"
#include "navigation/WorkspaceBar.h"
#include "online/NewsReader.h"
#include "platform/NativePath.h"
#include "platform/PathCalls.h"
#include "project/MacroExpansion.h"
#include "project/Workspace.h"

namespace {

constexpr int kStartupTimer = 2001;
constexpr int kStartupMilliseconds = 200;
constexpr int kTrackerTimer = 2004;
constexpr int kTrackerMilliseconds = 500;

constexpr const char *kEditBars = "Edit Bar State";
constexpr const char *kResetBars = "Reset Bar State";
constexpr const char *kTabs = "MDITabs";

// Minimal widths of the nine status panes in characters; 0 shows a pane only while it has a text.
const std::vector<int> kPaneWidths = {0, 0, 14, 16, 12, 0, 0, 0, 0};

bool ReadSwitch(const char *key, bool fallback) {
    const int value = GetUserInt(kTabs, key, fallback);
    return value == 0 || value == 1 ? value == 1 : fallback;
}

}  // namespace

CMainFrame::CMainFrame() {
    setAcceptDrops(true);
    MapCommands();
    MapMessages();
}

CMainFrame::~CMainFrame() {
    KillTimer(kStartupTimer);
    KillTimer(kTrackerTimer);
}

bool CMainFrame::Create() {
    if (!LoadFrame(IDR_MAINFRAME) || !CreateBars()) return false;
    CIDEApp::Get().build.LoadBuildToolBar(IDR_MAINFRAME);
    ReadTabSettings();
    ApplyTabSettings();
    return true;
}

bool CMainFrame::CreateBars() {
    mainToolBar_ = new CXTToolBar(kBarMain, LoadText(IDS_BAR_MAIN), this);
    mainToolBar_->LoadToolBar(IDR_TOOLBAR_MAIN);
    addToolBar(Qt::TopToolBarArea, mainToolBar_);

    configBox_ = new CXTFlatComboBox(this);
    configBox_->hide();
    connect(configBox_, &QComboBox::activated, this, [this] { RunCommand(ID_CONFIG_SELECT); });
    buildToolBar_ = new CXTToolBar(kBarBuild, LoadText(IDS_BAR_BUILD), this);
    buildToolBar_->SetBoxProvider([this](int command) { return command == ID_CONFIG_SELECT ? configBox_ : nullptr; });
    addToolBar(Qt::TopToolBarArea, buildToolBar_);

    outputBar_ = new COutputBar(this);
    addDockWidget(Qt::BottomDockWidgetArea, outputBar_);
    workspaceBar_ = new CWorkspaceBar(LoadText(IDS_BAR_WORKSPACE), this);
    addDockWidget(Qt::LeftDockWidgetArea, workspaceBar_);
    setCorner(Qt::BottomLeftCorner, Qt::LeftDockWidgetArea);

    statusBar_ = new CXTStatusBar(this, kPaneWidths);
    setStatusBar(statusBar_);
    return true;
}

void CMainFrame::BeginStartup(std::vector<std::string> files) {
    startupFiles_ = std::move(files);
    SetTimer(kTrackerTimer, kTrackerMilliseconds);
    SetTimer(kStartupTimer, kStartupMilliseconds);
    RestoreWindow();
}

void CMainFrame::OnTimer(int id) {
    if (id == kTrackerTimer) {
        CIDEApp::Get().fileTracker.CheckTrackedFiles();
    } else if (id == kStartupTimer) {
        KillTimer(kStartupTimer);
        if (startupTick_++ == 0)
            FirstTick();
        else
            SecondTick();
    }
}

// Only a tick in front of the slow part, so that the window is painted before it.
void CMainFrame::FirstTick() {
    CIDEApp &app = CIDEApp::Get();
    app.AddOutputLine(nullptr);
    if (GetUserInt("Workspace", "Load Last Workspace", 1) != 0) app.AddOutputLine(LoadText(IDS_LOADING_WORKSPACE));
    SetTimer(kStartupTimer, kStartupMilliseconds);
}

void CMainFrame::SecondTick() {
    CIDEApp &app = CIDEApp::Get();
    if (!startupFiles_.empty()) {
        for (const std::string &file : startupFiles_) app.OpenDocumentFile(file);
    } else if (GetUserInt("Workspace", "Load Last Workspace", 1) != 0) {
        const std::string last = GetUserString("Workspace", "Last Workspace", "");
        if (last.empty()) {
            app.AddOutputLine(LoadText(IDS_NOTHING_TO_LOAD));
        } else {
            if (!app.OpenWorkspace(last.c_str(), EqualNoCase(CPath(last).GetExtension(), "__w")))
                WriteUserString("Workspace", "Last Workspace", "");
            app.AddOutputLine(LoadText(IDS_LOADED));
        }
    }
    started_ = true;
    if (GetUserInt("News", "Enabled", 0) != 0) StartNewsFetch();
    PostMessage(kMsgPluginsFound);
}

void CMainFrame::MapMessages() {
    CIDEApp &app = CIDEApp::Get();
    OnTextMessage(kMsgOutputText, [&app](std::string text) { app.messageList.OnBuildLine(text); });
    OnTextMessage(kMsgOutputTextHeap, [&app](std::string text) { app.messageList.OnOutputLine(text); });
    OnMessage(kMsgChildEnded, [&app](intptr_t, intptr_t) { app.messageList.OnChildEnded(); });
    OnMessage(kCommandMessage, [this](intptr_t id, intptr_t) { RunCommand(static_cast<int>(id)); });
    OnMessage(kMsgPluginsFound, [this, &app](intptr_t, intptr_t) {
        SaveBarState(kResetBars);
        LoadBarState(kEditBars);
        app.AddOutputLine(LoadText(IDS_STARTUP_DONE));
    });
}

void CMainFrame::MapCommands() {
    const auto bar = [this](int command, auto CMainFrame::*member) {
        OnCommand(
            command, [this, member] { (this->*member)->setVisible((this->*member)->isHidden()); },
            [this, member](CCmdUI &ui) { ui.SetCheck(!(this->*member)->isHidden()); });
    };
    bar(ID_VIEW_WORKSPACE_BAR, &CMainFrame::workspaceBar_);
    bar(ID_VIEW_OUTPUT_BAR, &CMainFrame::outputBar_);
    bar(ID_VIEW_BUILD_TOOL_BAR, &CMainFrame::buildToolBar_);
    bar(ID_VIEW_TOOLBAR, &CMainFrame::mainToolBar_);
    bar(ID_VIEW_STATUS_BAR, &CMainFrame::statusBar_);
    OnCommand(ID_RESET_BARS, [this] {
        CIDEApp::Get().AddOutputLine("Resetting bar layout...");
        LoadBarState(kResetBars);
        CIDEApp::Get().AddOutputLine(LoadText(IDS_BARS_RESET));
    });

    const auto toggleTabs = [this] {
        tabsOn_ = !tabsOn_;
        ApplyTabSettings();
    };
    const auto tabsText = [this](CCmdUI &ui) { ui.SetText(LoadText(tabsOn_ ? IDS_TABS_OFF : IDS_TABS_ON)); };
    OnCommand(ID_TABS_TOGGLE, toggleTabs, tabsText);
    OnCommand(ID_TABS_TOGGLE_TWIN, toggleTabs, tabsText);
    const auto place = [this](int command, bool top) {
        OnCommand(
            command,
            [this, top] {
                tabsTop_ = top;
                ApplyTabSettings();
            },
            [this, top](CCmdUI &ui) { ui.SetCheck(tabsTop_ == top); });
    };
    place(ID_TABS_TOP, true);
    place(ID_TABS_BOTTOM, false);

    OnCommand(
        ID_CONFIG_SELECT, [] { CIDEApp::Get().workspaces.SelectConfiguration(); },
        [](CCmdUI &ui) { ui.Enable(CIDEApp::Get().workspace != nullptr); });
    OnCommand(ID_APP_EXIT, [this] { close(); });

    const auto withChild = [this](int command, CCmdTarget::Run run) {
        OnCommand(command, std::move(run), [this](CCmdUI &ui) { ui.Enable(MDIGetActive() != nullptr); });
    };
    withChild(ID_FILE_CLOSE, [this] { MDIGetActive()->close(); });
    withChild(ID_WINDOW_CASCADE, [this] { Cascade(); });
    withChild(ID_WINDOW_TILE_HORZ, [this] { Tile(Qt::Horizontal); });
    withChild(ID_WINDOW_TILE_VERT, [this] { Tile(Qt::Vertical); });
    withChild(ID_WINDOW_NEXT, [this] { ActivateNeighbour(1); });
    withChild(ID_WINDOW_PREV, [this] { ActivateNeighbour(-1); });
    withChild(ID_WINDOW_CLOSE_ALL, [] {
        if (CIDEApp::Get().SaveAllModified()) CIDEApp::Get().CloseAllDocuments();
    });
    OnCommandRange(
        ID_WINDOW_LIST, ID_WINDOW_LIST + kWindowListEntries - 1,
        [this](int id) { Children()[static_cast<size_t>(id - ID_WINDOW_LIST)]->ActivateFrame(); },
        [this](CCmdUI &ui) {
            const std::vector<CMDIChildWnd *> children = Children();
            const auto index = static_cast<size_t>(ui.id - ID_WINDOW_LIST);
            ui.Enable(index < children.size());
            ui.SetCheck(index < children.size() && children[index] == MDIGetActive());
        });
    const auto tabChild = [this] { return tabMenuChild_ ? tabMenuChild_ : MDIGetActive(); };
    withChild(ID_TAB_ACTIVATE, [tabChild] { tabChild()->ActivateFrame(); });
    withChild(ID_TAB_CLOSE, [tabChild] { tabChild()->close(); });
}

void CMainFrame::ShowWarning(const std::string &text) {
    RunMessageBox(this, BoxTitle(IDS_KIND_WARNING), text, BoxIcon::exclamation, BoxButtons::ok);
}

void CMainFrame::ShowError(const std::string &text) {
    RunMessageBox(this, BoxTitle(IDS_KIND_ERROR), text, BoxIcon::stop, BoxButtons::ok);
}

void CMainFrame::ShowNotice(const std::string &text) {
    RunMessageBox(this, BoxTitle(IDS_KIND_NOTICE), text, BoxIcon::exclamation, BoxButtons::ok);
}

BoxResult CMainFrame::AskUser(const std::string &text, BoxButtons buttons) {
    return RunMessageBox(this, BoxTitle(IDS_KIND_QUESTION), text, BoxIcon::question, buttons);
}

std::string CMainFrame::BoxTitle(int kind) const { return LoadText(IDS_APP_TITLE) + " - " + LoadText(kind); }

std::string CMainFrame::GetProjectConfigName() const {
    const int item = std::max(configBox_->GetCurSel(), 0);
    return item < configBox_->GetCount() ? configBox_->GetLBText(item) : std::string();
}

void CMainFrame::ExpandMacros(const std::string &project, std::string &text) const {
    ExpandMacroText(text, ProjectMacroValues(project, [this] { return GetProjectConfigName(); }));
}

std::string CMainFrame::ComposeTitle() const {
    const CIDEApp &app = CIDEApp::Get();
    std::string title = LoadText(IDS_APP_TITLE);
    const std::string project = CPath(app.GetActiveProjectPath()).GetTitle();
    const std::string workspace =
        app.WorkspaceKind() == kWorkspaceMultiple ? CPath(app.GetWorkspacePath()).GetTitle() : std::string();
    if (!project.empty()) title += " - " + project;
    if (!workspace.empty()) title += project.empty() ? " - " + workspace : " (" + workspace + ")";
    return title;
}

void CMainFrame::ReadTabSettings() {
    tabsOn_ = ReadSwitch("State", true);
    tabsTop_ = ReadSwitch("Top", true);
    if (tabsTop_ == ReadSwitch("Bottom", false)) tabsTop_ = true;  // at exactly one edge
}

void CMainFrame::ApplyTabSettings() { SetTabs(tabsOn_, tabsTop_); }

void CMainFrame::OnTabMenu(CMDIChildWnd *child, const QPoint &at) {
    tabMenuChild_ = child;
    TrackPopupMenu(IDR_TAB_MENU, at);
    tabMenuChild_ = nullptr;
}

void CMainFrame::OnStatusHelp(const std::string &text) {
    if (statusBar_) statusBar_->SetPaneText(kPaneHelp, text);
}

void CMainFrame::OnInitMenu() {
    FillToolsMenu();
    FillRecentMenu(IDS_MENU_RECENT_FILES, ID_RECENT_FILES);
    FillRecentMenu(IDS_MENU_RECENT_WORKSPACES, ID_RECENT_WORKSPACES);
    if (QMenu *menu = FindTopMenu(LoadText(IDS_MENU_WINDOW))) FillWindowList(menu, ID_WINDOW_LIST);
}

void CMainFrame::FillToolsMenu() {
    QMenu *menu = FindTopMenu(LoadText(IDS_MENU_TOOLS));
    if (!menu) {
        CIDEApp::Get().AddOutputLine("Internal error #5 in CMainFrame::OnInitMenu.");
        return;
    }
    RemoveCommands(menu, ID_TOOL_STEPS, ID_TOOL_STEPS + kMaxToolSteps - 1);
    const auto &workspace = CIDEApp::Get().workspace;
    const int steps = workspace ? std::min(workspace->GetToolsNumber(), kMaxToolSteps) : 0;
    for (int step = 0; step < steps; ++step) {
        const std::string name = workspace->GetToolActionName("", step);
        QAction *action = MakeCommandAction(ID_TOOL_STEPS + step, name, menu);
        action->setIcon(StandardStepIcon(name));
        menu->addAction(action);
    }
    if (menu->isEmpty()) menu->addAction(MakeCommandAction(ID_TOOL_STEPS, LoadText(IDS_EMPTY_TREE), menu));
}

QIcon CMainFrame::StandardStepIcon(const std::string &name) const {
    static constexpr struct {
        int name, command;
    } kSteps[] = {{IDS_STEP_FIRST, ID_STEP_FIRST_RUN},
                  {IDS_STEP_SECOND, ID_STEP_SECOND_RUN},
                  {IDS_STEP_THIRD, ID_STEP_THIRD_RUN},
                  {IDS_STEP_FOURTH, ID_STEP_FOURTH_RUN},
                  {IDS_STEP_FIFTH, ID_STEP_FIFTH_RUN}};
    for (const auto &step : kSteps)
        if (EqualNoCase(LoadText(step.name), name)) return LoadIcon(CLanguage::Current().CommandIcon(step.command));
    return {};
}

void CMainFrame::RemoveCommands(QMenu *menu, int first, int last) {
    for (QAction *action : menu->actions()) {
        if (!action->data().isValid() || action->data().toInt() < first || action->data().toInt() > last) continue;
        menu->removeAction(action);
        action->deleteLater();
    }
}

// The sub-menu of a recent list holds one entry for each name, or a single one that is off.
void CMainFrame::FillRecentMenu(int text, int firstCommand) {
    for (QMenu *menu : findChildren<QMenu *>()) {
        if (menu->title() != ToQString(LoadText(text))) continue;
        RemoveCommands(menu, firstCommand, firstCommand + static_cast<int>(CRecentList::kEntries) - 1);
        for (int command = firstCommand; command < firstCommand + static_cast<int>(CRecentList::kEntries); ++command) {
            const CCmdUI ui = QueryCommand(*this, command);
            if (ui.enabled || command == firstCommand)
                menu->addAction(MakeCommandAction(command, ui.text.value_or(LoadText(IDS_EMPTY_TREE)), menu));
        }
    }
}

void CMainFrame::SaveBarState(const std::string &name) {
    // The layout to go back to is the one of the very first run.
    if (name == kResetBars && HasUserSection(kResetBars)) return;
    CMDIFrameWnd::SaveBarState(name);
}

CUserStore &CMainFrame::UserStore() { return UserSettings().User(); }

void CMainFrame::RestoreWindow() {
    const std::vector<uint8_t> place = GetUserBinary("Settings", "Window Position");
    const QByteArray bytes(reinterpret_cast<const char *>(place.data()), static_cast<qsizetype>(place.size()));
    if (place.empty() || !restoreGeometry(bytes)) {
        const QSize room = screen()->availableSize();
        resize(std::min(1200, room.width() * 9 / 10), std::min(800, room.height() * 9 / 10));
    }
    show();
}

void CMainFrame::SaveWindow() {
    const QByteArray place = saveGeometry();
    WriteUserBinary("Settings", "Window Position", {place.begin(), place.end()});
}

void CMainFrame::closeEvent(QCloseEvent *event) {
    if (CloseFrame())
        event->accept();
    else
        event->ignore();
}

bool CMainFrame::CloseFrame() {
    CIDEApp &app = CIDEApp::Get();
    closing_ = true;
    const std::string project = app.GetActiveProjectPath();
    if (app.session.IsOpen()) {
        app.session.Stop();
        app.session.End();
    }
    if (app.workspace) app.workspace->Save();
    if (!app.CloseWorkspace()) closing_ = false;
    if (!closing_) return false;
    SaveBarState(kEditBars);
    SaveWindow();
    if (!project.empty()) {
        app.bookmarks.Store(project);
        app.breakpoints.Store(project);
    }
    app.macro.Store();
    app.debugger.DLLCleanup();
    WriteUserInt(kTabs, "State", tabsOn_);
    WriteUserInt(kTabs, "Top", tabsTop_);
    WriteUserInt(kTabs, "Bottom", !tabsTop_);
    return true;
}

void CMainFrame::ActivateNeighbour(int step) {
    const std::vector<CMDIChildWnd *> children = Children();
    const auto count = static_cast<ptrdiff_t>(children.size());
    const auto active = std::ranges::find(children, MDIGetActive()) - children.begin();
    if (active < count) children[static_cast<size_t>((active + step + count) % count)]->ActivateFrame();
}

void CMainFrame::changeEvent(QEvent *event) {
    CMDIFrameWnd::changeEvent(event);
    if (event->type() != QEvent::ActivationChange || !CIDEApp::Get().GetMainFrame()) return;
    // What other programs do to open files while this one is inactive is not reported.
    CIDEApp &app = CIDEApp::Get();
    const bool active = QApplication::applicationState() == Qt::ApplicationActive;
    for (const auto &document : app.GetTemplates().front()->GetDocuments()) {
        if (active)
            app.fileTracker.ArmFile(document->GetPathName());
        else
            app.fileTracker.DisarmFile(document->GetPathName());
    }
}

void CMainFrame::dragEnterEvent(QDragEnterEvent *event) {
    if (event->mimeData()->hasUrls()) event->acceptProposedAction();
}

void CMainFrame::dropEvent(QDropEvent *event) {
    for (const QUrl &url : event->mimeData()->urls()) {
        if (!url.isLocalFile()) continue;
        const std::string path = FromNativePath(FromQString(url.toLocalFile()));
        const std::string extension = CPath(path).GetExtension();
        if (EqualNoCase(extension, "__c") || EqualNoCase(extension, "__w"))
            CIDEApp::Get().ReplayCommand(ID_WORKSPACE_OPEN,
                                         [path] { CIDEApp::Get().workspaces.SwitchWorkspace(path); });
        else
            CIDEApp::Get().OpenDocumentFile(path);
    }
    event->acceptProposedAction();
}
