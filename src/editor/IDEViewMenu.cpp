// The pop-up menu of the code view.
#include <QContextMenuEvent>
#include <QMenu>
#include <QPointer>
#include <algorithm>
#include <array>
#include <memory>
#include <string_view>

#include "app/CommandIds.h"
#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/Path.h"
#include "app/StringIds.h"
#include "editor/IDEDoc.h"
#include "editor/IDEView.h"
#include "editor/ListBar.h"
#include "editor/ListingView.h"
#include "editor/ViewSetup.h"
#include "editor/WordAt.h"
#include "framework/Language.h"
#include "framework/Text.h"
#include "platform/PathCalls.h"

namespace {

constexpr size_t kMostFunctions = 1000;  // that have a command
constexpr int kWatchCharacters = 40;     // of a text that an entry names

// In these a compiler's names carry an underscore in front.
constexpr std::array<std::string_view, 4> kPrefixedKinds = {".asm", ".lst", ".s", ".casm"};

bool HasCompilerPrefix(const std::string &file) {
    const std::string extension = _splitpath(file).extension;
    return std::ranges::any_of(kPrefixedKinds, [&](auto kind) { return EqualNoCase(extension, kind); });
}

// A menu takes a single "&" for the mark of an access key.
std::string EntryText(const std::string &name) {
    return FromQString(ToQString(name).replace('&', "&&"));
}

}  // namespace

void CIDEView::contextMenuEvent(QContextMenuEvent *event) {
    CMainFrame *frame = CIDEApp::Get().GetMainFrame();
    if (!frame || !sci_ || !GetDocument()) return;
    QPoint at = event->globalPos();
    const intptr_t caret = Send(SCI_GETCURRENTPOS);
    intptr_t position = caret;
    if (event->reason() == QContextMenuEvent::Mouse) {
        position = MoveCaretForMenu(sci_.Widget()->mapFromGlobal(at));
    } else {
        const auto x = static_cast<int>(Send(SCI_POINTXFROMPOSITION, 0, caret));
        const auto y = static_cast<int>(Send(SCI_POINTYFROMPOSITION, 0, caret) + Send(SCI_TEXTHEIGHT, 0));
        at = sci_.Widget()->mapToGlobal(QPoint(x, y));
    }
    const std::unique_ptr<QMenu> functions = MakeFunctionMenu();
    if (event->modifiers() & Qt::ControlModifier) {
        if (functions) functions->exec(at);
        return;
    }
    const std::unique_ptr<QMenu> menu(frame->MakeMenu(IDR_VIEW_MENU));
    const std::string counterpart = CounterpartOf(GetDocument()->GetPathName());
    if (!counterpart.empty()) {
        menu->addSeparator();
        const std::string text = LoadText(IDS_MENU_COUNTERPART, {CPath(counterpart).GetFileName()});
        menu->addAction(frame->MakeCommandAction(ID_OPEN_COUNTERPART, text, menu.get()));
    }
    const qsizetype before = menu->actions().size();
    AddSymbolEntries(*menu, position);
    if (menu->actions().size() == before) menu->addSeparator();
    AddWatchEntry(*menu, position);
    AddBreakpointEntries(*menu, position);
    if (functions) {
        menu->addSeparator();
        menu->addMenu(functions.get());
    }
    const QPointer<CIDEView> self = this;  // a command that has waited may close it under the menu
    if (!menu->isEmpty()) menu->exec(at);
    if (!self) return;
    menuSymbol_.reset();
    watchText_.clear();
    contextLine = -1;
}

std::unique_ptr<QMenu> CIDEView::MakeFunctionMenu() {
    CMainFrame *frame = CIDEApp::Get().GetMainFrame();
    const std::vector<CFunctionData> &functions = GetIDEDoc()->functions;
    if (functions.empty()) return nullptr;
    auto menu = std::make_unique<QMenu>(ToQString(LoadText(IDS_MENU_FUNCTIONS)));
    for (size_t i = 0; i < std::min(functions.size(), kMostFunctions); ++i) {
        const int command = ID_FUNCTIONS + static_cast<int>(i);
        menu->addAction(frame->MakeCommandAction(command, EntryText(functions[i].name), menu.get()));
    }
    return menu;
}

