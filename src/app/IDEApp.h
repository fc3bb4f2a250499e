// The one application object: owns the process-wide data of every subsystem, brings the process up and down in a fixed
// order, and is where a command line, a command, a timer or a thread's message first meets the program's logic.
#pragma once

#include <boost/shared_ptr.hpp>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "build/BuildDriver.h"
#include "build/MessageList.h"
#include "build/MyRedirect.h"
#include "debugger/BookmarkList.h"
#include "debugger/BreakpointCommands.h"
#include "debugger/BreakpointList.h"
#include "debugger/DbgInterface.h"
#include "debugger/DebugCommands.h"
#include "debugger/DebugSession.h"
#include "debugger/WatchpointManager.h"
#include "editor/Abbreviations.h"
#include "editor/EditorProperties.h"
#include "editor/FileTracker.h"
#include "editor/FindState.h"
#include "editor/KeyMacro.h"
#include "editor/SciLexer.h"
#include "framework/WinApp.h"
#include "navigation/BrowseNavigation.h"
#include "navigation/SymbolIndex.h"
#include "project/CurrentWorkspace.h"
#include "project/WorkspaceController.h"

class CMainFrame;
class CWorkspace;

// Main thread, except where an operation says otherwise.
class CIDEApp : public CWinApp {
public:
    // `commandLine`: with file names in the Windows form; its first argument is the program.
    explicit CIDEApp(std::string commandLine);
    ~CIDEApp() override;

    bool InitInstance() override;
    int ExitInstance() override;
    bool OnCmdMsg(int id, CCmdUI *ui) override;

    CMainFrame *GetMainFrame() const;  // null until it is made and after it is gone

    // Writes one line to the build list and selects it; "!E" and "!W" at its start become "Error" and "Warning"; null
    // clears the list. Nothing is written while the frame doesn't exist.
    void AddOutputLine(const char *text);
    void AddOutputLine(const std::string &text) { AddOutputLine(text.c_str()); }

    // Saves every modified document; with `prompt` it asks for each. False when the user cancelled or one can't be
    // written.
    bool SaveAllDocuments(bool prompt);

    // The open document of `path`, found under any spelling; opened when it isn't and `open` is set. Null else.
    CDocument *FindOrOpenDocument(const std::string &path, bool open);
    std::string GetActiveProjectPath() const;  // full name of the active project's file, empty when none
    std::string GetWorkspacePath() const;      // the workspace's own file, empty when none
    int WorkspaceKind() const;                 // 0 none, 1 stand-alone project, 2 multiple projects

    bool OpenWorkspace(const char *path, bool multiple) { return workspaces.OpenWorkspace(path, multiple); }
    bool CloseWorkspace() { return workspaces.CloseWorkspace(); }
    bool SetActiveCompiler(const std::string &name) { return workspaces.SetActiveCompiler(name); }

    // Runs `twin` under the rule for commands that must not disturb a debug session.
    void ReplayCommand(int twinId, const std::function<void()> &twin);

    void AddToRecentFileList(const std::string &path) override;
    void AddToRecentWorkspaces(const std::string &path);
    std::string UntitledName() const override;
    std::string SaveQuestion(const std::string &name) const override;
    std::string BoxTitle() const override;

    // Entries of the two recent lists; one that can't be opened leaves its list.
    void OpenRecentFile(size_t index);
    void OpenRecentWorkspace(size_t index);

    bool IsTipShown() const { return tipShown_; }  // the start-up ticks wait for its end

    static CIDEApp &Get();

    CSciLexer lexer;
    CEditorProperties editorProperties;
    CFindState find;
    CBookmarkList bookmarks;
    CBreakpointList breakpoints;
    CBreakpointCommands breakpointCommands;
    CKeyMacro macro;
    CSymbolIndex symbols;
    CBrowseHistory browseHistory;
    CDbgInterface debugger;
    CDebugCommands debugCommands;
    CWatchpointManager watchpoints;
    CDebugSession session;  // `debugging` and `running`, and the deferred command
    CMessageList messageList;
    CFileTracker fileTracker;
    CAbbreviations abbreviations;
    CMyRedirect redirect;
    CBuildDriver build;
    CWorkspaceController workspaces;
    boost::shared_ptr<CWorkspace> &workspace = CurrentWorkspace();  // empty when none is open
    int childDisplayMode = 0;
    int32_t childMaximised = 0;  // whether a new source window opens maximised: as the last one was; not stored
    bool showSplash = true;  // a start that names no file greets the user; set before InitInstance

private:
    bool LoadLibraries();
    void AddTemplates();
    void TakeCommandLine();
    void OpenDocumentDialog();
    void MapCommands();
    void MapHelpCommands();
    void ShowTipOfTheDay();

    std::string commandLine_;
    std::vector<std::string> startupFiles_;  // source files that the command line names
    std::unique_ptr<CMainFrame> frame_;
    std::mutex outputMutex_;
    bool tipShown_ = false;
};
