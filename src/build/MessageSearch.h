// The way to the next message of a long list, in slices that leave the window responsive.
#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <unordered_map>

#include "build/MessagePlace.h"

// Searches from the line behind the selected one to the end, then from the start to the line before the selected one.
// Without a selection it searches once from the start. Answers of the file test are kept for the life of the search.
class MessageSearch {
public:
    struct Result {
        size_t index;
        MessagePlace place;
    };
    enum class State { searching, found, nothing };

    // `selected`: -1 for none.
    MessageSearch(size_t count, int selected, LineAccess lines, FileTest exists);

    // Goes on until something is found, nothing is left, or the time is over.
    State Run(std::chrono::milliseconds limit);
    const Result &Found() const { return *found_; }

private:
    static constexpr size_t kMostAnswersKept = 65536;

    bool Exists(const std::string &name);
    bool Look();
    void WalkUp();
    void Take(MessagePlace place);
    void Advance();

    const LineAccess lines_;
    const FileTest exists_;
    size_t position_, end_;
    size_t secondEnd_;  // end of the part from the start of the list on; 0: there is none
    std::unordered_map<std::string, bool> answers_;

    std::optional<MessagePlace> waiting_;  // a message whose file is looked for above
    size_t walk_ = 0;                      // the next line to look at is the one before it
    size_t walkStart_ = 0;
    struct Known {
        size_t begin, end;  // lines of this range are no files...
        std::optional<std::string> file;  // ...and this one stands above them, empty: none
    };
    std::optional<Known> known_;
    std::optional<Result> found_;
};
