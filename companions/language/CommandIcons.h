// The drawings of commands: one name for each command, wherever it shows.
#pragma once

#include "SortedTable.h"
#include "app/CommandIds.h"

namespace language {

struct IconRow {
    int id;
    const char *icon;
};

inline constexpr IconRow kIcons[] = {
    {ID_FILE_NEW, "file-new"},
    {ID_FILE_OPEN, "file-open"},
    {ID_FILE_SAVE, "save"},
    {ID_FILE_SAVE_AS, "save-as"},
    {ID_FILE_SAVE_ALL, "save-all"},
    {ID_PAGE_MARGINS, "page-setup"},
    {ID_FILE_PRINT, "print"},
    {ID_FILE_PRINT_DIRECT, "print"},
    {ID_FILE_PRINT_PREVIEW, "print-preview"},
    {ID_EDIT_CUT, "cut"},
    {ID_EDIT_COPY, "copy"},
    {ID_EDIT_PASTE, "paste"},
    {ID_EDIT_UNDO, "undo"},
    {ID_EDIT_REDO, "redo"},
    {ID_EDIT_FIND, "find"},
    {ID_EDIT_FIND_NEXT, "find-next"},
    {ID_EDIT_FIND_PREVIOUS, "find-previous"},
    {ID_EDIT_REPLACE, "replace"},
    {ID_EDITOR_SETTINGS, "editor-settings"},
    {ID_GOTO_LINE, "goto-line"},
    {ID_MATCH_BRACE, "match-brace"},
    {ID_LAST_EDIT, "last-edit"},
    {ID_OPEN_COUNTERPART, "counterpart"},
    {ID_BOOKMARK_TOGGLE, "bookmark"},
    {ID_BOOKMARK_NEXT, "bookmark-next"},
    {ID_BOOKMARK_PREVIOUS, "bookmark-previous"},
    {ID_BOOKMARK_CLEAR, "bookmark-clear"},

    {ID_WORKSPACE_NEW, "workspace-new"},
    {ID_WORKSPACE_OPEN, "workspace-open"},
    {ID_PROJECT_NEW, "project-new"},
    {ID_PROJECT_NEW_INTO, "project-new"},
    {ID_PROJECT_OPEN, "project-open"},
    {ID_PROJECT_OPEN_INTO, "project-open"},
    {ID_PROJECT_ADD_EXISTING, "project-add"},
    {ID_PROJECT_ACTIVATE, "project-active"},
    {ID_PROJECT_ADD_FILES, "file-add"},
    {ID_PROJECT_ADD_NEW_FILE, "file-new"},
    {ID_PROJECT_REMOVE_FILE, "file-remove"},
    {ID_PROJECT_ADD_LIBRARY, "file-lib"},
    {ID_PROJECT_COMPILER, "compiler"},
    {ID_PROJECT_TARGET, "chip"},
    {ID_PROJECT_OPTIONS, "options"},

    {ID_BUILD, "build"},
    {ID_REBUILD, "rebuild"},
    {ID_REBUILD_BUTTON, "rebuild"},
    {ID_CLEAN, "clean"},
    {ID_BUILD_ALL, "build-all"},
    {ID_REBUILD_ALL, "rebuild-all"},
    {ID_REBUILD_ALL_BUTTON, "rebuild-all"},
    {ID_BUILD_OPTIONS, "build-options"},
    {ID_STEP_FIRST_RUN, "step-compile"},
    {ID_STEP_SECOND_RUN, "step-assemble"},
    {ID_STEP_THIRD_RUN, "step-disassemble"},
    {ID_STEP_FOURTH_RUN, "step-program"},
    {ID_STEP_FIFTH_RUN, "step-link"},
    {ID_STEP_FIRST_STOP, "stop"},
    {ID_STEP_SECOND_STOP, "stop"},
    {ID_STEP_THIRD_STOP, "stop"},
    {ID_STEP_FOURTH_STOP, "stop"},
    {ID_STEP_FIFTH_STOP, "stop"},
    {ID_BUILD_STOP, "stop"},
    {ID_NEXT_MESSAGE, "next-message"},
    {ID_OUTPUT_CLEAR, "output-clear"},
    {ID_OUTPUT_COPY, "copy"},

    {ID_VIEW_WORKSPACE_BAR, "bar-workspace"},
    {ID_VIEW_OUTPUT_BAR, "bar-output"},
    {ID_VIEW_LISTING_BAR, "bar-listing"},
    {ID_VIEW_REGISTER_BAR, "bar-registers"},
    {ID_VIEW_WATCH_BAR, "bar-watch"},
    {ID_VIEW_RAM_BAR, "bar-ram"},
    {ID_VIEW_EEPROM_BAR, "bar-eeprom"},
    {ID_VIEW_STACK_BAR, "bar-stack"},
    {ID_VIEW_PROFILE_BAR, "bar-profile"},

    {ID_DEBUG_START, "debug-start"},
    {ID_DEBUG_END, "debug-end"},
    {ID_DEBUG_CONTINUE, "debug-continue"},
    {ID_DEBUG_STOP, "debug-stop"},
    {ID_DEBUG_RESET, "debug-reset"},
    {ID_DEBUG_POWER_ON_RESET, "debug-power-on-reset"},
    {ID_DEBUG_STEP_INTO, "step-into"},
    {ID_DEBUG_STEP_OVER, "step-over"},
    {ID_DEBUG_STEP_OUT, "step-out"},
    {ID_DEBUG_STEP_BACK, "step-back"},
    {ID_DEBUG_RUN_TO_CURSOR, "run-to-cursor"},
    {ID_DEBUG_PROFILING, "profiling"},
    {ID_DEBUG_SNAPSHOT, "snapshot"},
    {ID_BREAKPOINT_TOGGLE, "breakpoint"},
    {ID_CLOCK_RATE, "clock"},

    {ID_MACRO_RECORD, "macro-record"},
    {ID_MACRO_PAUSE, "macro-pause"},
    {ID_MACRO_RESUME, "macro-resume"},
    {ID_MACRO_STOP, "stop"},
    {ID_MACRO_PLAY, "macro-play"},
    {ID_MACRO_SAVE, "macro-save"},
    {ID_MACRO_LIST, "macro-list"},

    {ID_HELP_USER_MANUAL, "help-manual"},
    {ID_HELP_PLUGIN_SYSTEM, "help-plugins"},
    {ID_TIP_OF_THE_DAY, "tip"},
    {ID_WINDOW_CASCADE, "window-cascade"},
    {ID_WINDOW_TILE_HORZ, "window-tile-horizontally"},
    {ID_WINDOW_TILE_VERT, "window-tile-vertically"},
    {ID_APP_ABOUT, "info"},
};

inline constexpr auto kIconsById = SortedById(kIcons);
static_assert(HasUniqueIds(kIconsById), "two icons for one command");

}  // namespace language
