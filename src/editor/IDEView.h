// The view of one source document: a frame round one window of the editing component.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "editor/FileKind.h"
#include "editor/PrintLayout.h"
#include "editor/SciWindow.h"
#include "framework/View.h"
#include "navigation/BrowseRecord.h"

class CIDEDoc;
class CViewPrint;
class QMenu;

// Lines and columns count from 0. Main thread.
class CIDEView : public CView {
public:
    explicit CIDEView(QWidget *parent = nullptr);
    ~CIDEView() override;

    CIDEDoc *GetIDEDoc() const;
    const CSciWindow &Sci() const { return sci_; }
    intptr_t Send(unsigned message, uintptr_t wParam = 0, intptr_t lParam = 0) const {
        return sci_.Send(message, wParam, lParam);
    }
    intptr_t SendText(unsigned message, uintptr_t wParam, const char *text) const {
        return sci_.SendText(message, wParam, text);
    }

    void OnInitialUpdate() override;
    void OnUpdate(CView *sender, intptr_t hint) override;  // applies the settings afresh
    bool OnCmdMsg(int id, CCmdUI *ui) override;            // what means the listing goes there

    // As plain text in one font, whatever is folded or coloured.
    void OnBeginPrinting(CPrintDC &dc, CPrintInfo &info) override;
    void OnPrint(CPrintDC &dc, CPrintInfo &info) override;
    void OnEndPrinting(CPrintDC &dc, CPrintInfo &info) override;

    void ApplyLexer(FileKind kind);
    void ApplySettings();     // the user's editor settings
    void LoadFileIntoView();  // replaces the text by the file's; a missing file gives an empty text

    // Runs `edit`, which says whether it changed the text, without a notification for each step: many steps would take
    // too long. What follows changes is brought up to date once, behind it.
    void EditQuietly(const std::function<bool()> &edit);

    intptr_t findPos = -1;  // where the last search hit, or where the next begins; see ViewSearch.h

    void ConvertLineEnds();  // all to CR LF, in a read-only view too

    void ShowViewLine(intptr_t line, bool select);  // brings the line near the middle; `select`: selects it too
    void SelectWholeLine(intptr_t line);
    void GotoFunction(size_t index);  // into the document's functions; nothing for an index beyond them
    intptr_t CaretLine() const;
    bool IsReadOnly() const { return Send(SCI_GETREADONLY) != 0; }
    bool IsLarge() const;                        // too large for work on the whole text at each step
    bool IsPartial() const { return partial_; }  // what is shown isn't what the file holds, and mustn't replace it

    // Whether the text was loaded from the document's file, so that the marks on it are that file's.
    bool HoldsFile() const { return holdsFile_; }

    // Toggles, places or removes (a BreakpointChange) the breakpoint of one line, with the mark that shows it; during a
    // run in the engine, too, and not at all when that refuses. Nothing for line -1.
    virtual void OnDebugToggleBreakpoint(intptr_t line, int change);

    intptr_t contextLine = -1;  // under the pointer when the context menu opened; -1 when none

    void PlaceFunctionMarks();  // on the lines of the document's functions, in place of the old ones
    virtual void OnPathNamed();  // the document was saved under a first or other name: the marks are that file's
    void AllowEditing();     // at the end of a debug run; not where the file or what is shown of it mustn't be changed
    void RefreshValueTip();  // at a stop of the target: shows the value under the pointer anew

protected:
    virtual void OnNotify(const SciLexerNotification &notification);

    // What the outside did to the file.
    virtual void OnFileChanged();
    virtual void OnFileDeleted();

    virtual void ToggleBookmark();

    void ReleaseFile();  // before the text or the document's path becomes another: the lists take the marks over

    void resizeEvent(QResizeEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    void MapCommands();
    void MapSearchCommands();
    void MapPrintCommands();
    void MapMacroCommands();
    void JoinRecording();
    bool FillFromFile(const std::string &path);
    void FitToSize(std::string &bytes);
    void ShowText(const std::string &bytes);
    void PlaceMarks();
    void TakeOverMarks();

    void OnModifyAttempt();
    void ShowCaretPosition();
    void HighlightBraces();
    void OnModified(const SciLexerNotification &notification);

    void ShowValueTip(const SciLexerNotification &notification);
    intptr_t MoveCaretForMenu(const QPoint &at);  // gives the position there
    void AddSymbolEntries(QMenu &menu, intptr_t position);
    void AddWatchEntry(QMenu &menu, intptr_t position);
    void AddBreakpointEntries(QMenu &menu, intptr_t position);
    std::unique_ptr<QMenu> MakeFunctionMenu();  // null when the document has no functions

    void ToggleBreakpoint();
    void RunToCursor();
    void MapBreakpointCommands();
    void MapWatchCommands();
    void WatchAtCaret();
    std::string SelectedLine() const;  // the first line of the selection, as far as it can be watched
    void BreakpointProperties();
    void GotoBookmark(bool next);
    void GotoLine();
    void MatchBrace();
    void GotoLastEdit();
    void OpenCounterpart();

    CSciWindow sci_;
    PrintMargins printMargins_;          // of the last printing
    std::unique_ptr<CViewPrint> print_;  // while it prints
    bool holdsFile_ = false;
    bool shown_ = false;  // OnInitialUpdate is over
    bool plain_ = false;  // too large for colours
    int partial_ = 0;     // the text that tells why what is shown isn't what the file holds; 0 when it is
    std::optional<BrowseRecord> menuSymbol_;  // what the open context menu can go to
    std::string watchText_;                   // what it can watch
    intptr_t lastEditPos_ = -1;
    intptr_t lastEditTopLine_ = 0;
};

// Switches the recording of a macro on or off in the views of all documents.
void StartRecordingAllViews(bool on);
