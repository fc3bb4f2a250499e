#include "editor/ViewPrint.h"

#include <QFontDatabase>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <algorithm>
#include <ctime>

#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "editor/IDEDoc.h"
#include "editor/IDEView.h"
#include "editor/PrintText.h"
#include "framework/Text.h"
#include "platform/NativePath.h"

namespace {

constexpr size_t kMostBytesOfCharacter = 4;  // in UTF-8

int PixelsPerInchOfScreen() {
    return static_cast<int>(QGuiApplication::primaryScreen()->logicalDotsPerInchY());
}

const PrintMargins &Taken(PrintMargins &margins, const CPrintSettings &settings, const PrintFigures &figures) {
    margins.Take(settings, figures);
    return margins;
}

// A font whose cell, from the highest letter to the lowest, is `height` pixels high.
QFont MakeFont(const CPrintFont &settings, int height) {
    QFont font;
    font.setFamilies({ToQString(settings.face), QFontDatabase::systemFont(QFontDatabase::FixedFont).family()});
    font.setStyleHint(QFont::TypeWriter);
    font.setBold(settings.bold);
    font.setItalic(settings.italic);
    font.setPixelSize(height);
    const int cell = QFontMetrics(font).height();
    font.setPixelSize(std::max(1, height * height / std::max(1, cell)));
    return font;
}

// What is too long is cut at the rectangle.
void Draw(QPainter &painter, const QRect &row, Qt::Alignment alignment, const std::string &text) {
    if (!text.empty()) painter.drawText(row, Qt::TextSingleLine | Qt::AlignVCenter | alignment, ToQString(text));
}

Qt::Alignment ToQt(PrintAlignment alignment) {
    if (alignment == PrintAlignment::left) return Qt::AlignLeft;
    return alignment == PrintAlignment::right ? Qt::AlignRight : Qt::AlignHCenter;
}

}  // namespace

CViewPrint::CViewPrint(const CIDEView &view, const PrintFigures &figures, PrintMargins &margins)
    : view_(view),
      layout_(settings_, Taken(margins, settings_, figures), figures, fontSettings_.size, PixelsPerInchOfScreen()),
      printFont_(MakeFont(fontSettings_, layout_.FontHeight())) {
    if (CMainFrame *frame = CIDEApp::Get().GetMainFrame()) frame->HideTabs(true);
}

CViewPrint::~CViewPrint() {
    if (CMainFrame *frame = CIDEApp::Get().GetMainFrame()) frame->HideTabs(false);
}

int CViewPrint::PageCount() const {
    return layout_.PageCount(view_.Send(SCI_GETLINECOUNT));
}

void CViewPrint::DrawPage(QPainter &painter, int page) const {
    painter.setFont(printFont_);
    Draw(painter, layout_.HeaderRow(), ToQt(settings_.headerAlignment), HeaderText(settings_.header, page));
    DrawBody(painter, page);
    Draw(painter, layout_.FooterRow(), ToQt(settings_.footerAlignment), HeaderText(settings_.footer, page));
}

void CViewPrint::DrawBody(QPainter &painter, int page) const {
    const intptr_t first = layout_.FirstLine(page);
    const intptr_t end = std::min<intptr_t>(view_.Send(SCI_GETLINECOUNT), first + layout_.BodyLines());
    // No character is narrower than a pixel; a line of a million of them costs no more than one that fits.
    const auto limit = static_cast<size_t>(layout_.BodyRow(0).width()) * kMostBytesOfCharacter;
    for (intptr_t line = first; line < end; ++line) {
        const std::string text = ExpandTabs(view_.Sci().GetLine(line), fontSettings_.tabSize, limit);
        Draw(painter, layout_.BodyRow(static_cast<int>(line - first)), Qt::AlignLeft, text);
    }
}

std::string CViewPrint::HeaderText(const std::string &text, int page) const {
    const CDocument *document = view_.GetDocument();
    const std::string path = document ? DisplayPath(document->GetPathName()) : std::string();
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return ExpandHeaderText(text, page, path, local);
}
