#include "debugger/BreakpointProps.h"

#include "debugger/EngineApi.h"

int CBreakpointProps::ConditionType() const {
    if (!useCond) return kDbgNoCondition;
    return condMode == 0 ? kDbgWhenTrue : kDbgWhenChanged;
}

int CBreakpointProps::HitType() const {
    if (!useHit) return kDbgNoHit;
    return hitMode == 0 ? kDbgHitAtLeast : hitMode == 1 ? kDbgHitEqual : kDbgHitMultiple;
}
