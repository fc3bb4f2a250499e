#include "build/MessageSearch.h"

#include <utility>

namespace {

using Clock = std::chrono::steady_clock;

constexpr unsigned kLinesBetweenLooks = 256;  // at the clock, while the lines cost no disk access

}  // namespace

MessageSearch::MessageSearch(size_t count, int selected, LineAccess lines, FileTest exists)
    : lines_(std::move(lines)),
      exists_(std::move(exists)),
      position_(static_cast<size_t>(selected + 1)),
      end_(count),
      secondEnd_(selected > 0 ? static_cast<size_t>(selected) : 0) {}

MessageSearch::State MessageSearch::Run(std::chrono::milliseconds limit) {
    const auto deadline = Clock::now() + limit;
    for (unsigned round = 1;; ++round) {
        if (!walking_ && position_ >= end_ && !Advance()) return State::nothing;
        const size_t answers = answers_.size();
        switch (walking_ ? WalkUp() : JudgeLine()) {
            case Verdict::message: return State::found;
            case Verdict::noMessage: ++position_; break;
            case Verdict::undecided: break;
        }
        const bool lookedAtDisk = answers_.size() != answers;
        if ((lookedAtDisk || round % kLinesBetweenLooks == 0) && Clock::now() >= deadline) return State::searching;
    }
}

// To the second part of the search. False when there is none.
bool MessageSearch::Advance() {
    if (secondEnd_ == 0) return false;
    position_ = 0;
    end_ = std::exchange(secondEnd_, 0);
    walkedFrom_ = 0;
    return true;
}

bool MessageSearch::Exists(std::string_view text) {
    if (text.empty() || text.size() > kLongestFileName) return false;
    std::string name(text);
    if (const auto known = answers_.find(name); known != answers_.end()) return known->second;
    if (answers_.size() >= kMostAnswersKept) answers_.clear();
    const bool exists = exists_(name);
    return answers_.emplace(std::move(name), exists).first->second;
}

MessageSearch::Verdict MessageSearch::JudgeLine() {
    std::optional<MessageText> message = ReadMessageText(lines_(position_));
    if (!message) return Verdict::noMessage;
    if (message->needs == MessageText::Needs::file && !Exists(message->place.file)) return Verdict::noMessage;
    found_ = std::move(message->place);
    if (message->needs != MessageText::Needs::fileAbove) return Verdict::message;
    walking_ = true;
    walk_ = position_;
    return Verdict::undecided;
}

MessageSearch::Verdict MessageSearch::WalkUp() {
    if (walk_ == walkedFrom_) {
        walking_ = false;
        walkedFrom_ = position_;
        return Verdict::noMessage;
    }
    const std::string_view name = lines_(--walk_);
    if (!Exists(name)) return Verdict::undecided;
    walking_ = false;
    found_.file = name;
    return Verdict::message;
}
