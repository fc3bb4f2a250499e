// One printing of a code view's text, from its first page to its last.
#pragma once

#include <QFont>
#include <cstdint>

#include "editor/PrintLayout.h"
#include "editor/PrintSettings.h"

class CIDEView;
class QPainter;

// Reads the settings at its making. Hides the document tabs while it lives. Main thread.
class CViewPrint {
public:
    // `margins`: of the view's last printing; becomes this one's.
    CViewPrint(const CIDEView &view, const PrintFigures &figures, PrintMargins &margins);
    ~CViewPrint();
    CViewPrint(const CViewPrint &) = delete;
    CViewPrint &operator=(const CViewPrint &) = delete;

    int PageCount() const;
    void DrawPage(QPainter &painter, int page) const;

private:
    std::string HeaderText(const std::string &text, int page) const;
    void DrawBody(QPainter &painter, int page) const;

    const CIDEView &view_;
    const CPrintSettings settings_ = CPrintSettings::Load();
    const CPrintFont fontSettings_ = CPrintFont::Load();
    const CPrintLayout layout_;
    QFont printFont_;
};
