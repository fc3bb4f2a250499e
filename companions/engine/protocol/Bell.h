// A word in shared memory that one process rings and another waits at.
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>

// Zero bytes are a bell at rest. To miss no ring: take Count, look at what the bell is rung for, and when it isn't
// there Wait with that count.
class CBell {
public:
    uint32_t Count() const { return count_.load(); }
    void Ring();  // any process, any thread; makes what was written before visible to whoever it wakes

    // Returns once the count differs from `seen`, at the latest after about `limit`, sometimes without reason. Looks at
    // the word for some microseconds before it sleeps: an answer that comes at once costs no call of the system.
    void Wait(uint32_t seen, std::chrono::milliseconds limit);

private:
    std::atomic<uint32_t> count_;
    std::atomic<uint32_t> sleepers_;
};

static_assert(std::atomic<uint32_t>::is_always_lock_free);

// Sleeps while `word` is `value`, at most `limit`; wakes whoever sleeps at `word`. Across processes.
void SleepAtWord(std::atomic<uint32_t> &word, uint32_t value, std::chrono::milliseconds limit);
void WakeAtWord(std::atomic<uint32_t> &word);
