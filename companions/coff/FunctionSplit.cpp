#include "coff/FunctionSplit.h"

#include <algorithm>

namespace {

// Each new begin can make a jump over it one between two functions, whose target then is a begin too. A jump waits in a
// segment tree over the points where a function could begin, at the nodes that make up its span, until a begin falls
// into it: each is looked at once, however long the chain gets.
class CSplitter {
public:
    CSplitter(const std::vector<ProgramPart> &parts, const std::vector<Transfer> &transfers) {
        for (const ProgramPart &part : parts) {
            points_.push_back(part.begin);
            points_.insert(points_.end(), part.labels.begin(), part.labels.end());
        }
        std::sort(points_.begin(), points_.end());
        points_.erase(std::unique(points_.begin(), points_.end()), points_.end());
        isBegin_.resize(points_.size());
        waiting_.resize(2 * points_.size());

        for (const Transfer &transfer : transfers)
            if (!transfer.isCall && PointAt(transfer.to) < points_.size()) Wait(transfer);
        for (const ProgramPart &part : parts) {
            Begin(PointAt(part.begin));
            for (const uint32_t entry : part.entries) Begin(PointAt(entry));
        }
        for (const Transfer &transfer : transfers)
            if (transfer.isCall) Begin(PointAt(transfer.to));
    }

    std::vector<uint32_t> Begins() const {
        std::vector<uint32_t> begins;
        for (size_t i = 0; i < points_.size(); ++i)
            if (isBegin_[i]) begins.push_back(points_[i]);
        return begins;
    }

private:
    size_t PointAt(uint32_t address) const {  // the number of points when there is none
        const auto found = std::lower_bound(points_.begin(), points_.end(), address);
        return found != points_.end() && *found == address ? static_cast<size_t>(found - points_.begin())
                                                           : points_.size();
    }

    void Wait(const Transfer &jump) {
        const auto [low, high] = std::minmax(jump.from, jump.to);
        const auto first = std::upper_bound(points_.begin(), points_.end(), low);
        const auto last = std::upper_bound(first, points_.end(), high);
        const size_t target = PointAt(jump.to);
        size_t a = static_cast<size_t>(first - points_.begin()) + points_.size();
        size_t b = static_cast<size_t>(last - points_.begin()) + points_.size();
        for (; a < b; a /= 2, b /= 2) {
            if (a % 2) waiting_[a++].push_back(target);
            if (b % 2) waiting_[--b].push_back(target);
        }
    }

    void Begin(size_t point) {
        std::vector<size_t> open = {point};
        while (!open.empty()) {
            const size_t next = open.back();
            open.pop_back();
            if (next >= points_.size() || isBegin_[next]) continue;
            isBegin_[next] = true;
            for (size_t node = next + points_.size(); node > 0; node /= 2) {
                open.insert(open.end(), waiting_[node].begin(), waiting_[node].end());
                waiting_[node].clear();
            }
        }
    }

    std::vector<uint32_t> points_;
    std::vector<bool> isBegin_;
    std::vector<std::vector<size_t>> waiting_;  // targets of jumps, by node of the tree; leaves behind inner nodes
};

}  // namespace

std::vector<FunctionRange> SplitIntoFunctions(const std::vector<ProgramPart> &parts,
                                              const std::vector<Transfer> &transfers) {
    const std::vector<uint32_t> begins = CSplitter(parts, transfers).Begins();
    std::vector<FunctionRange> functions;
    size_t next = 0;
    for (size_t i = 0; i < parts.size(); ++i) {
        for (; next < begins.size() && begins[next] < parts[i].end; ++next) {
            if (begins[next] < parts[i].begin) continue;
            const bool isLast = next + 1 == begins.size() || begins[next + 1] >= parts[i].end;
            functions.push_back({begins[next], isLast ? parts[i].end : begins[next + 1], static_cast<int>(i)});
        }
    }
    return functions;
}

int FunctionAt(const std::vector<FunctionRange> &functions, uint32_t address) {
    const auto after =
        std::upper_bound(functions.begin(), functions.end(), address,
                         [](uint32_t value, const FunctionRange &function) { return value < function.begin; });
    if (after == functions.begin() || address >= std::prev(after)->end) return -1;
    return static_cast<int>(std::prev(after) - functions.begin());
}
