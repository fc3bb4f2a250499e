// Where a run spends its time: instruction cycles by function.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "image/Image.h"

class CCycleProfile {
public:
    CCycleProfile(const std::vector<ImageFunction> &functions, uint32_t programSize);

    void Add(uint32_t address, uint64_t cycles) {
        counts_[address < functionAt_.size() ? functionAt_[address] : kOutside] += cycles;
    }
    void Clear();

    struct Row {
        std::string name;
        uint64_t cycles = 0;
    };
    // A row for each function, by address, and at the end one for all other code; always the same rows.
    std::vector<Row> Rows() const;

private:
    static constexpr uint16_t kOutside = 0;

    std::vector<std::string> names_;    // by the numbers of functionAt_
    std::vector<uint16_t> functionAt_;  // by program address
    std::vector<uint64_t> counts_;
};
