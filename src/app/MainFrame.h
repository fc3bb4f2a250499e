// The one top-level window: bars, configuration box, status panes, title, menus that change, start-up ticks, closing.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "debugger/DebugBars.h"
#include "framework/FlatComboBox.h"
#include "framework/MDIFrameWnd.h"
#include "framework/StatusBar.h"
#include "framework/ToolBar.h"
#include "plugins/PluginBar.h"
#include "plugins/PluginDiscovery.h"

class CDebugBar;
class CDockBar;
class COutputBar;
class CWorkspaceBar;
class CListBar;

// Messages that threads post to the frame.
enum FrameMessage : unsigned {
    kMsgOutputText = 0x400,       // text for the build list; also a line of the build's child (1024)
    kMsgChildEnded = 1025,
    kMsgOutputTextHeap = 0x40a,   // text for the build list (1034)
    kMsgPluginsFound = 0x428,
    kMsgTargetStopped = 0x460,    // a stop of the target waits to be taken
    kMsgTargetText = 0x461,       // text of the target for the build list
    kMsgTargetClear = 0x462,      // the target clears the build list
    kMsgTargetNote = 0x463,       // id of a text
    kMsgShowClock = 0x464,
    kMsgPluginsMoved = 0x465,     // plug-in bars may have come or gone during a run
    kMsgContinue = 1126,
    kMsgBuildBehindStop = 0x467,  // a build that was asked for during a run; its command
};

enum FrameTimer { kTimerStartup = 2001, kTimerRun = 2002, kTimerTracker = 2004 };

// Panes of the status bar. In the debug layout the target's time stands in front of pane 2, and the panes from there on
// have numbers greater by one.
enum StatusPane {
    kPaneHelp = 0,
    kPaneWorkspace = 1,
    kPaneTarget = 2,
    kPanePosition = 3,
    kPaneCompiler = 4,
    kPaneClock = 5,
    kPaneDebugTime = 2
};

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
    CListBar &ListBar() { return *listBar_; }
    struct DebugBars &DebugBars() { return debugBars_; }

    void RefreshTitle() { UpdateTitle(); }
    bool IsClosing() const { return closing_; }
    void CancelClosing() { closing_ = false; }  // the user cancelled a save question
    bool HasOutput() const { return outputBar_ != nullptr; }
    bool IsStarted() const { return started_; }  // the start-up ticks are over
    bool ArePluginsReady() const { return pluginsReady_; }  // the search for plug-ins has reported, the bars stand

    // Keeps a line for the build list until the plug-ins are ready.
    void AddWaitingText(std::string text) { waitingTexts_.push_back(std::move(text)); }

    CPluginBar &PluginBar(int slot) { return *pluginBars_[static_cast<size_t>(slot)]; }

    // Replaces the six variables "%name%" ... "%config%" in `text` for `project` (empty: the active one).
    void ExpandMacros(const std::string &project, std::string &text) const;

    bool OnCmdMsg(int id, CCmdUI *ui) override;

    // The layout of the first run is saved once only, and stands in where another can't be loaded.
    void SaveBarState(const std::string &name) override;
    bool LoadBarState(const std::string &name) override;
    bool IsRecording() const { return recording_; }  // a macro; also while that is paused
    bool IsMacroBarShown() const;

    void EnterDebugLayout();  // at the start of a debug run
    void LeaveDebugLayout();  // at its end; nothing without one
    void OnRunEnded();        // closes the frame, if that has waited for the end of the run

protected:
    void OnTimer(int id) override;
    void OnInitMenu() override;
    CUserStore &UserStore() override;
    std::string ComposeTitle() const override;
    CView *GetBarView() const override;
    void OnTabMenu(CMDIChildWnd *child, const QPoint &at) override;
    void OnStatusHelp(const std::string &text) override;
    int BarMenu() const override;
    void closeEvent(QCloseEvent *event) override;
    bool eventFilter(QObject *object, QEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    static constexpr int kMaxToolSteps = 48;

    // Start
    void MapMessages();
    void FirstTick();
    void SecondTick();
    void OnPluginsFound();
    bool WantsVersionCheck() const;
    std::string BoxTitle(int kind) const;

    // Bars
    bool CreateBars();
    CXTToolBar *CreateToolBar(int id, int title, int resource);  // null when the language library has no such bar
    void PlaceBars();                                            // as at the very first start
    void ShowStartIcon(const std::string &icon);
    void ShowDebugBars();                                        // as at the very first debug run
    void MapBarCommands();
    void ResetBars();

    // Commands
    void MapCommands();
    void MapTabCommands();
    void MapWindowCommands();
    void ReadTabSettings();
    void WriteTabSettings();
    void ApplyTabSettings();
    void ActivateNeighbour(int step);
    void ShowWindowsDialog();

    // Macros
    void MapMacroCommands();
    void StartRecording();
    void StopRecording();
    void SaveMacro();
    void ManageMacros();

    // Menus that change
    void RemoveManuals();
    QMenu *FindChangingMenu(int text, int missing, int withoutMenu);  // null, with a line, when it isn't there
    void FillMacroMenu();
    void FillToolsMenu();
    void FillPluginMenu();
    void FillRecentMenu(int text, int firstCommand);
    QIcon StandardStepIcon(const std::string &name) const;

    // Other programs
    void OnApplicationActivated(bool active);
    bool AcceptsDrop(const QDropEvent &event) const;
    void OpenDropped(const QMimeData &data);

    // End
    bool CloseFrame();  // false: the user cancelled
    void Destroy();     // once
    void RestoreWindow();
    void SaveWindow();

    // In the order of their making; owned by the window
    CXTToolBar *mainToolBar_ = nullptr;
    CXTToolBar *macroToolBar_ = nullptr;  // shows during the recording of a macro only
    CXTToolBar *buildToolBar_ = nullptr;
    COutputBar *outputBar_ = nullptr;
    CWorkspaceBar *workspaceBar_ = nullptr;
    CXTStatusBar *statusBar_ = nullptr;
    struct DebugBars debugBars_;
    CListBar *listBar_ = nullptr;
    CXTToolBar *debugToolBar_ = nullptr;
    CXTToolBar *editToolBar_ = nullptr;
    CXTFlatComboBox *configBox_ = nullptr;
    std::array<CPluginBar *, CPluginBar::kSlots> pluginBars_{};

    CPluginDiscovery discovery_;
    std::vector<std::string> waitingTexts_;
    std::vector<std::string> startupFiles_;
    int startupTick_ = 0;
    bool started_ = false;
    bool pluginsReady_ = false;
    bool debugLayout_ = false;
    bool closing_ = false;
    bool closesBehindRun_ = false;  // a close waits for the target to stop
    bool recording_ = false;
    bool created_ = false, destroyed_ = false;
    bool tabsOn_ = true, tabsTop_ = true;
    CMDIChildWnd *tabMenuChild_ = nullptr;  // whose tab's menu is open
};
