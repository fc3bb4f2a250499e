// What "SciLexer.dll" exports: windows of the editing component, driven by its numbered messages. The contract of the
// module; see ScintillaMessages.h for the numbers. C linkage. All calls on the main thread.
#pragma once

#include <cstdint>

class QWidget;

extern "C" {

// One notification of a component window. Which fields count depends on `code`; the others are 0. The pointers are
// valid during the call only.
struct SciLexerNotification {
    uint32_t code;             // one of SCN_...
    intptr_t position;         // a byte offset in the text
    int32_t ch;                // SCN_CHARADDED: the character's code point
    int32_t modifiers;         // SCMOD_... of keys held down
    int32_t modificationType;  // SC_MOD_...
    const char *text;          // inserted or deleted bytes, `length` of them; may be null
    intptr_t length;
    intptr_t linesAdded;
    uint32_t message;  // SCN_MACRORECORD: the message that was carried out, with its two parameters
    uintptr_t wParam;
    intptr_t lParam;
    intptr_t line;
    int32_t foldLevelNow;
    int32_t foldLevelPrev;
    int32_t margin;   // number of the margin clicked
    int32_t x, y;     // pixels, in the component window
    int32_t updated;  // SC_UPDATE_...
};

// Called from inside SciLexerSend or the component's own event handlers. It may send messages to the same window; text
// must not be changed while SCN_MODIFIED is told.
using SciLexerNotifyFn = void(void *context, const SciLexerNotification *notification);

// Makes an empty component window of size 0, visible with its parent, code page UTF-8. `parent` owns it. Null on
// failure.
using SciLexerCreateFn = QWidget *(QWidget *parent);

// Carries out one message at once and returns its answer. Texts go as pointers in the second or first parameter, as the
// message wants it. A window that isn't one of SciLexerCreate's gives 0.
using SciLexerSendFn = intptr_t(QWidget *window, uint32_t message, uintptr_t wParam, intptr_t lParam);

// From now on notifications of `window` go to `notify` with `context`; null: to nobody, as at first.
using SciLexerSetNotifyFn = void(QWidget *window, SciLexerNotifyFn *notify, void *context);

}  // extern "C"

// Names of the exports, in the order of the types above.
inline constexpr const char *kSciLexerCreate = "SciLexerCreate";
inline constexpr const char *kSciLexerSend = "SciLexerSend";
inline constexpr const char *kSciLexerSetNotify = "SciLexerSetNotify";
