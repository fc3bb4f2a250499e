#include "SortedTable.h"
#include "Tables.h"
#include "app/CommandIds.h"
#include "app/StringIds.h"

namespace language {
namespace {

struct TextRow {
    int id;
    const char *text;
};

// A line for the build list begins with "!E" or "!W" where it tells a failure or a warning: the list shows these as
// "Error" and "Warning". A colon follows, so that the list doesn't take the line for one of a compiler's.
constexpr TextRow kTexts[] = {
    {IDS_APP_TITLE, "Thornwell IDE"},
    {IDS_VERSION, THORNWELL_VERSION},
    {IDS_KIND_WARNING, "Warning"},
    {IDS_KIND_ERROR, "Error"},
    {IDS_KIND_NOTICE, "Notice"},
    {IDS_KIND_QUESTION, "Question"},
    {IDS_NO_LEXER_TITLE, "Thornwell IDE startup error"},
    {IDS_NO_LEXER,
     "The editing component SciLexer.dll can't be loaded.\n\n"
     "It belongs in the program's directory. Installing Thornwell IDE again puts it back."},
    {IDS_HELP_FAILED, "This help document can't be opened:"},

    // Standard build steps: a toolsuite's step of the same name gets the button
    {IDS_STEP_FIRST, "Compile"},
    {IDS_STEP_SECOND, "Assemble"},
    {IDS_STEP_THIRD, "Disassemble"},
    {IDS_STEP_FOURTH, "Program"},
    {IDS_STEP_FIFTH, "Link"},

    // Start-up
    {IDS_LOADING_WORKSPACE, "Loading the last workspace..."},
    {IDS_NOTHING_TO_LOAD, "There is no last workspace to load."},
    {IDS_LOADED, "Done."},
    {IDS_STARTUP_DONE, "Ready."},
    {IDS_BARS_RESET, "Bar layout reset."},

    // Workspace and projects
    {IDS_LABEL_WORKSPACE, "Workspace"},
    {IDS_TARGET_UNKNOWN,
     "The project's compiler doesn't know the target %s.\n\nDo you want to change the target to %s?"},
    {IDS_TARGET_REPLACED,
     "The compiler doesn't know the target %s.\nThe project now uses the compiler's default target."},
    {IDS_PROJECT_ACTIVE, "Active project: %s"},
    {IDS_PROJECT_READ_ONLY, "!W: The project file %s is read-only: changes to the project won't be kept."},
    {IDS_STOP_DEBUGGING, "This can't be done while debugging.\n\nDo you want to stop debugging?"},
    {IDS_OVERWRITE_FILE, "The file '%s' already exists.\n\nDo you want to overwrite it?"},
    {IDS_CANT_CREATE_FILE,
     "The file '%s' can't be created.\nCheck that its folder exists and that you may write there."},
    {IDS_CANT_OPEN_WORKSPACE,
     "'%s' can't be opened.\nCheck that it is a workspace or project file and that its compiler is "
     "installed."},
    {IDS_NO_SUCH_FILE, "The file '%s' doesn't exist."},
    {IDS_NAME_EMPTY, "Please enter a file name."},
    {IDS_PROJECT_IN_WORKSPACE, "The project '%s' is already in the workspace."},
    {IDS_FILE_IN_PROJECT, "The file '%s' is already in the project."},
    {IDS_CANT_ADD_PROJECT, "The project '%s' can't be added to the workspace.\nCheck that its compiler is installed."},
    {IDS_CANT_SET_COMPILER, "The compiler '%s' can't be made the project's compiler."},
    {IDS_NO_COMPILER_SELECTED, "Please select a compiler."},
    {IDS_EMPTY_TREE, "empty"},
    {IDS_REMOVE_FILE_QUESTION, "Do you want to remove '%s' from the project?\n\nThe file itself is kept."},
    {IDS_REMOVE_PROJECT_QUESTION, "Do you want to remove the project '%s' from the workspace?\n\nIts files are kept."},
    {IDS_CREATE_WORKSPACE, "Workspace '%s' doesn't exist. Do you want to create a new one?"},
    {IDS_CREATE_PROJECT, "Project '%s' doesn't exist. Do you want to create a new one?"},
    {IDS_TOOLSUITE_MISSING, "!E: The toolsuite '%s' of the project %s is not installed."},
    {IDS_NOT_A_PROJECT, "!E: The file %s holds binary data and is no project or workspace file."},
    {IDS_CONFIG_UNKNOWN, "!E: There is no configuration '%s' in the project %s."},
    {IDS_CANT_REMOVE_FILE, "The file '%s' can't be removed from the project."},
    {IDS_PROJECT_KIND_EMPTY, "Empty project"},
    {IDS_PROJECT_KIND_SOURCE, "Project with a source file"},
    {IDS_PROJECT_KIND_HEADER, "Project with a source and a header file"},

    // Build
    {IDS_BUILD_START, "Building %s..."},
    {IDS_CLEAN_START, "Cleaning..."},
    {IDS_BUILD_FAILED, "Build failed."},
    {IDS_BUILD_STOPPED, "Build stopped."},
    {IDS_STEP_DONE, "Done."},
    {IDS_STEP_PLAIN, "Build"},
    {IDS_STEP_START_FAILED, "!E: The step '%s' can't be started."},
    {IDS_NEXT_STEP_FAILED, "!E: The build can't be started."},
    {IDS_OUTPUT_MISSING, "!E: The output file %s is missing."},
    {IDS_DOCUMENT_RELOADED, "Reloaded: %s"},
    {IDS_DOCUMENT_CLOSED, "Closed, as it no longer exists: %s"},
    {IDS_MAKEFILE_HEADER, "# Written by Thornwell IDE %s at each build: changes made here are lost."},
    {IDS_MAKEFILE_CANT_OPEN, "!E: The makefile %s can't be written."},
    {IDS_SOURCES_FAILED, "!E: The list of the project's source files can't be formed."},
    {IDS_STEP_COMMAND_FAILED,
     "The toolsuite has no command line for the step '%s'.\nCheck the project's options and its source files."},
    {IDS_NO_WORKSPACE, "There is no open project or workspace."},
    {IDS_STEP_NAME_WARNING, "!W: This step assembles the one file named after the project, not the project's sources."},
    {IDS_STEP_PROJECT, "Linking the active project, %s"},
    {IDS_MAKE_NO_TOOLSUITE, "!E: The toolsuite of the project %s is not installed or can't build it."},
    {IDS_CLIPBOARD_FAILED, "The clipboard is in use by another program. Please try again."},
    {IDS_RTOS_QUESTION,
     "This project contains a Sable RTOS library, but the linker option -swcs is not set.\n\n"
     "Programs that use Sable RTOS have to be linked with the software call stack, which -swcs turns on.\n\n"
     "Do you want to add -swcs to the linker options of the active configuration?\n"
     "Whether you answer Yes or No, you won't be asked again for this configuration."},

    // Documents
    {IDS_CANT_READ_FILE, "!E: The file %s can't be read."},
    {IDS_CANT_WRITE_FILE, "The file '%s' can't be written."},
    {IDS_FILE_READ_ONLY, "The file %s is read-only."},
    {IDS_FILE_MISSING, "!E: The file %s doesn't exist."},
    {IDS_SAVE_CHANGES, "Do you want to save the changes to '%s'?"},
    {IDS_FILE_CHANGED,
     "The file '%s' was changed by another program.\n\nDo you want to load it again? Changes made here are lost then."},
    {IDS_FILE_DELETED,
     "The file '%s' was deleted by another program.\nThe editor holds the only copy: save it to keep it."},
    {IDS_UNTITLED, "Untitled"},
    {IDS_DEBUG_READ_ONLY, "Sources can't be changed while debugging."},

    // Titles and labels of windows
    {IDS_BAR_WORKSPACE, "Workspace"},
    {IDS_BAR_OUTPUT, "Output"},
    {IDS_TAB_BUILD, "Build"},
    {IDS_TAB_FIND, "Find in Files"},
    {IDS_TAB_NOTICES, "Debugger"},
    {IDS_BAR_MAIN, "Main Tool Bar"},
    {IDS_BAR_BUILD, "Build Tool Bar"},
    {IDS_TAB_FILES, "Files"},
    {IDS_DIALOG_GOTO_LINE, "Go to Line"},
    {IDS_LABEL_LINE, "&Line number (1 to %d):"},
    {IDS_DIALOG_COMPILER, "Compiler"},
    {IDS_LABEL_COMPILER, "&Compiler of the project:"},
    {IDS_DIALOG_BUILD_OPTIONS, "Build Options"},
    {IDS_LABEL_BUILD_STEPS, "&Steps of a build:"},
    {IDS_DIALOG_NEW_PROJECT, "New Project"},
    {IDS_LABEL_PROJECT_KIND, "&Kind of project:"},
    {IDS_PAGE_BROWSER, "Browser"},
    {IDS_PAGE_DEBUGGER, "Debugger"},
    {IDS_USE_SYS_HEADERS, "Show symbols of the compiler's &system headers"},
    {IDS_USE_SABLE_HEADERS, "Show symbols of the Sable &RTOS headers"},
    {IDS_DEBUG_FROM_MAIN, "When debugging starts, run to &main"},
    {IDS_DEF_WATCH_FORMAT, "&Format of new watches:"},
    {IDS_FORMAT_DECIMAL, "Decimal"},
    {IDS_FORMAT_BINARY, "Binary"},
    {IDS_FORMAT_OCTAL, "Octal"},
    {IDS_FORMAT_HEX, "Hexadecimal"},
    {IDS_DIALOG_LIBRARIES, "Add System Library"},
    {IDS_LABEL_LIBRARIES, "&Libraries for the project's target:"},
    {IDS_DIALOG_ABOUT, "About Thornwell IDE"},
    {IDS_ABOUT_TEXT,
     "An integrated development environment for PIC microcontrollers.\n\n"
     "Edits, builds and debugs firmware with the compilers and simulators that are installed."},

    // Menu texts that the frame looks for
    {IDS_MENU_TOOLS, "&Tools"},
    {IDS_MENU_WINDOW, "&Window"},
    {IDS_MENU_RECENT_FILES, "Recent &Files"},
    {IDS_MENU_RECENT_WORKSPACES, "Recen&t Workspaces"},
    {IDS_TABS_ON, "Show &Document Tabs"},
    {IDS_TABS_OFF, "Hide &Document Tabs"},

    // Commands: status bar, then tool tip
    {ID_FILE_NEW, "Create a new document\nNew"},
    {ID_FILE_OPEN, "Open a source file or another document\nOpen"},
    {ID_FILE_CLOSE, "Close the active document\nClose"},
    {ID_FILE_SAVE, "Save the active document\nSave"},
    {ID_FILE_SAVE_AS, "Save the active document under another name\nSave As"},
    {ID_FILE_SAVE_ALL, "Save all changed documents\nSave All"},
    {ID_EDIT_COPY, "Copy the selection to the clipboard\nCopy"},
    {ID_EDIT_CUT, "Move the selection to the clipboard\nCut"},
    {ID_EDIT_PASTE, "Insert the text on the clipboard\nPaste"},
    {ID_EDIT_SELECT_ALL, "Select the whole document\nSelect All"},
    {ID_EDIT_UNDO, "Undo the last change\nUndo"},
    {ID_EDIT_REDO, "Make the last undone change again\nRedo"},
    {ID_WINDOW_CASCADE, "Stack the windows so that each title shows\nCascade"},
    {ID_WINDOW_TILE_HORZ, "Lay the windows out one above the other\nTile Horizontally"},
    {ID_WINDOW_TILE_VERT, "Lay the windows out side by side\nTile Vertically"},
    {ID_WINDOW_CLOSE_ALL, "Close all documents\nClose All"},
    {ID_WINDOW_NEXT, "Go to the next window\nNext Window"},
    {ID_WINDOW_PREV, "Go to the previous window\nPrevious Window"},
    {ID_APP_ABOUT, "Show the version of the program\nAbout"},
    {ID_APP_EXIT, "Leave the program; changed documents can be saved first\nExit"},
    {ID_VIEW_STATUS_BAR, "Show or hide the status bar\nStatus Bar"},
    {ID_VIEW_TOOLBAR, "Show or hide the main tool bar\nMain Tool Bar"},
    {ID_RECENT_FILES, "Open this file again\nRecent File"},
    {ID_RECENT_WORKSPACES, "Open this workspace or project again\nRecent Workspace"},
    {ID_TOOL_STEPS, "Run this tool on the active project\nRun Tool"},
    {ID_WINDOW_LIST, "Go to this window\nActivate Window"},

    {ID_WORKSPACE_NEW, "Create a workspace, which holds several projects\nNew Workspace"},
    {ID_WORKSPACE_OPEN, "Open a workspace or a project\nOpen Workspace"},
    {ID_WORKSPACE_CLOSE, "Save and close the workspace and its documents\nClose Workspace"},
    {ID_PROJECT_OPEN, "Open a project by itself\nOpen Project"},
    {ID_PROJECT_OPEN_UNCHECKED, "Open a project by itself\nOpen Project"},
    {ID_PROJECT_OPEN_INTO, "Open a project into the workspace\nOpen Project into Workspace"},
    {ID_PROJECT_OPEN_INTO_UNCHECKED, "Open a project into the workspace\nOpen Project into Workspace"},
    {ID_PROJECT_NEW, "Create a project by itself\nNew Project"},
    {ID_PROJECT_NEW_UNCHECKED, "Create a project by itself\nNew Project"},
    {ID_PROJECT_NEW_INTO, "Create a project in the workspace\nNew Project in Workspace"},
    {ID_PROJECT_NEW_INTO_UNCHECKED, "Create a project in the workspace\nNew Project in Workspace"},
    {ID_PROJECT_ADD_EXISTING, "Add projects that exist already to the workspace\nAdd Existing Projects"},
    {ID_PROJECT_REMOVE, "Take the project out of the workspace; its files are kept\nRemove Project"},
    {ID_PROJECT_ACTIVATE, "Make this the active project, the one that is built and debugged\nSet as Active Project"},
    {ID_PROJECT_ADD_FILES, "Add files to the active project\nAdd Files"},
    {ID_PROJECT_ADD_NEW_FILE, "Create a file and add it to the active project\nAdd New File"},
    {ID_PROJECT_REMOVE_FILE, "Take the file out of the project; the file itself is kept\nRemove File"},
    {ID_PROJECT_ADD_LIBRARY, "Add one of the compiler's libraries to the active project\nAdd System Library"},
    {ID_PROJECT_OPTIONS, "Set the compiler's options for the active project\nProject Options"},
    {ID_PROJECT_TARGET, "Choose the microcontroller of the active project\nTarget"},
    {ID_PROJECT_COMPILER, "Choose the compiler of the active project\nCompiler"},
    {ID_CONFIG_SELECT, "Choose the configuration to build\nConfiguration"},

    {ID_BUILD, "Build what has changed in the active project; with Ctrl held down, build all of it\nBuild"},
    {ID_REBUILD, "Build all of the active project again\nRebuild"},
    {ID_REBUILD_BUTTON, "Build all of the active project again\nRebuild"},
    {ID_CLEAN, "Delete what a build of the active project has made\nClean"},
    {ID_BUILD_ALL, "Build what has changed in any project; with Ctrl held down, build all of them\nBuild All Projects"},
    {ID_REBUILD_ALL, "Build all of every project again\nRebuild All Projects"},
    {ID_REBUILD_ALL_BUTTON, "Build all of every project again\nRebuild All Projects"},
    {ID_CLEAN_ALL, "Delete what builds of all projects have made\nClean All Projects"},
    {ID_BUILD_OPTIONS, "Choose the steps of a build\nBuild Options"},
    {ID_STEP_FIRST_RUN, "Compile the active project's sources\nCompile"},
    {ID_STEP_FIRST_STOP, "Stop compiling\nStop Compile"},
    {ID_STEP_SECOND_RUN, "Assemble the active project's sources\nAssemble"},
    {ID_STEP_SECOND_STOP, "Stop assembling\nStop Assemble"},
    {ID_STEP_THIRD_RUN, "Disassemble the active project's program\nDisassemble"},
    {ID_STEP_THIRD_STOP, "Stop disassembling\nStop Disassemble"},
    {ID_STEP_FOURTH_RUN, "Write the active project's program to the chip\nProgram"},
    {ID_STEP_FOURTH_STOP, "Stop programming the chip\nStop Program"},
    {ID_STEP_FIFTH_RUN, "Link the active project's objects\nLink"},
    {ID_STEP_FIFTH_STOP, "Stop linking\nStop Link"},
    {ID_BUILD_STOP, "Stop the build that is running\nStop Build"},
    {ID_NEXT_MESSAGE, "Go to the source line of the next message\nNext Message"},
    {ID_OUTPUT_CLEAR, "Clear the list\nClear"},
    {ID_OUTPUT_COPY, "Copy all lines of the list to the clipboard\nCopy All"},

    {ID_VIEW_WORKSPACE_BAR, "Show or hide the workspace\nWorkspace"},
    {ID_VIEW_OUTPUT_BAR, "Show or hide the output\nOutput"},
    {ID_VIEW_BUILD_TOOL_BAR, "Show or hide the build tool bar\nBuild Tool Bar"},
    {ID_TAB_ACTIVATE, "Go to this document\nActivate"},
    {ID_TAB_CLOSE, "Close this document\nClose"},
    {ID_TABS_TOP, "Put the document tabs above the documents\nTabs at Top"},
    {ID_TABS_BOTTOM, "Put the document tabs below the documents\nTabs at Bottom"},
    {ID_TABS_TOGGLE, "Show or hide the document tabs\nDocument Tabs"},
    {ID_TABS_TOGGLE_TWIN, "Show or hide the document tabs\nDocument Tabs"},
    {ID_RESET_BARS, "Put all bars back to where they were at first\nReset Bar Layout"},

    {ID_GOTO_LINE, "Go to a line by its number\nGo to Line"},
    {ID_BOOKMARK_TOGGLE, "Set or remove a bookmark on this line\nToggle Bookmark"},
    {ID_BOOKMARK_NEXT, "Go to the next bookmark of the document\nNext Bookmark"},
    {ID_BOOKMARK_PREVIOUS, "Go to the previous bookmark of the document\nPrevious Bookmark"},
    {ID_BOOKMARK_CLEAR, "Remove all bookmarks of the document\nClear Bookmarks"},
    {ID_MATCH_BRACE, "Go to the brace that matches the one at the caret\nMatch Brace"},
    {ID_LAST_EDIT, "Go back to where the text was last changed\nLast Edit Position"},
    {ID_OPEN_COUNTERPART, "Switch between a source file and its header\nOpen Counterpart"},
};

constexpr auto kById = SortedById(kTexts);
static_assert(HasUniqueIds(kById), "two texts have the same id");

// Commands of a menu's list share the text under the first one's id.
struct ListRange {
    int first, last;
};
constexpr ListRange kLists[] = {
    {ID_RECENT_FILES, ID_RECENT_FILES + 7},
    {ID_RECENT_WORKSPACES, ID_RECENT_WORKSPACES + 7},
    {ID_TOOL_STEPS, ID_TOOL_STEPS + 47},
    {ID_WINDOW_LIST, ID_WINDOW_LIST + 9},
};

}  // namespace

const char *FindText(int id) {
    for (const auto &list : kLists)
        if (id > list.first && id <= list.last) id = list.first;
    const auto row = FindRow(kById, id);
    return row ? row->text : nullptr;
}

}  // namespace language
