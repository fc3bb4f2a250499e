#include "SortedTable.h"
#include "Tables.h"
#include "app/CommandIds.h"
#include "app/StringIds.h"

namespace language {
namespace {

constexpr LangMenuEntry Sub(int depth, const char *text) {
    return {depth, 0, text};
}
constexpr LangMenuEntry Line(int depth) {
    return {depth, 0, nullptr};
}

constexpr LangMenuEntry kMain[] = {
    Sub(0, "&File"),
    {1, ID_FILE_NEW, "&New"},
    {1, ID_FILE_OPEN, "&Open..."},
    {1, ID_FILE_SAVE, "&Save"},
    {1, ID_FILE_SAVE_AS, "Save &As..."},
    {1, ID_FILE_SAVE_ALL, "Save A&ll"},
    {1, ID_FILE_CLOSE, "&Close"},
    Line(1),
    {1, ID_PROJECT_NEW, "New &Project..."},
    {1, ID_PROJECT_OPEN, "Open P&roject..."},
    {1, ID_WORKSPACE_NEW, "New &Workspace..."},
    {1, ID_WORKSPACE_OPEN, "Op&en Workspace..."},
    {1, ID_WORKSPACE_CLOSE, "Close Wor&kspace"},
    Line(1),
    {1, ID_PAGE_MARGINS, "Page Set&up..."},
    {1, ID_FILE_PRINT_PREVIEW, "Print Pre&view"},
    {1, ID_FILE_PRINT, "Pr&int..."},
    Line(1),
    Sub(1, "Recent &Files"),
    {2, ID_RECENT_FILES, "(none)"},
    Sub(1, "Recen&t Workspaces"),
    {2, ID_RECENT_WORKSPACES, "(none)"},
    Line(1),
    {1, ID_APP_EXIT, "E&xit"},

    Sub(0, "&Edit"),
    {1, ID_EDIT_UNDO, "&Undo"},
    {1, ID_EDIT_REDO, "&Redo"},
    Line(1),
    {1, ID_EDIT_CUT, "Cu&t"},
    {1, ID_EDIT_COPY, "&Copy"},
    {1, ID_EDIT_PASTE, "&Paste"},
    {1, ID_EDIT_SELECT_ALL, "Select &All"},
    Line(1),
    {1, ID_EDIT_FIND, "&Find..."},
    {1, ID_EDIT_FIND_NEXT, "Find &Next"},
    {1, ID_EDIT_FIND_PREVIOUS, "Find Pre&vious"},
    {1, ID_EDIT_REPLACE, "R&eplace..."},
    Line(1),
    {1, ID_GOTO_LINE, "&Go to Line..."},
    {1, ID_MATCH_BRACE, "&Match Brace"},
    {1, ID_LAST_EDIT, "&Last Edit Position"},
    Sub(1, "&Bookmarks"),
    {2, ID_BOOKMARK_TOGGLE, "&Toggle"},
    {2, ID_BOOKMARK_NEXT, "&Next"},
    {2, ID_BOOKMARK_PREVIOUS, "&Previous"},
    Line(2),
    {2, ID_BOOKMARK_CLEAR, "&Clear All"},
    Line(1),
    {1, ID_OPEN_COUNTERPART, "&Open Counterpart"},
    {1, ID_GOTO_DEFINITION, "Go to &Definition"},
    {1, ID_GO_BACK, "Go Bac&k"},
    Line(1),
    {1, ID_EDITOR_SETTINGS, "Editor &Settings..."},

    Sub(0, "&View"),
    {1, ID_VIEW_WORKSPACE_BAR, "&Workspace"},
    {1, ID_VIEW_OUTPUT_BAR, "&Output"},
    {1, ID_VIEW_LISTING_BAR, "&Listing"},
    Sub(1, "De&bug Bars"),
    {2, ID_VIEW_REGISTER_BAR, "&Registers"},
    {2, ID_VIEW_WATCH_BAR, "&Watch"},
    {2, ID_VIEW_RAM_BAR, "R&AM"},
    {2, ID_VIEW_EEPROM_BAR, "&EEPROM"},
    {2, ID_VIEW_STACK_BAR, "Call &Stack"},
    {2, ID_VIEW_PROFILE_BAR, "&Profile"},
    Sub(1, "Tool Ba&rs"),
    {2, ID_VIEW_TOOLBAR, "&Main"},
    {2, ID_VIEW_EDIT_TOOL_BAR, "&Edit"},
    {2, ID_VIEW_BUILD_TOOL_BAR, "&Build"},
    {2, ID_VIEW_DEBUG_TOOL_BAR, "&Debug"},
    {1, ID_VIEW_STATUS_BAR, "&Status Bar"},
    Line(1),
    {1, ID_TABS_TOGGLE, "Hide &Document Tabs"},
    {1, ID_TABS_TOP, "Tabs at &Top"},
    {1, ID_TABS_BOTTOM, "Tabs &at Bottom"},
    Line(1),
    {1, ID_RESET_BARS, "R&eset Bar Layout"},

    Sub(0, "&Project"),
    {1, ID_PROJECT_NEW_INTO, "&New Project in Workspace..."},
    {1, ID_PROJECT_OPEN_INTO, "&Open Project into Workspace..."},
    {1, ID_PROJECT_ADD_EXISTING, "Add &Existing Projects..."},
    {1, ID_PROJECT_REMOVE, "Remove &Project"},
    Line(1),
    {1, ID_PROJECT_ADD_FILES, "&Add Files..."},
    {1, ID_PROJECT_ADD_NEW_FILE, "Add Ne&w File..."},
    {1, ID_PROJECT_ADD_LIBRARY, "Add System &Library..."},
    {1, ID_PROJECT_REMOVE_FILE, "&Remove File"},
    {1, ID_BROWSE_EXTRA_LOCATIONS, "E&xtra Browse Locations..."},
    Line(1),
    {1, ID_PROJECT_COMPILER, "&Compiler..."},
    {1, ID_PROJECT_TARGET, "&Target..."},
    {1, ID_PROJECT_OPTIONS, "Opt&ions..."},

    Sub(0, "&Build"),
    {1, ID_BUILD, "&Build"},
    {1, ID_REBUILD, "&Rebuild"},
    {1, ID_CLEAN, "&Clean"},
    Line(1),
    {1, ID_BUILD_ALL, "B&uild All"},
    {1, ID_REBUILD_ALL, "Rebuild &All"},
    {1, ID_CLEAN_ALL, "C&lean All"},
    Line(1),
    {1, ID_BUILD_STOP, "&Stop"},
    Line(1),
    {1, ID_NEXT_MESSAGE, "&Next Message"},
    {1, ID_OUTPUT_CLEAR, "Clear Ou&tput"},
    Line(1),
    {1, ID_BUILD_OPTIONS, "Build &Options..."},

    Sub(0, "&Debug"),
    {1, ID_DEBUG_START, "Start &Debugging"},
    {1, ID_DEBUG_END, "&End Debugging"},
    Line(1),
    {1, ID_DEBUG_CONTINUE, "&Continue"},
    {1, ID_DEBUG_STOP, "&Stop"},
    {1, ID_DEBUG_RESET, "&Reset"},
    {1, ID_DEBUG_POWER_ON_RESET, "&Power-on Reset"},
    Line(1),
    {1, ID_DEBUG_STEP_INTO, "Step &Into"},
    {1, ID_DEBUG_STEP_OVER, "Step &Over"},
    {1, ID_DEBUG_STEP_OUT, "Step O&ut"},
    {1, ID_DEBUG_STEP_BACK, "Step &Back"},
    {1, ID_DEBUG_RUN_TO_CURSOR, "Run &to Cursor"},
    Line(1),
    {1, ID_BREAKPOINT_TOGGLE, "To&ggle Breakpoint"},
    {1, ID_BREAKPOINTS, "Brea&kpoints..."},
    {1, ID_WATCH_AT_CARET, "&Add Watch..."},
    Line(1),
    {1, ID_DEBUG_PROFILING, "Pro&filing"},
    {1, ID_DEBUG_SNAPSHOT, "Refresh &While Running"},
    Line(1),
    {1, ID_CLOCK_RATE, "C&lock Rate..."},

    // Saved macros stand behind these eight entries.
    Sub(0, "&Macro"),
    {1, ID_MACRO_RECORD, "&Record"},
    {1, ID_MACRO_PAUSE, "P&ause"},
    {1, ID_MACRO_RESUME, "Res&ume"},
    {1, ID_MACRO_STOP, "&Stop"},
    Line(1),
    {1, ID_MACRO_PLAY, "&Play"},
    {1, ID_MACRO_SAVE, "Sa&ve As..."},
    {1, ID_MACRO_LIST, "&Manage..."},

    Sub(0, "&Tools"),

    Sub(0, "Plug-&ins"),

    Sub(0, "&Window"),
    {1, ID_WINDOW_CASCADE, "&Cascade"},
    {1, ID_WINDOW_TILE_HORZ, "Tile &Horizontally"},
    {1, ID_WINDOW_TILE_VERT, "Tile &Vertically"},
    Line(1),
    {1, ID_WINDOW_NEXT, "&Next"},
    {1, ID_WINDOW_PREV, "&Previous"},
    Line(1),
    {1, ID_WINDOW_CLOSE_ALL, "Close &All"},

    Sub(0, "&Help"),
    {1, ID_HELP_USER_MANUAL, "&User Manual"},
    {1, ID_HELP_PLUGIN_SYSTEM, "&Plug-in System"},
    Sub(1, "&Compiler Manuals"),
    {2, ID_HELP_LARKC, "LarkC &C"},
    {2, ID_HELP_LARKCPP, "LarkC C&++"},
    {2, ID_HELP_LARKBASIC, "Lark &BASIC"},
    {2, ID_HELP_MOORHEN, "&Moorhen"},
    {2, ID_HELP_SABLE_RTOS, "&Sable RTOS"},
    {2, ID_HELP_FLOAT_MATH, "&Floating-point Library"},
    Line(1),
    {1, ID_TIP_OF_THE_DAY, "&Tip of the Day"},
    Line(1),
    {1, ID_APP_ABOUT, "&About Thornwell IDE"},
};

constexpr LangMenuEntry kOutput[] = {
    {0, ID_NEXT_MESSAGE, "&Next Message"},
    Line(0),
    {0, ID_OUTPUT_COPY, "&Copy All"},
    {0, ID_OUTPUT_CLEAR, "C&lear"},
};

constexpr LangMenuEntry kTreeProject[] = {
    {0, ID_ROW_BUILD, "&Build"},
    {0, ID_ROW_REBUILD, "Reb&uild"},
    {0, ID_ROW_CLEAN, "&Clean"},
    Line(0),
    {0, ID_PROJECT_ACTIVATE, "&Set as Active Project"},
    Line(0),
    {0, ID_PROJECT_ADD_FILES, "&Add Files..."},
    {0, ID_PROJECT_ADD_NEW_FILE, "Add &New File..."},
    {0, ID_PROJECT_ADD_LIBRARY, "Add System &Library..."},
    {0, ID_ROW_OUTPUT_LIST, "Output &Files..."},
    {0, ID_BROWSE_EXTRA_LOCATIONS, "E&xtra Browse Locations..."},
    Line(0),
    {0, ID_PROJECT_TARGET, "&Target..."},
    {0, ID_PROJECT_OPTIONS, "&Options..."},
    Line(0),
    {0, ID_PROJECT_ADD_EXISTING, "Add &Existing Projects..."},
    {0, ID_PROJECT_REMOVE, "&Remove Project"},
};

constexpr LangMenuEntry kTreeFile[] = {
    {0, ID_ROW_OPEN_FILE, "&Open"},
    Line(0),
    {0, ID_PROJECT_REMOVE_FILE, "&Remove File"},
    {0, ID_ROW_MAKE_RELATIVE, "Ma&ke Path Relative"},
    Line(0),
    {0, ID_PROJECT_ADD_FILES, "&Add Files..."},
    {0, ID_PROJECT_ADD_NEW_FILE, "Add &New File..."},
};

constexpr LangMenuEntry kTreeOutputs[] = {
    {0, ID_ROW_OPEN_FILE, "&Open"},
    Line(0),
    {0, ID_ROW_OUTPUT_LIST, "Output &Files..."},
    Line(0),
    {0, ID_ROW_BUILD, "&Build"},
    {0, ID_ROW_REBUILD, "Reb&uild"},
    {0, ID_ROW_CLEAN, "&Clean"},
};

constexpr LangMenuEntry kGrouping[] = {
    {0, ID_GROUP_BY_CATEGORY, "Group by &Category"},
    {0, ID_GROUP_BY_FILE, "Group by &File"},
};

constexpr LangMenuEntry kCallTree[] = {
    {0, ID_TREE_EXPAND_ALL, "&Expand All"},
    {0, ID_TREE_COLLAPSE_ALL, "&Collapse All"},
};

constexpr LangMenuEntry kTreeRoot[] = {
    {0, ID_PROJECT_NEW_INTO, "&New Project..."},
    {0, ID_PROJECT_OPEN_INTO, "&Open Project..."},
    {0, ID_PROJECT_ADD_EXISTING, "Add &Existing Projects..."},
    Line(0),
    {0, ID_WORKSPACE_CLOSE, "&Close Workspace"},
};

constexpr LangMenuEntry kTab[] = {
    {0, ID_TAB_ACTIVATE, "&Activate"},
    {0, ID_TAB_CLOSE, "&Close"},
    Line(0),
    {0, ID_TABS_TOP, "Tabs at &Top"},
    {0, ID_TABS_BOTTOM, "Tabs at &Bottom"},
    {0, ID_TABS_TOGGLE_TWIN, "Hide &Document Tabs"},
};

constexpr LangMenuEntry kView[] = {
    {0, ID_EDIT_UNDO, "&Undo"},
    {0, ID_EDIT_REDO, "&Redo"},
    Line(0),
    {0, ID_EDIT_CUT, "Cu&t"},
    {0, ID_EDIT_COPY, "&Copy"},
    {0, ID_EDIT_PASTE, "&Paste"},
    {0, ID_EDIT_SELECT_ALL, "Select &All"},
    Line(0),
    {0, ID_BOOKMARK_TOGGLE, "Toggle Book&mark"},
};

constexpr LangMenuEntry kBuildArrow[] = {
    // The active project
    {0, ID_BUILD, "&Build"},
    {0, ID_REBUILD, "&Rebuild"},
    {0, ID_CLEAN, "&Clean"},
    Line(0),
    // All projects of the workspace
    {0, ID_BUILD_ALL, "B&uild All"},
    {0, ID_REBUILD_ALL, "Rebuild &All"},
    {0, ID_CLEAN_ALL, "C&lean All"},
};

constexpr LangMenuEntry kBars[] = {
    {0, ID_VIEW_WORKSPACE_BAR, "&Workspace"},
    {0, ID_VIEW_OUTPUT_BAR, "&Output"},
    {0, ID_VIEW_LISTING_BAR, "&Listing"},
    Line(0),
    {0, ID_VIEW_REGISTER_BAR, "Re&gisters"},
    {0, ID_VIEW_WATCH_BAR, "W&atch"},
    {0, ID_VIEW_RAM_BAR, "RA&M"},
    {0, ID_VIEW_EEPROM_BAR, "EEP&ROM"},
    {0, ID_VIEW_STACK_BAR, "&Call Stack"},
    {0, ID_VIEW_PROFILE_BAR, "&Profile"},
    Line(0),
    {0, ID_VIEW_TOOLBAR, "Ma&in Tool Bar"},
    {0, ID_VIEW_EDIT_TOOL_BAR, "&Edit Tool Bar"},
    {0, ID_VIEW_BUILD_TOOL_BAR, "&Build Tool Bar"},
    {0, ID_VIEW_DEBUG_TOOL_BAR, "&Debug Tool Bar"},
    {0, ID_VIEW_STATUS_BAR, "&Status Bar"},
    Line(0),
    {0, ID_RESET_BARS, "Rese&t Bar Layout"},
};

constexpr LangMenuEntry kWatch[] = {
    {0, ID_WATCH_ADD, "&Add..."},
    {0, ID_WATCH_EDIT, "&Edit..."},
    {0, ID_WATCH_REMOVE, "&Remove"},
    {0, ID_WATCH_REMOVE_ALL, "Remove A&ll"},
    Line(0),
    {0, ID_WATCH_FORMAT_FIRST, "&Decimal"},
    {0, ID_WATCH_FORMAT_BINARY, "&Binary"},
    {0, ID_WATCH_FORMAT_OCTAL, "&Octal"},
    {0, ID_WATCH_FORMAT_LAST, "&Hexadecimal"},
};

// The text of a watchpoint's entry comes when the menu opens.
constexpr LangMenuEntry kRegister[] = {
    {0, ID_REGISTER_FORMAT_FIRST, "&Decimal"},
    {0, ID_REGISTER_FORMAT_BINARY, "&Binary"},
    {0, ID_REGISTER_FORMAT_OCTAL, "&Octal"},
    {0, ID_REGISTER_FORMAT_LAST, "&Hexadecimal"},
    Line(0),
    {0, ID_REGISTER_WATCHPOINT, "&Watchpoint"},
    {0, ID_REGISTER_WATCHPOINTS_CLEAR, "&Remove All Watchpoints"},
};

constexpr LangMenuEntry kMemory[] = {
    {0, ID_MEMORY_WATCHPOINT, "&Watchpoint"},
    {0, ID_MEMORY_WATCHPOINTS_CLEAR, "&Remove All Watchpoints"},
};

constexpr LangMenuEntry kHeader[] = {
    {0, ID_HEADER_FILE, "&File Name"},
    {0, ID_HEADER_PAGE, "&Page Number"},
    {0, ID_HEADER_DATE, "&Date"},
    {0, ID_HEADER_TIME, "&Time"},
};

constexpr LangMenuEntry kFooter[] = {
    {0, ID_FOOTER_FILE, "&File Name"},
    {0, ID_FOOTER_PAGE, "&Page Number"},
    {0, ID_FOOTER_DATE, "&Date"},
    {0, ID_FOOTER_TIME, "&Time"},
};

struct MenuRow {
    int id;
    std::span<const LangMenuEntry> entries;
};

constexpr MenuRow kMenus[] = {
    {IDR_MAINFRAME, kMain},
    {IDR_OUTPUT_MENU, kOutput},
    {IDR_WORKSPACE_MENU_PROJECT, kTreeProject},
    {IDR_WORKSPACE_MENU_FILE, kTreeFile},
    {IDR_WORKSPACE_MENU_ROOT, kTreeRoot},
    {IDR_WORKSPACE_MENU_OUTPUTS, kTreeOutputs},
    {IDR_GROUPING_MENU, kGrouping},
    {IDR_TREE_MENU, kCallTree},
    {IDR_TAB_MENU, kTab},
    {IDR_BUILD_MENU, kBuildArrow},
    {IDR_VIEW_MENU, kView},
    {IDR_BAR_MENU, kBars},
    {IDR_WATCH_MENU, kWatch},
    {IDR_REGISTER_MENU, kRegister},
    {IDR_MEMORY_MENU, kMemory},
    {IDR_HEADER_MENU, kHeader},
    {IDR_FOOTER_MENU, kFooter},
};

constexpr auto kById = SortedById(kMenus);
static_assert(HasUniqueIds(kById), "two menus have the same id");

}  // namespace

std::span<const LangMenuEntry> FindMenu(int id) {
    const auto row = FindRow(kById, id);
    return row ? row->entries : std::span<const LangMenuEntry>();
}

}  // namespace language
