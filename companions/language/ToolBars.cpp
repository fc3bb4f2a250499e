#include "CommandIcons.h"
#include "Tables.h"
#include "app/StringIds.h"

namespace language {
namespace {

constexpr LangToolButton kGap = {0, kLangButtonSeparator, nullptr, 0};

// A button without a drawing doesn't compile.
consteval LangToolButton Push(int command) {
    return {command, kLangButtonPush, FindRow(kIconsById, command).value().icon, 0};
}

consteval LangToolButton Check(int command) {
    LangToolButton button = Push(command);
    button.kind = kLangButtonCheck;
    return button;
}

consteval LangToolButton DropDown(int command, int menu) {
    LangToolButton button = Push(command);
    button.kind = kLangButtonDropDown;
    button.menu = menu;
    return button;
}

constexpr LangToolButton kMain[] = {
    Push(ID_FILE_NEW),
    Push(ID_FILE_OPEN),
    Push(ID_FILE_SAVE),
    Push(ID_FILE_SAVE_ALL),
    kGap,
    Push(ID_EDIT_CUT),
    Push(ID_EDIT_COPY),
    Push(ID_EDIT_PASTE),
    kGap,
    Push(ID_EDIT_UNDO),
    Push(ID_EDIT_REDO),
    kGap,
    Push(ID_FILE_PRINT_DIRECT),
};

constexpr LangToolButton kEdit[] = {
    Push(ID_EDIT_FIND),
    Push(ID_EDIT_FIND_PREVIOUS),
    Push(ID_EDIT_FIND_NEXT),
    Push(ID_EDIT_REPLACE),
    kGap,
    Push(ID_BOOKMARK_TOGGLE),
    Push(ID_BOOKMARK_PREVIOUS),
    Push(ID_BOOKMARK_NEXT),
    Push(ID_BOOKMARK_CLEAR),
    kGap,
    Push(ID_MATCH_BRACE),
    Push(ID_LAST_EDIT),
    Push(ID_OPEN_COUNTERPART),
    kGap,
    Push(ID_GOTO_DEFINITION),
    Push(ID_GO_BACK),
    kGap,
    Push(ID_MACRO_RECORD),
    Push(ID_MACRO_PLAY),
};

constexpr LangToolButton kMacroRecording[] = {
    Push(ID_MACRO_PAUSE),
    Push(ID_MACRO_STOP),
};

constexpr LangToolButton kMacroPaused[] = {
    Push(ID_MACRO_RESUME),
    Push(ID_MACRO_STOP),
};

constexpr LangToolButton kDebug[] = {
    Push(ID_DEBUG_CONTINUE),
    Push(ID_DEBUG_STOP),
    Push(ID_DEBUG_RESET),
    Push(ID_DEBUG_END),
    kGap,
    Push(ID_DEBUG_STEP_INTO),
    Push(ID_DEBUG_STEP_OVER),
    Push(ID_DEBUG_STEP_OUT),
    Push(ID_DEBUG_STEP_BACK),
    Push(ID_DEBUG_RUN_TO_CURSOR),
    Push(ID_BREAKPOINT_TOGGLE),
    kGap,
    Check(ID_VIEW_REGISTER_BAR),
    Check(ID_VIEW_WATCH_BAR),
    Check(ID_VIEW_RAM_BAR),
    Check(ID_VIEW_EEPROM_BAR),
    Check(ID_VIEW_STACK_BAR),
    Check(ID_VIEW_LISTING_BAR),
    Check(ID_VIEW_PROFILE_BAR),
    kGap,
    Check(ID_DEBUG_PROFILING),
    Check(ID_DEBUG_SNAPSHOT),
};

// The forms of the build tool bar differ in what their stop button stops, so that nothing moves when a build starts.
// The steps stand in the order in which they run.
template <int Stop>
constexpr LangToolButton kBuildForm[] = {
    {ID_CONFIG_SELECT, kLangButtonBox, nullptr, 0},
    DropDown(ID_BUILD, IDR_BUILD_MENU),
    Push(ID_REBUILD_BUTTON),
    kGap,
    Push(ID_STEP_FIRST_RUN),
    Push(ID_STEP_SECOND_RUN),
    Push(ID_STEP_FIFTH_RUN),
    Push(ID_STEP_THIRD_RUN),
    Push(ID_STEP_FOURTH_RUN),
    kGap,
    Push(Stop),
    Push(ID_NEXT_MESSAGE),
    kGap,
    Push(ID_DEBUG_START),
    Push(ID_PROJECT_OPTIONS),
};

struct ToolBarRow {
    int id;
    std::span<const LangToolButton> buttons;
};

constexpr ToolBarRow kToolBars[] = {
    {IDR_TOOLBAR_MAIN, kMain},
    {IDR_TOOLBAR_EDIT, kEdit},
    {IDR_TOOLBAR_DEBUG, kDebug},
    {IDR_MACRO_RECORDING, kMacroRecording},
    {IDR_MACRO_PAUSED, kMacroPaused},
    {IDR_MAINFRAME, kBuildForm<ID_BUILD_STOP>},
    {IDR_BUILD_RUNNING, kBuildForm<ID_BUILD_STOP>},
    {IDR_BUILD_STEP_FIRST, kBuildForm<ID_STEP_FIRST_STOP>},
    {IDR_BUILD_STEP_SECOND, kBuildForm<ID_STEP_SECOND_STOP>},
    {IDR_BUILD_STEP_FIFTH, kBuildForm<ID_STEP_FIFTH_STOP>},
};

constexpr auto kById = SortedById(kToolBars);
static_assert(HasUniqueIds(kById), "two tool bars have the same id");

}  // namespace

std::span<const LangToolButton> FindToolBar(int id) {
    const auto row = FindRow(kById, id);
    return row ? row->buttons : std::span<const LangToolButton>();
}

}  // namespace language
