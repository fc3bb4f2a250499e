#include "editor/EditorSettingsCommand.h"

#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/StringIds.h"
#include "editor/EditorSettingsSheet.h"
#include "editor/Folding.h"
#include "editor/IDEDoc.h"
#include "editor/IDEView.h"
#include "editor/ListBar.h"
#include "framework/Language.h"

namespace {

void ApplyToDocument(CIDEDoc &document, bool unfold) {
    if (unfold)
        for (const CIDEView *view : document.GetCodeViews()) FoldAll(view->Sci(), true);
    document.UpdateAllViews(nullptr);
}

}  // namespace

void RunEditorSettings() {
    CIDEApp &app = CIDEApp::Get();
    CEditorProperties edited;
    edited.Load();
    if (CEditorSettingsSheet(app.GetMainFrame(), edited).exec() != QDialog::Accepted) return;

    const bool foldingWentOff = app.editorProperties.fold && !edited.fold;
    if (edited.Save()) {
        app.editorProperties.Load();
    } else {
        app.editorProperties = edited;
        app.GetMainFrame()->ShowError(LoadText(IDS_EDITOR_SETTINGS_NOT_SAVED));
    }
    for (CDocument *each : app.GetDocuments())
        if (auto *document = dynamic_cast<CIDEDoc *>(each)) ApplyToDocument(*document, foldingWentOff);
    app.GetMainFrame()->ListBar().ListingDocument().UpdateAllViews(nullptr);
}
