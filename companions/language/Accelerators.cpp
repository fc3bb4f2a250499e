#include "Tables.h"
#include "app/CommandIds.h"
#include "app/StringIds.h"

namespace language {
namespace {

// Ctrl held down turns a build into a rebuild, so the keys of the build commands themselves go without it.
constexpr LangAccelerator kMain[] = {
    {ID_FILE_NEW, "Ctrl+N"},
    {ID_FILE_OPEN, "Ctrl+O"},
    {ID_FILE_SAVE, "Ctrl+S"},
    {ID_FILE_SAVE_ALL, "Ctrl+Shift+S"},
    {ID_FILE_CLOSE, "Ctrl+F4"},
    {ID_FILE_CLOSE, "Ctrl+W"},
    {ID_FILE_PRINT, "Ctrl+P"},
    {ID_APP_EXIT, "Alt+F4"},
    {ID_WORKSPACE_OPEN, "Ctrl+Shift+O"},
    {ID_PROJECT_NEW, "Ctrl+Shift+N"},

    {ID_EDIT_UNDO, "Ctrl+Z"},
    {ID_EDIT_REDO, "Ctrl+Y"},
    {ID_EDIT_REDO, "Ctrl+Shift+Z"},
    {ID_EDIT_CUT, "Ctrl+X"},
    {ID_EDIT_COPY, "Ctrl+C"},
    {ID_EDIT_PASTE, "Ctrl+V"},
    {ID_EDIT_SELECT_ALL, "Ctrl+A"},
    {ID_EDIT_FIND, "Ctrl+F"},
    {ID_EDIT_FIND_NEXT, "F3"},
    {ID_EDIT_FIND_PREVIOUS, "Shift+F3"},
    {ID_EDIT_REPLACE, "Ctrl+H"},
    {ID_GOTO_LINE, "Ctrl+G"},
    {ID_MATCH_BRACE, "Ctrl+]"},
    {ID_LAST_EDIT, "Ctrl+Shift+Backspace"},
    {ID_OPEN_COUNTERPART, "Alt+O"},
    {ID_GOTO_DEFINITION, "F12"},
    {ID_GO_BACK, "Alt+Left"},
    {ID_BOOKMARK_TOGGLE, "Ctrl+F2"},
    {ID_BOOKMARK_NEXT, "F2"},
    {ID_BOOKMARK_PREVIOUS, "Shift+F2"},
    {ID_BOOKMARK_CLEAR, "Ctrl+Shift+F2"},

    {ID_VIEW_WORKSPACE_BAR, "Alt+0"},
    {ID_VIEW_OUTPUT_BAR, "Alt+2"},
    {ID_VIEW_WATCH_BAR, "Alt+3"},
    {ID_VIEW_REGISTER_BAR, "Alt+5"},
    {ID_VIEW_RAM_BAR, "Alt+6"},
    {ID_VIEW_STACK_BAR, "Alt+7"},
    {ID_VIEW_LISTING_BAR, "Alt+8"},
    {ID_VIEW_EEPROM_BAR, "Alt+9"},
    {ID_PROJECT_OPTIONS, "Alt+F7"},

    {ID_BUILD, "F7"},
    {ID_REBUILD, "Ctrl+F7"},
    {ID_BUILD_ALL, "Shift+F7"},
    {ID_REBUILD_ALL, "Ctrl+Shift+F7"},
    {ID_BUILD_STOP, "Ctrl+Pause"},
    {ID_BUILD_STOP, "Ctrl+Cancel"},  // what Ctrl and the Pause key give on many keyboards
    {ID_NEXT_MESSAGE, "F4"},

    {ID_DEBUG_CONTINUE, "F5"},
    {ID_DEBUG_END, "Shift+F5"},
    {ID_DEBUG_START, "Ctrl+F5"},
    {ID_DEBUG_RESET, "Ctrl+Shift+F5"},
    {ID_DEBUG_STOP, "Ctrl+Alt+Pause"},
    {ID_BREAKPOINT_TOGGLE, "F9"},
    {ID_BREAKPOINTS, "Alt+F9"},
    {ID_WATCH_AT_CARET, "Shift+F9"},
    {ID_DEBUG_STEP_OVER, "F10"},
    {ID_DEBUG_STEP_INTO, "F11"},
    {ID_DEBUG_STEP_OUT, "Shift+F11"},
    {ID_DEBUG_STEP_BACK, "Ctrl+Shift+F11"},
    {ID_DEBUG_RUN_TO_CURSOR, "Ctrl+F10"},

    {ID_MACRO_RECORD, "Ctrl+Shift+R"},
    {ID_MACRO_PLAY, "Ctrl+Shift+P"},
    {ID_HELP_USER_MANUAL, "F1"},

    {ID_WINDOW_NEXT, "Ctrl+Tab"},
    {ID_WINDOW_PREV, "Ctrl+Shift+Tab"},
    {ID_WINDOW_NEXT, "Ctrl+F6"},
    {ID_WINDOW_PREV, "Ctrl+Shift+F6"},
};

}  // namespace

std::span<const LangAccelerator> FindAccelerators(int id) {
    if (id != IDR_MAINFRAME) return {};
    return kMain;
}

}  // namespace language
