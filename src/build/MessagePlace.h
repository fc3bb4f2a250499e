// Reads the source place out of a line of compiler output. The rules are the contract with every compiler that a
// toolsuite may run; docs and toolsuites rely on them.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

// The line of a source file that a build message points to.
struct MessagePlace {
    std::string file;  // as the message spells it, relative to the active project's directory
    int line = -1;     // from 1; -1: the message names a file only
};

// What the text of one line says by itself, and what has to hold beyond it.
struct MessageText {
    enum class Needs {
        nothing,    // the text alone makes it a message
        file,       // `place.file` must exist
        fileAbove,  // an earlier line must be the name of an existing file, which is the message's
    };
    MessagePlace place;
    Needs needs = Needs::nothing;
};

std::optional<MessageText> ReadMessageText(std::string_view text);  // looks at no disk

using LineAccess = std::function<std::string_view(size_t index)>;
using FileTest = std::function<bool(const std::string &name)>;  // exists and is no directory

// Reads the place out of the text at `index` of `lines`; earlier lines can name the file.
std::optional<MessagePlace> ClassifyMessage(const LineAccess &lines, size_t index, const FileTest &exists);

inline constexpr size_t kLongestFileName = 4095;

// The file test for names in messages, against the current directory: blanks at the end of a name don't count.
bool MessageFileExists(const std::string &name);
std::string TrimFileName(const std::string &name);
