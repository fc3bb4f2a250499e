#include "protocol/Bell.h"

#include <linux/futex.h>
#include <sched.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <climits>
#include <ctime>

namespace {

constexpr int kMostLooks = 2000, kLeastLooks = 100;  // some microseconds for a hundred
constexpr unsigned kTryMost = 64;

// How often a thread looks before it sleeps. While both sides have a processor, the answer comes within some looks;
// when others compete for it, each look only keeps the answer from coming. So the number follows what has helped of
// late, and each kTryMost-th wait tries whether more would.
class CPatience {
public:
    int Looks() { return !HasSeveral() ? 0 : ++waits_ % kTryMost == 0 ? kMostLooks : looks_; }
    void Helped(int looks) { looks_ = std::clamp(2 * looks, looks_, kMostLooks); }
    void WasInVain() { looks_ = std::max(looks_ / 2, kLeastLooks); }

private:
    // With one processor the other side can't answer while this one looks.
    static bool HasSeveral() {
        static const bool several = [] {
            cpu_set_t set;
            return sched_getaffinity(0, sizeof set, &set) == 0 && CPU_COUNT(&set) > 1;
        }();
        return several;
    }

    int looks_ = kLeastLooks;
    unsigned waits_ = 0;
};

void Relax() {
#if defined(__x86_64__) || defined(__i386__)
    __builtin_ia32_pause();
#endif
}

}  // namespace

void SleepAtWord(std::atomic<uint32_t> &word, uint32_t value, std::chrono::milliseconds limit) {
    const timespec time{static_cast<time_t>(limit.count() / 1000), static_cast<long>(limit.count() % 1000 * 1000000)};
    syscall(SYS_futex, &word, FUTEX_WAIT, value, &time, nullptr, 0);
}

void WakeAtWord(std::atomic<uint32_t> &word) {
    syscall(SYS_futex, &word, FUTEX_WAKE, INT_MAX, nullptr, nullptr, 0);
}

void CBell::Ring() {
    count_.fetch_add(1);
    if (sleepers_.load() > 0) WakeAtWord(count_);
}

void CBell::Wait(uint32_t seen, std::chrono::milliseconds limit) {
    static thread_local CPatience patience;
    const int looks = patience.Looks();
    for (int look = 0; look < looks; ++look) {
        if (count_.load(std::memory_order_acquire) != seen) return patience.Helped(look);
        Relax();
    }
    patience.WasInVain();
    sleepers_.fetch_add(1);
    SleepAtWord(count_, seen, limit);
    sleepers_.fetch_sub(1);
}
