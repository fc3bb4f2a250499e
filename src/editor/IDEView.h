// The view of one source document: a frame round one window of the editing component.
#pragma once

#include <string>

#include "editor/FileKind.h"
#include "editor/SciWindow.h"
#include "framework/View.h"

class CIDEDoc;

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

    void ApplyLexer(FileKind kind);
    void ApplySettings();     // the user's editor settings
    void LoadFileIntoView();  // replaces the text by the file's; a missing file gives an empty text

    void ConvertLineEnds();  // all to CR LF, in a read-only view too

    void ShowViewLine(intptr_t line, bool select);  // brings the line near the middle; `select`: selects it too
    void SelectWholeLine(intptr_t line);
    void GotoFunction(size_t index);  // into the document's functions; nothing for an index beyond them
    intptr_t CaretLine() const;
    bool IsReadOnly() const { return Send(SCI_GETREADONLY) != 0; }

protected:
    virtual void OnNotify(const SciLexerNotification &notification);

    // What the outside did to the file.
    virtual void OnFileChanged();
    virtual void OnFileDeleted();

    void resizeEvent(QResizeEvent *event) override;

private:
    void MapCommands();
    void FillFromFile(const std::string &path);
    void ShowText(const std::string &bytes);
    void PlaceMarks();
    void PlaceFunctionMarks();
    void TakeOverMarks();

    void OnModifyAttempt();
    void ShowCaretPosition();
    void HighlightBraces();
    void OnModified(const SciLexerNotification &notification);

    void ToggleBookmark();
    void GotoBookmark(bool next);
    void GotoLine();
    void MatchBrace();
    void GotoLastEdit();
    void OpenCounterpart();

    CSciWindow sci_;
    bool holdsFile_ = false;  // the text was loaded from the document's file, and the marks on it are that file's
    intptr_t lastEditPos_ = -1;
    intptr_t lastEditTopLine_ = 0;
};
