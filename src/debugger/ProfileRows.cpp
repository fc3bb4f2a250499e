#include "debugger/ProfileRows.h"

#include <algorithm>
#include <functional>

namespace {

constexpr uint64_t kFirstInThousands = 9999, kFirstInMillions = 9999999;
constexpr int kLeastBar = 4;  // pixels
constexpr const char *kErrorName = "*error*";

std::string Shortened(uint64_t count) {
    if (count >= kFirstInMillions) return std::to_string(count / 1000000) + "M";
    return count >= kFirstInThousands ? std::to_string(count / 1000) + "k" : std::to_string(count);
}

}  // namespace

std::string ProfileRow::Figures() const {
    return " " + std::to_string(Percent()) + "% (" + Shortened(count) + ")";
}

int ProfileRow::BarWidth(int room) const {
    if (!total || room <= kLeastBar) return kLeastBar;
    return kLeastBar + static_cast<int>(static_cast<uint64_t>(room - kLeastBar) * count / total);
}

void CProfileRows::Update(const std::vector<ProfileEntry> &entries) {
    const bool first = rows_.empty();
    if (first) rows_.resize(entries.size());
    std::ranges::sort(rows_, {}, &ProfileRow::place);
    uint64_t total = 0;
    for (const ProfileEntry &entry : entries) total += entry.count;
    for (size_t i = 0; i < rows_.size(); ++i) {
        ProfileRow &row = rows_[i];
        if (i < entries.size()) row.name = entries[i].name;
        row.count = i < entries.size() ? entries[i].count : 0;
        row.total = total;
        row.place = i;
    }
    if (!first) std::ranges::stable_sort(rows_, std::greater(), &ProfileRow::count);
}

void CProfileRows::ShowError() {
    for (ProfileRow &row : rows_) row.name = kErrorName;
}
