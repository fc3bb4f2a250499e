#include "editor/ViewSearch.h"

#include <QString>
#include <algorithm>
#include <optional>

#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/StringIds.h"
#include "editor/IDEView.h"
#include "editor/TextSearch.h"
#include "editor/WordAt.h"
#include "framework/Language.h"
#include "framework/Text.h"

namespace {

// Hides the selection while it moves.
class CSelectionHidden {
public:
    explicit CSelectionHidden(const CIDEView &view) : view_(view) { view_.Send(SCI_HIDESELECTION, 1); }
    ~CSelectionHidden() { view_.Send(SCI_HIDESELECTION, 0); }
    CSelectionHidden(const CSelectionHidden &) = delete;
    CSelectionHidden &operator=(const CSelectionHidden &) = delete;

private:
    const CIDEView &view_;
};

CTextSearch SearchIn(const CIDEView &view, const CFindSettings &settings) {
    const std::string &text = CIDEApp::Get().find.text;
    return CTextSearch(view.Sci(), text, settings.FlagsFor(text));
}

TextRange Selection(const CIDEView &view) {
    return {view.Send(SCI_GETSELECTIONSTART), view.Send(SCI_GETSELECTIONEND)};
}

void Select(const CIDEView &view, const TextRange &range) {
    view.Send(SCI_SETSELECTIONSTART, static_cast<uintptr_t>(range.start));
    view.Send(SCI_SETSELECTIONEND, static_cast<uintptr_t>(range.end));
}

// What the next search goes on from. The selection knows the length of the last hit, which a regular expression and
// letters of either case don't tell.
TextRange LastHit(const CIDEView &view) {
    if (view.findPos == kFindFromStart) return {};
    const TextRange selection = Selection(view);
    if (view.findPos < 0 || view.findPos == selection.start) return selection;
    return {view.findPos, view.findPos + static_cast<intptr_t>(CIDEApp::Get().find.text.size())};
}

// A text for one line of a list.
std::string ForOneLine(const std::string &text) {
    constexpr qsizetype kMostCharacters = 80;
    const QString line = ToQString(std::string_view(text).substr(0, 4 * kMostCharacters)).simplified();
    return FromQString(line.size() > kMostCharacters ? line.left(kMostCharacters) + "..." : line);
}

std::string WhyNoHit(const CTextSearch &search) {
    return LoadText(search.IsBadExpression() ? IDS_BAD_EXPRESSION : IDS_TEXT_NOT_FOUND,
                    {ForOneLine(CIDEApp::Get().find.text)});
}

void ShowInStatusBar(const std::string &text) {
    if (CMainFrame *frame = CIDEApp::Get().GetMainFrame()) frame->SetStatusText(kPaneHelp, text);
}

// A selection by its line, so that it finds its place again when the text before it has changed.
struct PlaceByLine {
    explicit PlaceByLine(const CIDEView &view) {
        const TextRange selection = Selection(view);
        line = view.Send(SCI_LINEFROMPOSITION, static_cast<uintptr_t>(selection.start));
        offset = selection.start - view.Send(SCI_POSITIONFROMLINE, static_cast<uintptr_t>(line));
        length = selection.end - selection.start;
    }

    void Restore(const CIDEView &view) const {
        const auto last = static_cast<uintptr_t>(std::min(line, view.Send(SCI_GETLINECOUNT) - 1));
        const intptr_t lineStart = view.Send(SCI_POSITIONFROMLINE, last);
        const intptr_t start = std::min(lineStart + offset, view.Send(SCI_GETLINEENDPOSITION, last));
        const intptr_t end = std::min(start + length, view.Send(SCI_GETLENGTH));
        Select(view, {WholeCharacter(view, start), WholeCharacter(view, end)});
    }

    intptr_t line, offset, length;  // bytes

private:
    // The start of the character that a position lies in.
    static intptr_t WholeCharacter(const CIDEView &view, intptr_t position) {
        const intptr_t after = view.Send(SCI_POSITIONAFTER, static_cast<uintptr_t>(position));
        return after == position ? position : view.Send(SCI_POSITIONBEFORE, static_cast<uintptr_t>(after));
    }
};

}  // namespace

intptr_t FindNext(CIDEView &view, bool reverse) {
    if (CIDEApp::Get().find.text.empty()) return -1;
    const CTextSearch search = SearchIn(view, CFindSettings::Load());
    const CSelectionHidden hidden(view);
    const std::optional<TextRange> hit = search.FindNext(LastHit(view), reverse);
    if (!hit) {
        CIDEApp::Get().AddOutputLine(WhyNoHit(search));
        return -1;
    }
    Select(view, *hit);
    view.ShowViewLine(view.Send(SCI_LINEFROMPOSITION, static_cast<uintptr_t>(hit->start)), false);
    view.Send(SCI_SCROLLRANGE, static_cast<uintptr_t>(hit->end), hit->start);  // sideways, too
    return hit->start;
}

bool FindInView(const std::string &text, CIDEView &view, intptr_t *position) {
    CIDEApp::Get().find.text = text;
    if (position) view.findPos = *position;
    view.findPos = FindNext(view, false);
    if (position) *position = view.findPos;
    return view.findPos >= 0;
}

void ReplaceSelection(CIDEView &view, const std::string &text) {
    const CFindSettings settings = CFindSettings::Load();
    const TextRange selection = Selection(view);
    const CTextSearch search = SearchIn(view, settings);
    if (const std::optional<intptr_t> length = search.ReplaceRange(selection, text)) {
        const intptr_t caret = selection.start + (settings.forward ? *length : 0);
        Select(view, {caret, caret});
    }
    view.findPos = kFindFromSelection;
    view.findPos = FindNext(view, !settings.forward);
}

intptr_t ReplaceAll(CIDEView &view, const std::string &text) {
    if (CIDEApp::Get().find.text.empty()) return 0;
    const CTextSearch search = SearchIn(view, CFindSettings::Load());
    std::optional<intptr_t> count;
    view.EditQuietly([&] {
        count = search.ReplaceAll(text);
        return count.value_or(0) > 0;
    });
    if (!count)
        ShowInStatusBar(WhyNoHit(search));
    else
        ShowInStatusBar(*count == 0 ? LoadText(IDS_REPLACE_READ_ONLY)
                                    : LoadText(IDS_REPLACED_COUNT, {std::to_string(*count)}));
    return count.value_or(0);
}

void ReplaceCommand(CIDEView &view, const ReplaceRequest &request, bool one) {
    request.settings.Store();
    if (request.text.empty()) return;
    CIDEApp::Get().find.text = request.text;
    const TextRange selection = Selection(view);
    if (!one) {
        const PlaceByLine place(view);
        Select(view, {selection.start, selection.start});
        ReplaceAll(view, request.replacement);
        place.Restore(view);
        view.findPos = kFindFromSelection;
    } else if (selection.end - selection.start == static_cast<intptr_t>(request.text.size()) &&
               view.Sci().GetSelectedText() == request.text) {
        ReplaceSelection(view, request.replacement);
    } else {
        view.findPos = FindNext(view, !request.settings.forward);
    }
}

std::string TextToFind(const CIDEView &view) {
    std::string text = view.Sci().GetSelectedText();
    if (text.empty()) WordAt(view.Sci(), view.Send(SCI_GETCURRENTPOS), text, IsWordChar);
    return text;
}
