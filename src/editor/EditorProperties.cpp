#include "editor/EditorProperties.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <algorithm>

#include "app/Settings.h"
#include "editor/SciWindow.h"
#include "editor/ViewSetup.h"
#include "framework/Text.h"

namespace {

const std::string kSection = "UserColorScheme";

constexpr int kLexerStyles = 19;  // styles 0 to 18 take the font

// The C lexer's documentation comments look as its other comments do.
constexpr int kCommentBlock = 1, kLineComment = 2, kDocComment = 3, kDocLineComment = 15;
constexpr int kWord = 5, kWhitespace = 0;

const std::array<CStyle, CEditorProperties::kStyles> &DefaultStyles() {
    static const std::array<CStyle, CEditorProperties::kStyles> styles = {{
        {1, "Comment block", 0x008000, 0xFFFFFF},
        {2, "Line comment", 0x008000, 0xFFFFFF},
        {4, "Number", 0x000000, 0xFFFFFF},
        {5, "Word", 0xFF0000, 0xFFFFFF},
        {6, "String", 0x004080, 0xFFFFFF},
        {7, "Character", 0x004080, 0xFFFFFF},
        {9, "Preprocessor", 0xFF0000, 0xFFFFFF},
        {10, "Operator", 0x000000, 0xFFFFFF},
        {11, "Identifier", 0x000000, 0xFFFFFF},
        {12, "String EOL", 0x004080, 0xC0C0FF},
        {0, "Whitespace", 0x000000, 0xFFFFFF},
        {32, "Default", 0x000000, 0xFFFFFF},
        {CStyle::kExecutionLine, "Execution Line", 0x000000, 0x40C040},
        {CStyle::kSelection, "Selection", 0xFFFFFF, 0xC0C0C0, false, false, false, true},
        {CStyle::kCaret, "Caret", 0x000000, 0xFFFFFF},
    }};
    return styles;
}

// Calls `visit(key, value)` for each stored number of a row.
template <typename Row, typename Visit>
void VisitFlags(Row &row, const std::string &prefix, Visit visit) {
    visit(prefix + "_Bold", row.bold);
    visit(prefix + "_Ital", row.italic);
    visit(prefix + "_Under", row.underline);
    visit(prefix + "_NoCh", row.noChange);
}

// Has Qt show the desktop's fixed font where this system has nothing like `family`.
void ProvideFont(const QString &family) {
    if (QFontDatabase::hasFamily(family) || !QFont::substitutes(family).isEmpty()) return;
    if (QFontInfo(QFont(family)).fixedPitch()) return;
    // The desktop may name its font by an alias, which can't stand in for another.
    QFont::insertSubstitution(family, QFontInfo(QFontDatabase::systemFont(QFontDatabase::FixedFont)).family());
}

// A colour as the component takes it: other bits than the three colours' can only come from a store gone wrong.
intptr_t Colour(uint32_t colour) {
    return static_cast<intptr_t>(colour & 0xFFFFFF);
}

// Sets text and back colour, bold, italic and underline of one of the component's styles.
void SetStyle(const CSciWindow &window, int style, const CStyle &look) {
    const auto number = static_cast<uintptr_t>(style);
    window.Send(SCI_STYLESETFORE, number, Colour(look.textColour));
    window.Send(SCI_STYLESETBACK, number, Colour(look.backColour));
    window.Send(SCI_STYLESETBOLD, number, look.bold);
    window.Send(SCI_STYLESETITALIC, number, look.italic);
    window.Send(SCI_STYLESETUNDERLINE, number, look.underline);
}

}  // namespace

CEditorProperties::CEditorProperties() {
    ResetStyles();
}

void CEditorProperties::ResetStyles() {
    styles = DefaultStyles();
}

void CEditorProperties::Load() {
    if (GetUserString(kSection, "Font", "").empty()) return;
    const auto flag = [](const std::string &key, bool fallback) { return GetUserInt(kSection, key, fallback) != 0; };
    font = GetUserString(kSection, "Font", "Courier");
    fontSize = GetUserInt(kSection, "FontSize", 10);
    tabSize = std::max(1, GetUserInt(kSection, "TabSize", 4));
    useTabs = flag("HTabs", true);
    fold = flag("Fold", false);
    indentGuides = flag("Indentation", false);
    smartIndent = flag("SmartIndentation", false);
    lineNumbers = flag("LNumbers", false);
    for (size_t i = 0; i < styles.size(); ++i) {
        const std::string prefix = std::to_string(i);
        styles[i].textColour = static_cast<uint32_t>(GetUserInt(kSection, prefix + "_Text", 0));
        styles[i].backColour = static_cast<uint32_t>(GetUserInt(kSection, prefix + "_Back", 0xFFFFFF));
        VisitFlags(styles[i], prefix, [&](const std::string &key, bool &value) { value = flag(key, false); });
    }
}

bool CEditorProperties::Save() const {
    bool saved = WriteUserString(kSection, "Font", font);
    const auto write = [&saved](const std::string &key, int value) {
        saved = WriteUserInt(kSection, key, value) && saved;
    };
    write("FontSize", fontSize);
    write("TabSize", tabSize);
    write("HTabs", useTabs);
    write("Fold", fold);
    write("Indentation", indentGuides);
    write("SmartIndentation", smartIndent);
    write("LNumbers", lineNumbers);
    for (size_t i = 0; i < styles.size(); ++i) {
        const std::string prefix = std::to_string(i);
        write(prefix + "_Text", static_cast<int>(styles[i].textColour));
        write(prefix + "_Back", static_cast<int>(styles[i].backColour));
        VisitFlags(styles[i], prefix, write);
    }
    return saved;
}

