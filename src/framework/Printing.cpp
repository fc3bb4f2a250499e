#include "framework/Printing.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QProgressDialog>
#include <algorithm>
#include <vector>

#include "framework/Document.h"
#include "framework/MessageBox.h"
#include "framework/PrintPreviewDlg.h"
#include "framework/Text.h"
#include "framework/WinApp.h"
#include "platform/NativePath.h"

namespace {

constexpr int kProgressAfter = 500;  // milliseconds

// What the user chose last, for the next printing of this run.
struct LastSetup {
    QString printer;
    QPageLayout page;  // not valid before the first choice
};

LastSetup &Last() {
    static LastSetup last;
    return last;
}

void TakeLastSetup(QPrinter &printer) {
    const QString &name = Last().printer;
    if (!name.isEmpty() && QPrinterInfo::availablePrinterNames().contains(name)) printer.setPrinterName(name);
    if (Last().page.isValid()) printer.setPageLayout(Last().page);
}

void KeepSetup(const QPrinter &printer) {
    if (printer.outputFormat() == QPrinter::NativeFormat) Last().printer = printer.printerName();
    Last().page = printer.pageLayout();
}

QString NameOf(const CView &view) {
    const CDocument *document = view.GetDocument();
    if (!document) return {};
    const QString path = ToQString(DisplayPath(document->GetPathName()));
    return path.isEmpty() ? ToQString(document->GetTitle()) : QFileInfo(path).fileName();
}

// Where a document is printed to when there is no printer: beside its own file.
QString SuggestedFile(const CView &view) {
    const CDocument *document = view.GetDocument();
    const QString path = document ? ToQString(DisplayPath(document->GetPathName())) : QString();
    const QString directory = path.isEmpty() ? QDir::homePath() : QFileInfo(path).path();
    return directory + '/' + NameOf(view) + ".pdf";
}

// In the order in which they leave the printer.
std::vector<int> PagesToPrint(const QPrinter &printer, int pageCount) {
    const QPageRanges ranges = printer.pageRanges();
    const bool all = printer.printRange() != QPrinter::PageRange || ranges.isEmpty();
    std::vector<int> pages;
    for (int page = 1; page <= pageCount; ++page)
        if (all || ranges.contains(page)) pages.push_back(page);
    if (printer.pageOrder() == QPrinter::LastPageFirst) std::ranges::reverse(pages);
    const int copies = printer.supportsMultipleCopies() ? 1 : std::max(1, printer.copyCount());
    std::vector<int> result;
    if (printer.collateCopies()) {
        for (int copy = 0; copy < copies; ++copy) result.insert(result.end(), pages.begin(), pages.end());
    } else {
        for (const int page : pages) result.insert(result.end(), static_cast<size_t>(copies), page);
    }
    return result;
}

bool IsToFile(const QPrinter &printer) {
    return !printer.outputFileName().isEmpty();
}

void Abort(QPainter &painter, QPrinter &printer) {
    printer.abort();
    painter.end();
    if (IsToFile(printer)) QFile::remove(printer.outputFileName());  // part of a document is no use
}

// A full disk isn't told by the printer: the end of the document is missing then.
bool IsComplete(const QPrinter &printer) {
    if (printer.printerState() == QPrinter::Error) return false;
    if (!IsToFile(printer) || printer.outputFormat() != QPrinter::PdfFormat) return true;
    QFile file(printer.outputFileName());
    constexpr qint64 kTail = 32;
    if (!file.open(QIODevice::ReadOnly)) return false;
    if (!file.isSequential()) file.seek(std::max<qint64>(0, file.size() - kTail));
    return file.read(kTail).contains("%%EOF");
}

void TellInBox(QWidget *parent, const std::string &text) {
    RunMessageBox(parent, CWinApp::Get()->BoxTitle(), text, BoxIcon::stop, BoxButtons::ok);
}

// Shows how far it has come once it takes some time, and lets the rest of the program go on.
class CPrintProgress {
public:
    CPrintProgress(QWidget *parent, const PrintTexts &texts, size_t pages)
        : text_(texts.progress),
          pages_(std::to_string(pages)),
          dialog_(Label(pages), ToQString(texts.cancel), 0, static_cast<int>(pages), parent) {
        dialog_.setWindowTitle(ToQString(CWinApp::Get()->BoxTitle()));
        dialog_.setWindowModality(Qt::WindowModal);
        dialog_.setMinimumDuration(kProgressAfter);
    }

