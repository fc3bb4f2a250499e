#include "CycleProfile.h"

#include <algorithm>
#include <limits>

CCycleProfile::CCycleProfile(const std::vector<ImageFunction> &functions, uint32_t programSize)
    : names_{"(elsewhere)"}, functionAt_(programSize, kOutside) {
    for (const ImageFunction &function : functions) {
        if (names_.size() > std::numeric_limits<uint16_t>::max()) break;
        for (uint32_t address = function.begin; address < std::min(function.end, programSize); address++)
            functionAt_[address] = static_cast<uint16_t>(names_.size());
        names_.push_back(function.name);
    }
    counts_.resize(names_.size());
}

void CCycleProfile::Clear() { std::fill(counts_.begin(), counts_.end(), 0); }

std::vector<CCycleProfile::Row> CCycleProfile::Rows() const {
    std::vector<Row> rows;
    for (size_t i = 1; i < names_.size(); i++) rows.push_back({names_[i], counts_[i]});
    rows.push_back({names_[kOutside], counts_[kOutside]});
    return rows;
}
