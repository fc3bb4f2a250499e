// What the searches of all views share, for the life of the program only.
#pragma once

#include <deque>
#include <string>

// Texts typed into one field of the search dialogs, newest first.
class CFindHistory {
public:
    static constexpr size_t kMostTexts = 16;

    // Only the newest text is compared: an older equal one stays where it is.
    void Add(const std::string &text);
    const std::deque<std::string> &Texts() const { return texts_; }

private:
    std::deque<std::string> texts_;
};

struct CFindState {
    std::string text;  // what Find Next looks for; empty until a text was given
    CFindHistory findHistory;
    CFindHistory replaceHistory;
};
