// Playing macros in the code view.
#include "app/CommandIds.h"
#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "editor/IDEView.h"
#include "editor/MacroPlayer.h"
#include "editor/UserMacros.h"

void CIDEView::MapMacroCommands() {
    OnCommand(
        ID_MACRO_PLAY, [this] { PlayMacro(sci_, CIDEApp::Get().macro.Commands()); },
        [](CCmdUI &ui) {
            const CIDEApp &app = CIDEApp::Get();
            ui.Enable(!app.GetMainFrame()->IsRecording() && !app.macro.Commands().empty());
        });
    OnCommandRange(
        ID_USER_MACROS, ID_USER_MACROS + kMaxUserMacros - 1,
        [this](int id) { PlayMacro(sci_, UserMacroSteps(id - ID_USER_MACROS)); },
        [](CCmdUI &ui) {
            ui.Enable(!CIDEApp::Get().GetMainFrame()->IsRecording() && ui.id - ID_USER_MACROS < UserMacroCount());
        });
}

// A source that is opened while a macro is recorded is recorded too.
void CIDEView::JoinRecording() {
    const CMainFrame *frame = CIDEApp::Get().GetMainFrame();
    if (!frame) return;
    if (frame->IsMacroBarShown()) StartRecordingAllViews(true);
    if (frame->IsRecording()) Send(SCI_STARTRECORD);
}

void StartRecordingAllViews(bool on) {
    for (const CDocument *document : CIDEApp::Get().GetDocuments())
        for (CView *each : document->GetViews())
            if (const auto *view = dynamic_cast<CIDEView *>(each)) view->Send(on ? SCI_STARTRECORD : SCI_STOPRECORD);
}
