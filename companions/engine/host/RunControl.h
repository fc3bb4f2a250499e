// Lets the chip run in slices, as a run command wants it, and stops it where it has to stop.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <utility>
#include <vector>

#include "Breakpoints.h"
#include "Chip.h"
#include "Connections.h"
#include "CycleProfile.h"
#include "Session.h"
#include "StepPlan.h"
#include "Watchpoints.h"

class CRunControl {
public:
    // All must outlive this.
    CRunControl(IChip &chip, const IProgramMap &map, CBreakpoints &breakpoints, CWatchpoints &watchpoints);
    void TellPinsOf(CConnections &connections) { connections_ = &connections; }  // which must outlive this

    bool Start(RunKind kind);
    CSession::SliceEnd Slice(CSessionEvents &events);  // see CSession
    void Stop() { stopWished_ = true; }

    void TellInstructions(bool on) { tell_ = on; }
    void CountInto(CCycleProfile *profile) { profile_ = profile; }  // null: no profile

    bool TellChanges(uint32_t address, bool on);  // of a byte of data memory; false: there is none
    using Values = std::map<uint32_t, uint8_t>;
    const Values &Told() const { return told_; }  // their addresses, with the values told last
    void TellAs(const Values &told) { told_ = told; }
    std::optional<std::pair<int, int>> TakeChange();  // one that hasn't been told: address and value; then it has

    void WasReset();  // the chip has been: forgets what was under way, and its clock begins anew
    uint64_t Cycles() const { return chip_.Cycles() - resetAt_; }

private:
    using End = std::optional<CSession::SliceEnd>;

    bool NeedsEach() const {
        return tell_ || profile_ || asleep_ || !told_.empty() || plan_.WantsEach();
    }
    End OneInstruction(CSessionEvents &events, int64_t &budget);
    End Rush(CSessionEvents &events, int64_t &budget);
    End Judge(ChipState state, CSessionEvents &events);
    void TellChanges(CSessionEvents &events);
    void TellPins(CSessionEvents &events);
    bool TakeReset(CSessionEvents &events, int64_t &budget);
    bool StopsAt(uint32_t address, CSessionEvents &events);
    CSession::SliceEnd Ended(int reason);

    IChip &chip_;
    CBreakpoints &breakpoints_;
    CWatchpoints &watchpoints_;
    CStepPlan plan_;
    CConnections *connections_ = nullptr;
    CCycleProfile *profile_ = nullptr;
    Values told_;
    uint64_t resetAt_ = 0;  // the chip's cycles at that time
    uint64_t seenResets_ = 0;  // of the chip's own
    bool toldReset_ = false;   // the first of them
    bool tell_ = false;
    bool asleep_ = false;
    bool toldSleep_ = false;  // that nothing will wake it
    std::optional<uint32_t> stackStop_;  // where the last stop by the stack was, since the reset
    bool goesOnFromIt_ = false;          // what runs has begun there, and isn't stopped by the stack again
    bool stopWished_ = false;
};
