#include "Snapshots.h"

#include <poll.h>
#include <signal.h>
#include <unistd.h>

CSnapshots::Taken CSnapshots::Take() {
    if (block_.snapshotCount >= kKept) {
        Drop(At(0));
        block_.oldestSnapshot = (block_.oldestSnapshot + 1) % kMostSnapshots;
        --block_.snapshotCount;
    }
    auto &snapshot = At(block_.snapshotCount);
    const uint32_t generation = (snapshot.word.load() & ~kOrderMask) + kNextGeneration;
    snapshot.word = generation | kStayFrozen;
    const pid_t pid = fork();
    if (pid == 0) {
        Freeze(snapshot, generation);
        return Taken::woken;
    }
    if (pid < 0) {
        DropAll();
        return Taken::none;
    }
    snapshot.pid = pid;
    ++block_.snapshotCount;
    return Taken::going;
}

void CSnapshots::Freeze(SharedBlock::Snapshot &snapshot, uint32_t generation) {
    constexpr std::chrono::seconds kLook{10};
    for (;;) {
        const uint32_t word = snapshot.word.load();
        if (word == (generation | kWakeUp)) return;
        if (word != (generation | kStayFrozen) || HasEnded(life_)) _exit(0);
        SleepAtWord(snapshot.word, word, kLook);
    }
}

void CSnapshots::Drop(SharedBlock::Snapshot &snapshot) {
    snapshot.word = (snapshot.word.load() & ~kOrderMask) | kGoAway;
    WakeAtWord(snapshot.word);
}

void CSnapshots::DropYoungest() {
    Drop(At(block_.snapshotCount - 1));
    --block_.snapshotCount;
}

void CSnapshots::DropAll() {
    while (block_.snapshotCount > 0) DropYoungest();
}

bool CSnapshots::HasYoungest() {
    if (block_.snapshotCount == 0) return false;
    if (kill(At(block_.snapshotCount - 1).pid, 0) == 0) return true;
    DropAll();
    return false;
}

void CSnapshots::WakeYoungest() {
    auto &snapshot = At(--block_.snapshotCount);
    block_.livePid = snapshot.pid;
    snapshot.word = (snapshot.word.load() & ~kOrderMask) | kWakeUp;
    WakeAtWord(snapshot.word);
}

bool CSnapshots::HasEnded(int life) {
    pollfd wait{life, POLLIN, 0};
    return poll(&wait, 1, 0) > 0;
}