    // False when the user cancelled.
    bool Advance(size_t index) {
        dialog_.setLabelText(Label(index + 1));
        dialog_.setValue(static_cast<int>(index));
        // Before the dialog shields the window from it, input has to wait.
        QApplication::processEvents(dialog_.isVisible() ? QEventLoop::AllEvents : QEventLoop::ExcludeUserInputEvents);
        return !dialog_.wasCanceled();
    }

private:
    QString Label(size_t page) const { return ToQString(FormatText(text_, {std::to_string(page), pages_})); }

    const std::string text_, pages_;
    QProgressDialog dialog_;
};

}  // namespace

bool CView::OnPreparePrinting(CPrintInfo &info) {
    return DoPreparePrinting(info);
}

bool CView::DoPreparePrinting(CPrintInfo &info) {
    if (info.direct || info.preview) return true;
    if (info.printer.outputFormat() == QPrinter::PdfFormat) info.printer.setOutputFileName(SuggestedFile(*this));
    QPrintDialog dialog(&info.printer, window());
    dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintPageRange |
                      QAbstractPrintDialog::PrintCollateCopies | QAbstractPrintDialog::PrintShowPageSize);
    return dialog.exec() == QDialog::Accepted;
}

PrintFigures FiguresOf(const QPrinter &printer) {
    const QSizeF sheet = printer.pageLayout().fullRect(QPageLayout::Millimeter).size();
    return {printer.logicalDpiX(), printer.logicalDpiY(), static_cast<int>(sheet.width()),
            static_cast<int>(sheet.height())};
}

CPrintSession::CPrintSession(CView &view, CPrintInfo &info) : view_(view), widget_(&view), info_(info) {
    info.printer.setFullPage(true);
    dc_.figures = FiguresOf(info.printer);
    view.OnBeginPrinting(dc_, info);
}

CPrintSession::~CPrintSession() {
    if (IsAlive()) view_.OnEndPrinting(dc_, info_);
}

void CPrintSession::DrawPage(int page, QPainter &painter) {
    if (!IsAlive()) return;
    painter.save();
    info_.curPage = page;
    dc_.painter = &painter;
    view_.OnPrint(dc_, info_);
    dc_.painter = nullptr;
    painter.restore();
}

PrintResult PrintPages(CView &view, CPrintInfo &info, const PrintTexts &texts) {
    CPrintSession session(view, info);
    const std::vector<int> pages = PagesToPrint(info.printer, session.PageCount());
    QPainter painter;
    if (pages.empty() || !painter.begin(&info.printer)) return PrintResult::failed;
    CPrintProgress progress(view.window(), texts, pages.size());
    for (size_t i = 0; i < pages.size() && info.continuePrinting; ++i) {
        if (!progress.Advance(i) || !session.IsAlive()) {
            Abort(painter, info.printer);
            return PrintResult::cancelled;
        }
        if (i > 0 && !info.printer.newPage()) return PrintResult::failed;
        session.DrawPage(pages[i], painter);
    }
    return painter.end() && IsComplete(info.printer) ? PrintResult::done : PrintResult::failed;
}

void PrintView(CView &view, bool direct, const PrintTexts &texts) {
    QWidget *parent = view.window();
    QPrinter printer(QPrinter::HighResolution);
    TakeLastSetup(printer);
    printer.setDocName(NameOf(view));
    if (direct && printer.outputFormat() != QPrinter::NativeFormat) return TellInBox(parent, texts.noPrinter);

    CPrintInfo info(printer);
    info.direct = direct;
    const QPointer<QWidget> alive(&view);
    if (!view.OnPreparePrinting(info) || !alive) return;
    KeepSetup(printer);
    if (PrintPages(view, info, texts) == PrintResult::failed) TellInBox(parent, texts.failed);
}

bool PreviewView(CView &view, const PreviewTexts &texts) {
    QPrinter printer(QPrinter::HighResolution);
    TakeLastSetup(printer);
    const PrintFigures figures = FiguresOf(printer);
    if (std::min({figures.logPixelsX, figures.logPixelsY, figures.horzSize, figures.vertSize}) <= 0) {
        TellInBox(view.window(), texts.failed);
        return false;
    }
    CPrintInfo info(printer);
    info.preview = true;
    if (!view.OnPreparePrinting(info)) return false;
    CPrintSession session(view, info);
    CPrintPreviewDlg dialog(view.window(), session, texts);
    return dialog.exec() == CPrintPreviewDlg::kPrint;
}
