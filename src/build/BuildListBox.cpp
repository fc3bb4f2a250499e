#include "build/BuildListBox.h"

#include <QDesktopServices>
#include <QPainter>
#include <QUrl>

#include "app/CommandIds.h"
#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/ProjectDirScope.h"
#include "app/StringIds.h"
#include "build/MessageSearch.h"
#include "build/MessageTone.h"
#include "build/OpenAtLine.h"
#include "framework/Language.h"
#include "project/CurrentWorkspace.h"

namespace {

using namespace std::chrono_literals;

constexpr const char *kWebLink = "https://thornwell-ide.example/";
constexpr QRgb kLinkColor = qRgb(0x00, 0x00, 0xFF);
constexpr auto kSearchSlice = 20ms;  // of the main thread's time

// The active project's directory is the current one: names in messages are relative to it.
class MessageDirectory {
public:
    MessageDirectory() : project_(ActiveProjectPath()), scope_(project_.empty() ? nullptr : project_.c_str()) {}

private:
    const std::string project_;
    const ProjectDirScope scope_;
};

// Readable on the window's background in either theme.
QColor ToneColor(MessageTone tone, bool dark) {
    if (tone == MessageTone::error) return dark ? QColor(0xFF, 0x8A, 0x80) : QColor(0xB3, 0x1B, 0x1B);
    return dark ? QColor(0xFF, 0xCA, 0x6B) : QColor(0x8A, 0x54, 0x00);
}

}  // namespace

CBuildListBox::CBuildListBox(QWidget *parent) : CListBoxForFlatTabCtrl(kId, parent) {
    const auto needsLines = [this](CCmdUI &ui) { ui.Enable(GetCount() > 0); };
    OnCommand(ID_NEXT_MESSAGE, [this] { NextMessage(); }, needsLines);
    OnCommand(ID_OUTPUT_CLEAR, [this] { ResetContent(); }, needsLines);
    OnCommand(ID_OUTPUT_COPY, [this] { CopyOrTell(); }, needsLines);
    searchOn_.setSingleShot(true);
    connect(&searchOn_, &QTimer::timeout, this, [this] { SearchOn(); });
}

CBuildListBox::~CBuildListBox() = default;

bool CBuildListBox::GetLineInfo(int index, std::string &file, int &line) const {
    if (index < 0 || index >= GetCount()) return false;
    line = -1;
    const MessageDirectory directory;
    const LineAccess lines = [this](size_t at) { return GetText(static_cast<int>(at)); };
    const std::optional<MessagePlace> place = ClassifyMessage(lines, static_cast<size_t>(index), MessageFileExists);
    if (!place) return false;
    file = place->file;
    line = place->line;
    return true;
}

void CBuildListBox::NextMessage() {
    if (search_) return;
    search_ = std::make_unique<MessageSearch>(
        static_cast<size_t>(GetCount()), GetCurSel(),
        [this](size_t index) { return GetText(static_cast<int>(index)); }, MessageFileExists);
    SearchOn();
}

void CBuildListBox::SearchOn() {
    if (!search_) return;
    const MessageSearch::State state = [this] {
        const MessageDirectory directory;
        return search_->Run(kSearchSlice);
    }();
    if (state == MessageSearch::State::searching) {
        searchOn_.start(0);
        return;
    }
    const std::unique_ptr<MessageSearch> search = std::move(search_);
    if (state == MessageSearch::State::nothing) return;
    SetCurSel(static_cast<int>(search->FoundIndex()));
    OpenAtLine(search->FoundPlace().file, search->FoundPlace().line);
}

void CBuildListBox::CopyOrTell() {
    if (!CopyAll()) CIDEApp::Get().GetMainFrame()->ShowError(LoadText(IDS_CLIPBOARD_FAILED));
}

void CBuildListBox::OnActivate(int index) {
    std::string file;
    int line;
    if (GetLineInfo(index, file, line)) OpenAtLine(file, line);
}

void CBuildListBox::OnClick(int index) {
    if (GetText(index).find(kWebLink) != std::string_view::npos) QDesktopServices::openUrl(QUrl(kWebLink));
}

void CBuildListBox::OnReset() {
    search_.reset();
    searchOn_.stop();
}

int CBuildListBox::MenuResource() const { return IDR_OUTPUT_MENU; }

QColor CBuildListBox::TextColor(std::string_view line) const {
    const MessageTone tone = ToneOf(line);
    return tone == MessageTone::plain ? CListBoxForFlatTabCtrl::TextColor(line) : ToneColor(tone, IsDark());
}

void CBuildListBox::DrawText(QPainter &painter, const Row &row) const {
    const QString link = kWebLink;
    const qsizetype at = row.text.indexOf(link);
    if (at < 0) {
        CListBoxForFlatTabCtrl::DrawText(painter, row);
        return;
    }
    const QFont plain = font();
    QFont bold = plain;
    bold.setBold(true);
    const QColor plainColor = painter.pen().color();
    const QColor linkOnBase = IsDark() ? palette().color(QPalette::Link) : QColor(kLinkColor);
    const QColor linkColor = row.selected ? plainColor : linkOnBase;  // blue can't be read on a selected row
    QPointF place(row.left, row.area.top() + QFontMetricsF(plain).ascent());
    const auto draw = [&](const QString &text, const QFont &font, const QColor &color) {
        painter.setFont(font);
        painter.setPen(color);
        painter.drawText(place, text);
        place.rx() += QFontMetricsF(font).horizontalAdvance(text);
    };
    draw(row.text.left(at), plain, plainColor);
    draw(link, bold, linkColor);
    draw(row.text.mid(at + link.size()), plain, plainColor);
    painter.setFont(plain);
}
