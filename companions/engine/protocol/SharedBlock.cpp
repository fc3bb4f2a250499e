#include "protocol/SharedBlock.h"

void SharedBlock::DismissSnapshots() {
    for (Snapshot &snapshot : snapshots) {
        const uint32_t word = snapshot.word.load();
        if (word == 0) continue;  // never used
        snapshot.word = (word & ~uint32_t{kOrderMask}) | kGoAway;
        WakeAtWord(snapshot.word);
    }
}
