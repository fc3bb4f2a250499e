// One run of a GNU PIC utility as a child, its output handed on line by line.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

struct ToolResult {
    int exitCode = 0;  // of the tool; 128 + n when signal n ended it
    bool started = false;
    bool stoppedByUs = false;  // see Repetition::end
    int signal = 0;            // the signal that this program got meanwhile and handed on, 0: none
};

// The linker is known to repeat one error without end. `end`: a line that repeats the one before is dropped, and a tool
// that goes on so is stopped.
enum class Repetition { keep, end };

// Calls `onLine` for each line without its end; a line longer than 64 KB comes in pieces. Blocks until the tool ends.
ToolResult RunTool(const std::vector<std::string> &words, Repetition repetition,
                   const std::function<void(std::string_view)> &onLine);
