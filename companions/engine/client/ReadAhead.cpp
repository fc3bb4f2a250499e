#include "ReadAhead.h"

#include <iterator>

namespace {

constexpr int kWalk = 4;      // steps in a row
constexpr int kBlock = 1024;  // addresses
constexpr std::chrono::milliseconds kRunningLimit{5};

}  // namespace

bool CReadAhead::Holds(int64_t address, uint64_t state, bool runs) const {
    const bool covered = address >= first_ && address - first_ < std::ssize(bytes_);
    return covered && state == state_ && (!runs || Clock::now() - readAt_ < kRunningLimit);
}

std::optional<int> CReadAhead::Read(int address, uint64_t state, bool runs, const Fetch &fetch) {
    const std::lock_guard guard(lock_);
    steps_ = address == next_ ? steps_ + 1 : 0;
    next_ = int64_t{address} + 1;
    if (steps_ < kWalk) return std::nullopt;
    if (!Holds(address, state, runs)) {
        bytes_.clear();
        first_ = address;
        state_ = state;
        if (!fetch(address, kBlock, bytes_) || bytes_.empty()) {
            bytes_.clear();
            steps_ = 0;
            return std::nullopt;
        }
        readAt_ = Clock::now();
    }
    return bytes_[static_cast<size_t>(address - first_)];
}