// Where the word at `position` is defined: as the index knows it, or else in this document.
void CIDEView::AddSymbolEntries(QMenu &menu, intptr_t position) {
    CMainFrame *frame = CIDEApp::Get().GetMainFrame();
    const CIDEDoc &document = *GetIDEDoc();
    std::string word;
    if (!WordAt(sci_, position, word, IsWordChar)) return;
    const std::string name = HasCompilerPrefix(document.GetPathName()) && word.starts_with('_') ? word.substr(1) : word;
    const auto add = [&](int command, int text, const std::string &symbol) {
        menu.addSeparator();
        menu.addAction(frame->MakeCommandAction(command, LoadText(text, {EntryText(symbol)}), &menu));
    };
    menuSymbol_ = CIDEApp::Get().symbols.FindBrowseRecord(name);
    if (!menuSymbol_ && name != word) menuSymbol_ = CIDEApp::Get().symbols.FindBrowseRecord(word);
    if (menuSymbol_) {
        add(ID_VIEW_GOTO_DEFINITION, IDS_MENU_GOTO_DEFINITION, menuSymbol_->name);
        return;
    }
    const auto function = std::ranges::find(document.functions, word, &CFunctionData::name);
    const auto index = static_cast<size_t>(function - document.functions.begin());
    if (index < std::min(document.functions.size(), kMostFunctions))
        add(ID_FUNCTIONS + static_cast<int>(index), IDS_MENU_GOTO_FUNCTION, word);
}

// During a debug run: of the selection that the pointer is in, or else of the word under it.
void CIDEView::AddWatchEntry(QMenu &menu, intptr_t position) {
    if (!CIDEApp::Get().session.IsOpen()) return;
    const intptr_t start = Send(SCI_GETSELECTIONSTART), end = Send(SCI_GETSELECTIONEND);
    if (start != end && position >= start && position <= end)
        watchText_ = SelectedLine();
    else
        WordAt(sci_, position, watchText_, IsWordChar);
    if (watchText_.empty()) return;
    const QString shown = menu.fontMetrics().elidedText(ToQString(watchText_), Qt::ElideRight,
                                                        menu.fontMetrics().averageCharWidth() * kWatchCharacters);
    menu.addAction(CIDEApp::Get().GetMainFrame()->MakeCommandAction(
        ID_WATCH_AT_POINTER, LoadText(IDS_MENU_ADD_WATCH, {EntryText(FromQString(shown))}), &menu));
}

// For the line under the pointer; a listing has no breakpoints.
void CIDEView::AddBreakpointEntries(QMenu &menu, intptr_t position) {
    CMainFrame *frame = CIDEApp::Get().GetMainFrame();
    if (this == &frame->ListBar().ListingView() || GetDocument()->GetPathName().empty()) return;
    contextLine = Send(SCI_LINEFROMPOSITION, static_cast<uintptr_t>(position));
    const std::string line = std::to_string(contextLine + 1);
    menu.addAction(
        frame->MakeCommandAction(ID_BREAKPOINT_AT_POINTER, LoadText(IDS_MENU_TOGGLE_BREAKPOINT, {line}), &menu));
    if (Send(SCI_MARKERGET, static_cast<uintptr_t>(contextLine)) & kBreakpointMarks)
        menu.addAction(
            frame->MakeCommandAction(ID_BREAKPOINT_PROPERTIES, LoadText(IDS_MENU_BREAKPOINT_PROPERTIES), &menu));
}

// The menu's commands are about the line under the pointer, or about the selection when that is where the pointer is.
intptr_t CIDEView::MoveCaretForMenu(const QPoint &at) {
    const intptr_t position =
        Send(SCI_POSITIONFROMPOINT, static_cast<uintptr_t>(at.x()), static_cast<intptr_t>(at.y()));
    const intptr_t start = Send(SCI_GETSELECTIONSTART), end = Send(SCI_GETSELECTIONEND);
    if (start == end || position < start || position > end)
        Send(SCI_SETSEL, static_cast<uintptr_t>(position), position);
    return position;
}
