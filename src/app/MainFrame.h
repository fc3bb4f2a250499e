// The one top-level window: bars, configuration box, status panes, title, menus that change, start-up ticks, closing.
#pragma once

#include <string>
#include <vector>

#include "framework/FlatComboBox.h"
#include "framework/MDIFrameWnd.h"
#include "framework/StatusBar.h"
#include "framework/ToolBar.h"

class COutputBar;
class CWorkspaceBar;
class CListBar;

// Messages that threads post to the frame.
enum FrameMessage : unsigned {
    kMsgOutputText = 0x400,       // text for the build list; also a line of the build's child (1024)
    kMsgChildEnded = 1025,
    kMsgOutputTextHeap = 0x40a,   // text for the build list (1034)
    kMsgPluginsFound = 0x428,
};

// Panes of the status bar.
enum StatusPane { kPaneHelp = 0, kPaneWorkspace = 1, kPaneTarget = 2, kPanePosition = 3, kPaneCompiler = 4, kPaneClock = 5 };

class CMainFrame : public CMDIFrameWnd {
public:
    CMainFrame();
    ~CMainFrame() override;

    bool Create();                 // loads the frame and makes all bars; false when one can't be made
    void BeginStartup(std::vector<std::string> files);  // starts timers 2001 and 2004 and shows the window

    // The four modal boxes. The title is the application's with a kind word.
    void ShowWarning(const std::string &text);
    void ShowError(const std::string &text);
    void ShowNotice(const std::string &text);
    BoxResult AskUser(const std::string &text, BoxButtons buttons = BoxButtons::yesNo);

    void SetStatusText(int pane, const std::string &text) { statusBar_->SetPaneText(pane, text); }
    std::string GetStatusText(int pane) const { return statusBar_->GetPaneText(pane); }

    CXTFlatComboBox &ConfigBox() { return *configBox_; }
    std::string GetProjectConfigName() const;  // the box's selected text, item 0 when nothing is; empty without items
    CXTToolBar &BuildToolBar() { return *buildToolBar_; }
    COutputBar &OutputBar() { return *outputBar_; }
    CWorkspaceBar &WorkspaceBar() { return *workspaceBar_; }

    void RefreshTitle() { UpdateTitle(); }
    bool IsClosing() const { return closing_; }
    void CancelClosing() { closing_ = false; }  // the user cancelled a save question
    bool HasOutput() const { return outputBar_ != nullptr; }
    bool IsStarted() const { return started_; }  // the start-up ticks are over

    // Replaces the six variables "%name%" ... "%config%" in `text` for `project` (empty: the active one).
    void ExpandMacros(const std::string &project, std::string &text) const;

    void SaveBarState(const std::string &name) override;

protected:
    void OnTimer(int id) override;
    void OnInitMenu() override;
    CUserStore &UserStore() override;
    std::string ComposeTitle() const override;
    void OnTabMenu(CMDIChildWnd *child, const QPoint &at) override;
    void OnStatusHelp(const std::string &text) override;
    void closeEvent(QCloseEvent *event) override;
    void changeEvent(QEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    static constexpr int kMaxToolSteps = 48;

    bool CreateBars();
    void MapCommands();
    void MapMessages();
    void FirstTick();
    void SecondTick();
    void ReadTabSettings();
    void ApplyTabSettings();
    void FillToolsMenu();
    QIcon StandardStepIcon(const std::string &name) const;
    void FillRecentMenu(int text, int firstCommand);
    static void RemoveCommands(QMenu *menu, int first, int last);
    bool CloseFrame();
    void RestoreWindow();
    void SaveWindow();
    void ActivateNeighbour(int step);
    std::string BoxTitle(int kind) const;

    CXTToolBar *mainToolBar_ = nullptr;
    CXTToolBar *buildToolBar_ = nullptr;
    COutputBar *outputBar_ = nullptr;
    CWorkspaceBar *workspaceBar_ = nullptr;
    CXTStatusBar *statusBar_ = nullptr;
    CXTFlatComboBox *configBox_ = nullptr;

    std::vector<std::string> startupFiles_;
    int startupTick_ = 0;
    bool started_ = false;
    bool closing_ = false;
    bool tabsOn_ = true, tabsTop_ = true;
    CMDIChildWnd *tabMenuChild_ = nullptr;  // whose tab's menu is open
};
