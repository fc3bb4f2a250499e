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
    Push(ID_BOOKMARK_TOGGLE),
    Push(ID_BOOKMARK_NEXT),
    Push(ID_BOOKMARK_PREVIOUS),
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
    Push(ID_PROJECT_OPTIONS),
};

struct ToolBarRow {
    int id;
    std::span<const LangToolButton> buttons;
};

constexpr ToolBarRow kToolBars[] = {
    {IDR_TOOLBAR_MAIN, kMain},
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
