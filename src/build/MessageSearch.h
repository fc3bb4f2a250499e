// The way to the next message of a long list, in slices that leave the window responsive.
#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>

#include "build/MessagePlace.h"

// Searches from the line behind the selected one to the end, then from the start to the line before the selected one.
// Without a selection it searches once from the start. Answers of the file test are kept for the life of the search.
class MessageSearch {
public:
    enum class State { searching, found, nothing };

    // `selected`: -1 for none. Lines may be appended to the list meanwhile; they are not looked at.
    MessageSearch(size_t count, int selected, LineAccess lines, FileTest exists);

    // Goes on until something is found, nothing is left, or the time is over.
    State Run(std::chrono::milliseconds limit);

    // After State::found.
    size_t FoundIndex() const { return position_; }
    const MessagePlace &FoundPlace() const { return found_; }

private:
    static constexpr size_t kMostAnswersKept = 8192;  // few enough to be forgotten in one go

    enum class Verdict { message, noMessage, undecided };

    bool Exists(std::string_view name);
    Verdict JudgeLine();
    Verdict WalkUp();
    bool Advance();

    const LineAccess lines_;
    const FileTest exists_;
    size_t position_;
    size_t end_;        // of the part that is being searched
    size_t secondEnd_;  // of the part from the start of the list on; 0: there is none left
    MessagePlace found_;
    std::unordered_map<std::string, bool> answers_;

    // The way up to the line that names the file of the message at position_. It is taken one line at a time, because
    // it may lead to the top of the list.
    bool walking_ = false;
    size_t walk_ = 0;        // lines from here to position_ name no file
    size_t walkedFrom_ = 0;  // no line above this one names a file either: an earlier walk began here
};
