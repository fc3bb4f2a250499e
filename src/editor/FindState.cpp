#include "editor/FindState.h"

void CFindHistory::Add(const std::string &text) {
    if (!texts_.empty() && texts_.front() == text) return;
    if (texts_.size() >= kMostTexts) texts_.pop_back();
    texts_.push_front(text);
}
