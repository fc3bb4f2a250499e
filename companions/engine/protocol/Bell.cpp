#include "protocol/Bell.h"

#include <linux/futex.h>
#include <sched.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <climits>
#include <ctime>

namespace {

// With one processor the other side can't answer while this one looks.
int Looks() {
    static const int looks = [] {
        cpu_set_t set;
        return sched_getaffinity(0, sizeof set, &set) == 0 && CPU_COUNT(&set) > 1 ? 2000 : 0;
    }();
    return looks;
}

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
    for (int looks = Looks(); looks > 0; --looks) {
        if (count_.load(std::memory_order_acquire) != seen) return;
        Relax();
    }
    sleepers_.fetch_add(1);
    SleepAtWord(count_, seen, limit);
    sleepers_.fetch_sub(1);
}
