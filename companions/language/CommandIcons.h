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
    {ID_EDIT_CUT, "cut"},
    {ID_EDIT_COPY, "copy"},
    {ID_EDIT_PASTE, "paste"},
    {ID_EDIT_UNDO, "undo"},
    {ID_EDIT_REDO, "redo"},
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
    {ID_WINDOW_CASCADE, "window-cascade"},
    {ID_WINDOW_TILE_HORZ, "window-tile-horizontally"},
    {ID_WINDOW_TILE_VERT, "window-tile-vertically"},
    {ID_APP_ABOUT, "info"},
};

inline constexpr auto kIconsById = SortedById(kIcons);
static_assert(HasUniqueIds(kIconsById), "two icons for one command");

}  // namespace language
