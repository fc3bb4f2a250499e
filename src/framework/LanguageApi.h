// The language library's interface: all words, menus, tool bars and accelerators of the program, by number.
//
// The library is a shared object "ide.lang.dll" in the program directory. All tables are constant, live as long as the
// library and may be read from any thread. Text is UTF-8.
#pragma once

#include <cstdint>

extern "C" {

// One entry of a menu, in the order of a depth-first walk. The menu's top-level entries have depth 0.
struct LangMenuEntry {
    int32_t depth;
    int32_t command;   // 0: a separator when `text` is null, else a sub-menu whose entries follow with depth + 1
    const char *text;  // with "&" before its access key; null for a separator
};

enum LangButtonKind : int32_t {
    kLangButtonPush,      // runs its command
    kLangButtonCheck,     // shows its command's checked state
    kLangButtonDropDown,  // as push, with an arrow that opens the menu of id `menu`
    kLangButtonBox,       // the place of a box that the frame puts in (the configuration box)
    kLangButtonSeparator,
};

struct LangToolButton {
    int32_t command;
    LangButtonKind kind;
    const char *icon;  // name of the drawing in the icon set, without directory and extension
    int32_t menu;      // of a drop-down button, else 0
};

struct LangAccelerator {
    int32_t command;
    const char *keys;  // in portable text: "Ctrl+Shift+F3"
};

// Null for an unknown id. The text under a command's own id is "words for the status bar\nwords for the tool tip".
using LangGetStringFn = const char *(int32_t id);

// Null and a count of 0 for an unknown id.
using LangGetMenuFn = const LangMenuEntry *(int32_t id, int32_t *count);
using LangGetToolBarFn = const LangToolButton *(int32_t id, int32_t *count);
using LangGetAcceleratorsFn = const LangAccelerator *(int32_t id, int32_t *count);

// The icon of a command wherever it shows (menus take the tool bars' icons through it), or null.
using LangGetCommandIconFn = const char *(int32_t command);

}  // extern "C"

// Names of the exports, in the order of the types above.
inline constexpr const char *kLangGetString = "LangGetString";
inline constexpr const char *kLangGetMenu = "LangGetMenu";
inline constexpr const char *kLangGetToolBar = "LangGetToolBar";
inline constexpr const char *kLangGetAccelerators = "LangGetAccelerators";
inline constexpr const char *kLangGetCommandIcon = "LangGetCommandIcon";
