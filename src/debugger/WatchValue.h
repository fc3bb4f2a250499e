// The data of a watched expression, what its row shows of them, and what is typed over it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "widgets/PropTreeItem.h"

struct WatchValue {
    int64_t prevInt = 0;  // at the refresh before
    double prevDouble = 0;
    std::string prevText;
    int64_t curInt = 0;  // now
    double curDouble = 0;
    std::string curText;
    int32_t format = 0;         // a NumberFormat
    bool keepPrevious = false;  // the next refresh doesn't move what is now to what was before
    bool isDouble = false;
    bool isText = false;  // from the table of variables, with its mark "#" in front
};

// The target's answer for an expression.
struct WatchAnswer {
    std::optional<std::string> text;  // none: it couldn't be evaluated
    std::string error;                // why, in the engine's words, if it has any
};

struct WatchShown {
    std::string text;  // empty: nothing was read yet
    PropLook look = PropLook::normal;
    bool readOnly = false;
    bool operator==(const WatchShown &) const = default;
};

// Takes an answer in and says what the row shows from now on; `before` is what it shows now. `error` is the word for a
// value that can't be had or read.
WatchShown RefreshWatch(WatchValue &value, const WatchAnswer &answer, const WatchShown &before,
                        const std::string &error);

// The same for a row that is shown in another format from now on, and stands out as it did before.
WatchShown ReformatWatch(WatchValue &value, const WatchAnswer &answer, const WatchShown &before,
                         const std::string &error);

// What is now, in the value's format; small numbers with their character.
std::string WatchText(const WatchValue &value);

// A number as typed in a format, up to the first character that doesn't belong to it.
struct TypedNumber {
    int64_t value = 0;
    bool hasDigits = false;
    bool isWhole = true;  // nothing but a blank stopped the reading
    bool fits = true;     // into 64 bits
    bool operator==(const TypedNumber &) const = default;
};
TypedNumber ReadTyped(std::string_view text, int format);
