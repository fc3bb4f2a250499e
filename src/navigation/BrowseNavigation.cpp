#include "navigation/BrowseNavigation.h"

#include <algorithm>
#include <string>

#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/ProjectDirScope.h"
#include "app/StringIds.h"
#include "editor/IDEDoc.h"
#include "editor/IDEView.h"
#include "editor/WordAt.h"
#include "framework/Language.h"
#include "navigation/OpenSource.h"

namespace {

CIDEView *ActiveSourceView() {
    CMainFrame *frame = CIDEApp::Get().GetMainFrame();
    return frame ? dynamic_cast<CIDEView *>(frame->GetActiveView()) : nullptr;
}

std::string WordAtCaret(const CIDEView &view) {
    const intptr_t caret = view.Send(SCI_GETCURRENTPOS);
    std::string before, after;
    WordAt(view.Sci(), caret, before, IsWordChar, WordPart::before);
    WordAt(view.Sci(), caret, after, IsWordChar, WordPart::after);
    return before + after;
}

bool LineHolds(const CIDEView &view, intptr_t line, const std::string &text) {
    const auto number = static_cast<uintptr_t>(line);
    std::string bytes(static_cast<size_t>(view.Send(SCI_LINELENGTH, number)), '\0');
    view.Send(SCI_GETLINE, number, reinterpret_cast<intptr_t>(bytes.data()));
    return bytes.find(text) != std::string::npos;
}

// The line that holds `text` and is nearest to `line`, the one above it of two; -1 when the search reaches an end of
// the text.
intptr_t NearestLineWith(const CIDEView &view, intptr_t line, const std::string &text) {
    const intptr_t count = view.Send(SCI_GETLINECOUNT);
    for (intptr_t up = line, down = line; up >= 0 && down < count; --up, ++down) {
        if (LineHolds(view, up, text)) return up;
        if (down != up && LineHolds(view, down, text)) return down;
    }
    return -1;
}

void TellNotShown(const std::string &name) {
    CIDEApp::Get().AddOutputLine(LoadText(IDS_SYMBOL_NOT_FOUND, {name}));
}

int IndexOfView(const CIDEDoc &document, const CIDEView *view) {
    const auto views = document.GetCodeViews();
    return static_cast<int>(std::ranges::find(views, view) - views.begin());
}

void RestoreView(const CIDEDoc &document, const BrowseRecord &place) {
    const auto views = document.GetCodeViews();
    if (place.pos == -1 || place.viewIndex < 0 || static_cast<size_t>(place.viewIndex) >= views.size()) return;
    CIDEView &view = *views[static_cast<size_t>(place.viewIndex)];
    view.Send(SCI_SETANCHOR, static_cast<uintptr_t>(place.pos));
    view.Send(SCI_SETCURRENTPOS, static_cast<uintptr_t>(place.pos));
    const intptr_t first = view.Send(SCI_GETFIRSTVISIBLELINE);
    if (place.firstVisibleLine != -1 && place.firstVisibleLine != first)
        view.Send(SCI_LINESCROLL, 0, place.firstVisibleLine - first);
}

}  // namespace

bool IsSourceViewActive() {
    return ActiveSourceView() != nullptr;
}

void LocateSymbolInViews(CIDEDoc &document, const BrowseRecord &record) {
    for (const CIDEView *view : document.GetCodeViews()) {
        const intptr_t hit = NearestLineWith(*view, record.line, record.name);
        if (hit >= 0 && hit != record.line) OpenSourceAtLine(record.file, static_cast<int>(hit) + 1);
    }
}

void ShowDefinition(const BrowseRecord &record) {
    const std::string project = CIDEApp::Get().GetActiveProjectPath();
    const ProjectDirScope scope(project.empty() ? nullptr : project.c_str());
    if (CIDEDoc *document = OpenSourceAtLine(record.file, record.line))
        LocateSymbolInViews(*document, record);
    else
        TellNotShown(record.name);
}

void CBrowseHistory::OnBrowseGotoDefinition() {
    const CIDEView *view = ActiveSourceView();
    const CIDEDoc *document = view ? view->GetIDEDoc() : nullptr;
    if (!document) return;
    const std::string word = WordAtCaret(*view);
    const auto record = CIDEApp::Get().symbols.FindBrowseRecord(word);
    if (!record) return;

    BrowseRecord &place = places_.emplace_back();
    place.name = word;
    place.file = document->GetPathName();
    place.line = static_cast<int32_t>(view->CaretLine());
    place.pos = static_cast<int32_t>(view->Send(SCI_GETCURRENTPOS));
    place.firstVisibleLine = static_cast<int32_t>(view->Send(SCI_GETFIRSTVISIBLELINE));
    place.viewIndex = IndexOfView(*document, view);
    ShowDefinition(*record);
}

void CBrowseHistory::OnBrowseGoBack() {
    if (places_.empty()) return;
    const BrowseRecord place = std::move(places_.back());
    places_.pop_back();
    const std::string project = CIDEApp::Get().GetActiveProjectPath();
    const ProjectDirScope scope(project.empty() ? nullptr : project.c_str());
    if (const CIDEDoc *document = OpenSourceAtLine(place.file, place.line))
        RestoreView(*document, place);
    else
        TellNotShown(place.name);
}
