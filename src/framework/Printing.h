// Printing: a view draws its pages one by one, on a printer or into a preview.
#pragma once

#include <QPointer>
#include <string>

#include "framework/PrintFigures.h"
#include "framework/View.h"

class QPainter;
class QPrinter;

struct CPrintDC {
    PrintFigures figures;
    QPainter *painter = nullptr;  // in pixels of the device from the sheet's upper left corner; OnPrint only
};

// One printing. Pages count from 1.
struct CPrintInfo {
    explicit CPrintInfo(QPrinter &target) : printer(target) {}

    QPrinter &printer;
    bool direct = false;  // on the last printer, without a question
    bool preview = false;
    int maxPage = 1;               // OnBeginPrinting sets it
    int curPage = 1;               // that OnPrint draws
    bool continuePrinting = true;  // cleared by a view that ends early
};

// The view's side of one printing: OnBeginPrinting at its making, OnEndPrinting when it goes, whatever happened
// between.
class CPrintSession {
public:
    CPrintSession(CView &view, CPrintInfo &info);
    ~CPrintSession();
    CPrintSession(const CPrintSession &) = delete;
    CPrintSession &operator=(const CPrintSession &) = delete;

    bool IsAlive() const { return !widget_.isNull(); }  // a printing can outlive its view
    int PageCount() const { return info_.maxPage; }
    const PrintFigures &Figures() const { return dc_.figures; }
    void DrawPage(int page, QPainter &painter);  // nothing without a view

private:
    CView &view_;
    QPointer<QWidget> widget_;
    CPrintInfo &info_;
    CPrintDC dc_;
};

PrintFigures FiguresOf(const QPrinter &printer);

struct PrintTexts {
    std::string progress, cancel;  // `progress`: with "%d" for the page and the number of pages
    std::string noPrinter, failed;
};

// Prints `view` on a printer that the user is asked for, or with `direct` on the last or default one. The window stays
// alive meanwhile, and the user can cancel. A failure is told in a box. Main thread.
void PrintView(CView &view, bool direct, const PrintTexts &texts);

// The loop over the pages by itself.
enum class PrintResult { done, cancelled, failed };
PrintResult PrintPages(CView &view, CPrintInfo &info, const PrintTexts &texts);

struct PreviewTexts {
    std::string title, print, previous, next, page, zoomOut, zoomIn, close;
    std::string failed;
};

// Shows the pages as they would be printed; a failure is told in a box. True when the user then wants to print.
bool PreviewView(CView &view, const PreviewTexts &texts);
