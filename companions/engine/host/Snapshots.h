// Earlier states of the target: whole processes, frozen as copies of the live one at the moment of each run command.
#pragma once

#include "protocol/SharedBlock.h"

// Used in the live process only, which has one thread. The list lies in the shared block, so that whichever process is
// live goes on with it.
class CSnapshots {
public:
    static constexpr uint32_t kKept = 100;  // one more drops the oldest
    static_assert(kKept < kMostSnapshots);

    // `life`: a pipe whose end means that a frozen process has nothing to wait for any more.
    CSnapshots(SharedBlock &block, int life) : block_(block), life_(life) {}

    // `going`: the snapshot is kept and this process goes on. `woken`: this process is the snapshot, much later; it is
    // the live one now. `none`: the system has no process to spare, and all snapshots have been dropped, since a step
    // back must not leave out a stop.
    enum class Taken { going, woken, none };
    Taken Take();

    // False: there is none, or it has been ended from outside; then all are dropped, for the same reason.
    bool HasYoungest();
    void DropYoungest();
    void WakeYoungest();  // makes it the live process; the caller ends at once

    static bool HasEnded(int life);  // whether that pipe has

private:
    SharedBlock::Snapshot &At(uint32_t index) {
        return block_.snapshots[(block_.oldestSnapshot + index) % kMostSnapshots];
    }
    void Drop(SharedBlock::Snapshot &snapshot);
    void DropAll();
    void Freeze(SharedBlock::Snapshot &snapshot, uint32_t generation);

    SharedBlock &block_;
    int life_;
};
