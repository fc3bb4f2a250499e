#include "debugger/BreakpointList.h"

#include "debugger/MarkerSection.h"
#include "editor/IDEView.h"
#include "framework/Document.h"
#include "platform/PathCalls.h"

void CBreakpointList::OnAddMarker(CMarker &marker) {
    marker.props = std::make_unique<CBreakpointProps>();
}

void CBreakpointList::OnRemoveMarker(CMarker &marker) {
    marker.props.reset();
    if (&marker == runToCursorMarker) runToCursorMarker = nullptr;
}

void CBreakpointList::SaveMarkerData(const CMarker &marker, CMarkerSection &section, int index) const {
    const CBreakpointProps &props = *marker.props;
    section.SetInt("UseCond", index, props.useCond);
    section.SetText("Cond", index, props.cond);
    section.SetInt("CondMode", index, props.condMode);
    section.SetInt("UseHit", index, props.useHit);
    section.SetInt("HitVal", index, props.hitVal);
    section.SetInt("HitMode", index, props.hitMode);
}

void CBreakpointList::LoadMarkerData(CMarker &marker, const CMarkerSection &section, int index) {
    CBreakpointProps &props = *marker.props;
    props.useCond = section.ReadInt("UseCond", index);
    props.cond = section.ReadText("Cond", index, kLongestCondition);
    props.condMode = section.ReadInt("CondMode", index);
    props.useHit = section.ReadInt("UseHit", index);
    props.hitVal = section.ReadInt("HitVal", index);
    props.hitMode = section.ReadInt("HitMode", index);
}

void CBreakpointList::TakeFromView(CIDEView &view) {
    const std::string file = view.GetDocument()->GetPathName();
    const bool here = runToCursorMarker && EqualNoCase(runToCursorMarker->File(), file);
    const intptr_t handle = here ? runToCursorMarker->handle : 0;
    const intptr_t moved = handle ? view.Send(SCI_MARKERLINEFROMHANDLE, static_cast<uintptr_t>(handle)) : -1;
    const int line = moved >= 0 ? static_cast<int>(moved) : here ? runToCursorMarker->line : -1;
    CMarkerList::TakeFromView(view);
    if (here) runToCursorMarker = Find(file, line);
}
