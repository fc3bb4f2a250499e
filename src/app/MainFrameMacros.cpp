// Recording of keyboard macros, which spans all open sources, and the saved macros.
#include "app/CommandIds.h"
#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/StringIds.h"
#include "editor/IDEView.h"
#include "editor/MacroList.h"
#include "editor/NameDlg.h"
#include "editor/UserMacros.h"
#include "framework/Language.h"

void CMainFrame::MapMacroCommands() {
    OnCommand(
        ID_MACRO_RECORD,
        [this] {
            if (recording_)
                StopRecording();
            else
                StartRecording();
        },
        [this](CCmdUI &ui) { ui.SetText(LoadText(recording_ ? IDS_MACRO_RECORDING : IDS_MACRO_NOT_RECORDING)); });
    OnCommand(ID_MACRO_PAUSE, [this] {
        macroToolBar_->LoadToolBar(IDR_MACRO_PAUSED);
        StartRecordingAllViews(false);
    });
    OnCommand(ID_MACRO_RESUME, [this] {
        macroToolBar_->LoadToolBar(IDR_MACRO_RECORDING);
        StartRecordingAllViews(true);
    });
    OnCommand(ID_MACRO_STOP, [this] { StopRecording(); });
    OnCommand(ID_MACRO_SAVE, [this] { SaveMacro(); },
              [](CCmdUI &ui) { ui.Enable(!CIDEApp::Get().macro.Commands().empty()); });
    OnCommand(ID_MACRO_LIST, [this] { ManageMacros(); }, [](CCmdUI &ui) { ui.Enable(UserMacroCount() != 0); });
}

bool CMainFrame::IsMacroBarShown() const { return macroToolBar_ && !macroToolBar_->isHidden(); }

void CMainFrame::StartRecording() {
    macroToolBar_->LoadToolBar(IDR_MACRO_RECORDING);
    macroToolBar_->setVisible(macroToolBar_->isHidden());
    recording_ = true;
    if (!IsMacroBarShown()) return;
    CIDEApp::Get().macro.Clear();
    StartRecordingAllViews(true);
}

void CMainFrame::StopRecording() {
    recording_ = false;
    macroToolBar_->hide();
    StartRecordingAllViews(false);
}

void CMainFrame::SaveMacro() {
    CNameDlg dialog(this, LoadText(IDS_DIALOG_MACRO_NAME));
    if (dialog.exec() != QDialog::Accepted) return;
    CIDEApp &app = CIDEApp::Get();
    const std::string name = dialog.Name();
    if (name.empty()) {
        app.AddOutputLine(LoadText(IDS_MACRO_NAME_EMPTY));
        return;
    }
    switch (SaveUserMacro(name, app.macro.Commands())) {
        case MacroSaved::done:
            return;
        case MacroSaved::nameTaken:
            app.AddOutputLine(LoadText(IDS_MACRO_NAME_TAKEN, {name}));
            return;
        case MacroSaved::full:
            app.AddOutputLine(LoadText(IDS_MACROS_FULL, {std::to_string(kMaxUserMacros)}));
            return;
    }
}

void CMainFrame::ManageMacros() {
    CMacroList dialog(this);
    if (dialog.exec() == QDialog::Accepted) KeepUserMacros(dialog.Names());
}
