#include "editor/ViewSetup.h"

#include <QApplication>
#include <cstring>

#include "editor/Keywords.h"
#include "editor/SciWindow.h"

namespace {

constexpr int kDwellMilliseconds = 1500;

struct MarkerLook {
    uintptr_t marker;
    intptr_t symbol;
    intptr_t fore, back;  // 0x00BBGGRR; -1: the component's own
};

constexpr MarkerLook kMarkers[] = {
    {kMarkerBookmark, SC_MARK_ROUNDRECT, -1, 0xFFFF00},
    {kMarkerBreakpoint, SC_MARK_ARROW, -1, 0x0000FF},
    {kMarkerBreakpointSecond, SC_MARK_ARROW, -1, 0xC0C0C0},
    {kMarkerFunction, SC_MARK_EMPTY, -1, -1},
};

constexpr MarkerLook kFoldMarkers[] = {
    {SC_MARKNUM_FOLDEROPEN, SC_MARK_CIRCLEMINUS, 0xFFFFFF, 0},
    {SC_MARKNUM_FOLDER, SC_MARK_CIRCLEPLUS, 0xFFFFFF, 0},
    {SC_MARKNUM_FOLDERSUB, SC_MARK_VLINE, 0xFFFFFF, 0},
    {SC_MARKNUM_FOLDERTAIL, SC_MARK_LCORNERCURVE, 0xFFFFFF, 0},
    {SC_MARKNUM_FOLDEREND, SC_MARK_CIRCLEPLUSCONNECTED, 0xFFFFFF, 0},
    {SC_MARKNUM_FOLDEROPENMID, SC_MARK_CIRCLEMINUSCONNECTED, 0xFFFFFF, 0},
    {SC_MARKNUM_FOLDERMIDTAIL, SC_MARK_TCORNERCURVE, 0xFFFFFF, 0},
};

void Define(const CSciWindow &window, const MarkerLook &look) {
    window.Send(SCI_MARKERDEFINE, look.marker, look.symbol);
    if (look.fore >= 0) window.Send(SCI_MARKERSETFORE, look.marker, look.fore);
    if (look.back >= 0) window.Send(SCI_MARKERSETBACK, look.marker, look.back);
}

// In the order of FileKind.
constexpr struct {
    uintptr_t lexer;
    bool folds;
} kLexers[kFileKinds] = {
    {SCLEX_NULL, false}, {SCLEX_CPP, true}, {SCLEX_ASM, false}, {SCLEX_PASCAL, true}, {SCLEX_PASCAL, true},
};

void UnbindKeys(const CSciWindow &window) {
    const auto unbind = [&](const char *keys, uintptr_t modifiers) {
        for (; *keys; ++keys) window.Send(SCI_ASSIGNCMDKEY, static_cast<uintptr_t>(*keys) | modifiers << 16, SCI_NULL);
    };
    unbind("QWERK", SCMOD_CTRL);
    unbind("QWERYOASDGKZXCVBN", SCMOD_CTRL + SCMOD_SHIFT);
}

}  // namespace

void SetUpWindow(const CSciWindow &window) {
    window.Send(SCI_SETSTYLEBITS, 4);
    window.Send(SCI_SETLEXER, SCLEX_NULL);
    for (const MarkerLook &look : kMarkers) Define(window, look);
    window.Send(SCI_SETMOUSEDWELLTIME, kDwellMilliseconds);
    window.Send(SCI_AUTOCSETIGNORECASE, 1);
    window.Send(SCI_USEPOPUP, 0);
    // A horizontal scroll bar only for lines that don't fit.
    window.Send(SCI_SETSCROLLWIDTH, 1);
    window.Send(SCI_SETSCROLLWIDTHTRACKING, 1);
    window.Send(SCI_SETLAYOUTCACHE, SC_CACHE_PAGE);
    // A jump to the end doesn't wait until all text before it has its colours.
    window.Send(SCI_SETIDLESTYLING, SC_IDLESTYLING_TOVISIBLE);
}

void SetUpFolding(const CSciWindow &window) {
    for (const MarkerLook &look : kFoldMarkers) Define(window, look);
}

void SetUpCaret(const CSciWindow &window) {
    window.Send(SCI_SETCARETPERIOD, static_cast<uintptr_t>(QApplication::cursorFlashTime() / 2));
}

void SetLexerOf(const CSciWindow &window, FileKind kind, bool fold) {
    const auto &row = kLexers[static_cast<size_t>(kind)];
    window.Send(SCI_SETLEXER, row.lexer);
    // A new lexer knows nothing of the properties that the one before it had.
    window.SendText(SCI_SETPROPERTY, reinterpret_cast<uintptr_t>("fold"), "1");
    if (kind != FileKind::other) window.SendText(SCI_SETKEYWORDS, 0, KeywordsOf(kind).c_str());
    window.Send(SCI_SETMARGINWIDTHN, 2, row.folds && fold ? kFoldMarginWidth : 0);
    UnbindKeys(window);
}

bool IsBrace(intptr_t character) {
    return character > 0 && character < 0x80 && std::strchr("(){}[]<>", static_cast<int>(character));
}
