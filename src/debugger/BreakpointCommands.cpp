#include "debugger/BreakpointCommands.h"

#include <string_view>

#include "app/CommandIds.h"
#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/StringIds.h"
#include "debugger/BreakpointPropertiesDlg.h"
#include "debugger/BreakpointsDlg.h"
#include "editor/IDEDoc.h"
#include "editor/IDEView.h"
#include "editor/OpenSources.h"
#include "framework/Language.h"
#include "platform/NativePath.h"
#include "platform/PathCalls.h"

namespace {

// -1 when no run counts.
int HitCountOf(const CMarker &marker) {
    const CIDEApp &app = CIDEApp::Get();
    if (!app.session.IsOpen() || marker.id == 0) return -1;
    int count = 0;
    return app.debugger.Call(&EngineCalls::DbgGetBreakpointHitCount, marker.id, &count) == kDbgOk ? count : -1;
}

bool GiveConditions(int id, const CBreakpointProps &props) {
    return CIDEApp::Get().debugger.SetBreakpointConditions(id, props.cond, props.ConditionType(), props.hitVal,
                                                           props.HitType());
}

// Why the engine refuses the conditions, or empty when it takes them.
std::string GiveEdited(const CMarker &marker, const CBreakpointProps &props) {
    CIDEApp &app = CIDEApp::Get();
    if (!app.session.IsOpen() || marker.id == 0) return {};
    if (!GiveConditions(marker.id, props)) return BoxText(RefusalOfConditions(marker));
    if (props.hitCount == 0) app.debugger.Call(&EngineCalls::DbgResetBreakpointHitCount, marker.id);
    return {};
}

}  // namespace

CBreakpointCommands::CBreakpointCommands() {
    OnCommand(ID_BREAKPOINTS, [] { CBreakpointsDlg(CIDEApp::Get().GetMainFrame()).exec(); });
}

CIDEDoc *FindDocumentOf(const std::string &file) {
    for (CIDEDoc *document : OpenSources())
        if (EqualNoCase(document->GetPathName(), file)) return document;
    return nullptr;
}

void ShowBreakpoint(CMarker &marker) {
    const CIDEDoc *document = FindDocumentOf(marker.File());
    if (!document) return;
    const int number = CIDEApp::Get().breakpoints.Number() + marker.secondState;
    const auto line = static_cast<uintptr_t>(marker.line);
    const std::vector<CIDEView *> views = document->GetCodeViews();
    // The first view's handle stays: that view is the one that the list is refreshed from.
    for (auto view = views.rbegin(); view != views.rend(); ++view) {
        CMarkerList::DeleteAllOfLine((*view)->Sci(), marker.line, number);
        marker.handle = (*view)->Send(SCI_MARKERADD, line, number);
    }
}

void DropBreakpoint(CMarker &marker) {
    CBreakpointList &breakpoints = CIDEApp::Get().breakpoints;
    const std::string file = marker.File();
    const int line = marker.line, number = breakpoints.Number() + marker.secondState;
    if (const CIDEDoc *document = FindDocumentOf(file))
        for (const CIDEView *view : document->GetCodeViews()) CMarkerList::DeleteAllOfLine(view->Sci(), line, number);
    breakpoints.Remove(file.c_str(), line);
}

bool DeleteInEngine(CMarker &marker) {
    CIDEApp &app = CIDEApp::Get();
    if (app.session.IsOpen() && marker.id != 0) {
        if (app.debugger.Call(&EngineCalls::DbgDeleteBreakpoint, marker.id) != kDbgOk) {
            app.AddOutputLine(TextOfPlace(IDS_BREAKPOINT_NOT_DELETED, marker));
            return false;
        }
        marker.id = 0;
    }
    return true;
}

bool RemoveBreakpoint(CMarker &marker) {
    if (!DeleteInEngine(marker)) return false;
    DropBreakpoint(marker);
    return true;
}

std::string TextOfPlace(int text, const CMarker &marker) {
    return LoadText(text, {DisplayPath(marker.File()), std::to_string(marker.line + 1)});
}

std::string BoxText(const std::string &line) {
    constexpr std::string_view kError = "!E: ";
    return line.starts_with(kError) ? line.substr(kError.size()) : line;
}

std::string RefusalOfConditions(const CMarker &marker) {
    return LoadText(IDS_CONDITION_REFUSED,
                    {DisplayPath(marker.File()), std::to_string(marker.line + 1), CIDEApp::Get().debugger.ErrorText()});
}

bool SetConditionsInEngine(const CMarker &marker) {
    return GiveConditions(marker.id, *marker.props);
}

void EditBreakpointProperties(QWidget *parent, const CMarker &marker) {
    // Only the place is kept: a stop of the target while the dialog is open can end the marker.
    const std::string file = marker.File();
    const int line = marker.line;
    CBreakpointProps edited = *marker.props;
    edited.hitCount = HitCountOf(marker);
    const auto apply = [&](const CBreakpointProps &props) -> std::string {
        CMarker *const now = CIDEApp::Get().breakpoints.Find(file, line);
        if (!now) return LoadText(IDS_BREAKPOINT_GONE);
        std::string refusal = GiveEdited(*now, props);
        if (refusal.empty()) *now->props = props;
        return refusal;
    };
    CBreakpointPropertiesDlg(parent, TextOfPlace(IDS_BREAKPOINT_PLACE, marker), edited, apply).exec();
}
