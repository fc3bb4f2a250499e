// Answers walks over a memory of the chip, address by address, out of blocks that are read at once: a view of the whole
// memory asks thousands of times in a row.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <vector>

// Any thread. A block holds while the chip's state is the same; while the target runs, for some milliseconds: bytes of
// one block are of one moment, those of the next one, and the first few of a walk, of others.
class CReadAhead {
public:
    static constexpr int kUnreadable = -1;

    // Reads up to `count` addresses from `first` on, kUnreadable where there is nothing. False: it can't be read so.
    using Fetch = std::function<bool(int first, int count, std::vector<int16_t> &bytes)>;

    // What is at `address`, or kUnreadable. Empty: it isn't a walk, ask for the address alone. `state`: another number
    // whenever the chip's state may be another one.
    std::optional<int> Read(int address, uint64_t state, bool runs, const Fetch &fetch);

private:
    using Clock = std::chrono::steady_clock;

    bool Holds(int64_t address, uint64_t state, bool runs) const;

    std::mutex lock_;
    int64_t next_ = 0;   // address of the walk
    int steps_ = 0;      // in a row
    int64_t first_ = 0;  // address of the block
    std::vector<int16_t> bytes_;
    uint64_t state_ = 0;
    Clock::time_point readAt_;
};