const CStyle &CEditorProperties::Row(int id) const {
    return *std::ranges::find(styles, id, &CStyle::id);
}

int CEditorProperties::LineNumberWidth(const CSciWindow &window, int lineCount) {
    std::string text = "_9";
    while (lineCount /= 10) text += '9';
    return static_cast<int>(window.SendText(SCI_TEXTWIDTH, 0, text.c_str()));
}

bool CEditorProperties::FoldsIn(const CSciWindow &window) const {
    const intptr_t lexer = window.Send(SCI_GETLEXER);
    return fold && (lexer == SCLEX_CPP || lexer == SCLEX_PASCAL);
}

void CEditorProperties::ApplyProperties(const CSciWindow &window, int lineCount) const {
    if (!window) return;
    ApplyMargins(window, lineCount);
    ApplyFont(window);
    for (const CStyle &row : styles) ApplyRow(window, row);
    ApplyExecutionColour(window);
    ApplyPredefinedStyles(window);
}

void CEditorProperties::ApplyMargins(const CSciWindow &window, int lineCount) const {
    window.Send(SCI_SETMARGINWIDTHN, 0, lineNumbers ? LineNumberWidth(window, lineCount) : 1);
    window.Send(SCI_SETMARGINWIDTHN, 1, window.Send(SCI_TEXTHEIGHT, 0));
    window.Send(SCI_SETFOLDFLAGS, SC_FOLDFLAG_LINEAFTER_CONTRACTED);
    window.Send(SCI_SETMARGINTYPEN, 2, SC_MARGIN_SYMBOL);
    window.Send(SCI_SETMARGINMASKN, 2, SC_MASK_FOLDERS);
    window.Send(SCI_SETMARGINSENSITIVEN, 2, 1);
    window.Send(SCI_SETINDENTATIONGUIDES, indentGuides);
    window.Send(SCI_SETUSETABS, useTabs);
    window.Send(SCI_SETMARGINWIDTHN, 2, FoldsIn(window) ? kFoldMarginWidth : 0);
    window.Send(SCI_SETTABWIDTH, static_cast<uintptr_t>(std::clamp(tabSize, 1, kMaxTabSize)));
    window.Send(SCI_SETMARGINTYPEN, 0, lineNumbers ? SC_MARGIN_NUMBER : SC_MARGIN_SYMBOL);
    window.Send(SCI_SETMARGINTYPEN, 1, SC_MARGIN_SYMBOL);
}

void CEditorProperties::ClearStyles(const CSciWindow &window) const {
    ProvideFont(ToQString(font));
    ApplyFontTo(window, STYLE_DEFAULT);
    ApplyRow(window, Row(STYLE_DEFAULT));
    window.Send(SCI_STYLECLEARALL);
}

void CEditorProperties::ApplyFont(const CSciWindow &window) const {
    ProvideFont(ToQString(font));
    ApplyFontTo(window, STYLE_DEFAULT);
    for (int style = 0; style < kLexerStyles; ++style) ApplyFontTo(window, style);
}

void CEditorProperties::ApplyFontTo(const CSciWindow &window, int style) const {
    window.SendText(SCI_STYLESETFONT, static_cast<uintptr_t>(style), font.c_str());
    window.Send(SCI_STYLESETSIZE, static_cast<uintptr_t>(style), std::clamp(fontSize, 1, kMaxFontSize));
}

void CEditorProperties::ApplyRow(const CSciWindow &window, const CStyle &row) {
    switch (row.id) {
        case CStyle::kCaret:
            window.Send(SCI_SETCARETFORE, static_cast<uintptr_t>(Colour(row.textColour)));
            return;
        case CStyle::kSelection:
            window.Send(SCI_SETSELFORE, row.noChange ? 0 : 1, Colour(row.textColour));
            window.Send(SCI_SETSELBACK, 1, Colour(row.backColour));
            return;
        case CStyle::kExecutionLine:
            window.Send(SCI_MARKERDEFINE, 0, SC_MARK_BACKGROUND);
            return;
    }
    SetStyle(window, row.id, row);
    if (row.id == kCommentBlock) SetStyle(window, kDocComment, row);
    if (row.id == kLineComment) SetStyle(window, kDocLineComment, row);
}

void CEditorProperties::ApplyExecutionColour(const CSciWindow &window) const {
    window.Send(SCI_MARKERSETBACK, 0, Colour(Row(CStyle::kExecutionLine).backColour));
}

void CEditorProperties::ApplyRunningColour(const CSciWindow &window) const {
    const uint32_t mark = Row(CStyle::kExecutionLine).backColour, text = Row(kWhitespace).backColour;
    uint32_t between = 0;
    for (int shift = 0; shift < 24; shift += 8) {
        const int a = mark >> shift & 0xFF, b = text >> shift & 0xFF;
        between |= static_cast<uint32_t>(a + (b - a) / 2) << shift;
    }
    window.Send(SCI_MARKERSETBACK, 0, Colour(between));
}

void CEditorProperties::ApplyPredefinedStyles(const CSciWindow &window) const {
    const auto back = Colour(Row(kWhitespace).backColour);
    window.Send(SCI_STYLESETFORE, STYLE_LINENUMBER, 0);
    window.Send(SCI_STYLESETFORE, STYLE_BRACELIGHT, Colour(Row(kWord).textColour));
    window.Send(SCI_STYLESETBACK, STYLE_BRACELIGHT, back);
    window.Send(SCI_STYLESETBOLD, STYLE_BRACELIGHT, 1);
    window.Send(SCI_STYLESETFORE, STYLE_BRACEBAD, 0x0000FF);
    window.Send(SCI_STYLESETBACK, STYLE_BRACEBAD, back);
    window.Send(SCI_STYLESETBOLD, STYLE_BRACEBAD, 1);
}
