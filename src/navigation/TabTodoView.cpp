#include "navigation/TabTodoView.h"

#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

#include "app/StringIds.h"
#include "framework/Language.h"
#include "navigation/WorkspaceBarHost.h"
#include "widgets/ReportCtrl.h"

namespace {

constexpr std::chrono::milliseconds kStep(20);  // of reading, between two looks at the user's input
constexpr int kKindWidth = 7;                   // characters
constexpr size_t kLongestText = 500;            // bytes of a row; the rest of the line is no remark

std::string KindText(int32_t type) {
    switch (type) {
        case kTodo:
            return "TODO";
        case kFixme:
            return "FIXME";
        default:
            return "???";
    }
}

// One line of printable text, not cut within a character.
std::string RowText(const std::string &text) {
    size_t size = std::min(text.size(), kLongestText);
    while (size > 0 && size < text.size() && (static_cast<unsigned char>(text[size]) & 0xc0) == 0x80) --size;
    std::string row = text.substr(0, size);
    for (char &byte : row)
        if (static_cast<unsigned char>(byte) < ' ') byte = ' ';
    return row;
}

}  // namespace

CTabTodoView::CTabTodoView(CWorkspaceBarHost &host, QWidget *parent)
    : QWidget(parent), host_(host), report_(new CReportCtrl(this)), next_(new QTimer(this)) {
    report_->SetColumns({{.title = LoadText(IDS_COLUMN_TODO_KIND), .width = kKindWidth},
                         {.title = LoadText(IDS_COLUMN_TODO_TEXT), .stretch = true}});
    report_->setFrameShape(QFrame::NoFrame);
    report_->onActivate = [this](intptr_t rowId) { OpenRow(rowId); };
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(report_);
    setFocusProxy(report_);
    next_->setSingleShot(true);
    connect(next_, &QTimer::timeout, this, [this] { ReadOn(); });
}

void CTabTodoView::Scan(const std::string &projectFile, const std::string &singleFile) {
    next_->stop();
    if (projectFile.empty() || singleFile.empty()) report_->Clear();
    todos_.Begin(projectFile, singleFile);
    ReadOn();
}

void CTabTodoView::ReadOn() {
    if (todos_.Step(kStep))
        Fill();
    else
        next_->start(0);
}

void CTabTodoView::Fill() {
    std::vector<ReportRow> rows;
    rows.reserve(todos_.Records().size());
    int32_t rowId = 0;
    for (TodoRecord &record : todos_.Records()) {
        record.rowId = rowId++;
        ReportRow &row = rows.emplace_back();
        row.cells = {KindText(record.type), RowText(record.text)};
        row.data = record.rowId;
    }
    report_->SortBy(0, Qt::AscendingOrder);
    report_->SetRows(std::move(rows));
}

void CTabTodoView::OpenRow(intptr_t rowId) {
    const auto found = std::ranges::find(todos_.Records(), rowId, &TodoRecord::rowId);
    if (found == todos_.Records().end()) return;
    const TodoRecord record = *found;  // what opens the source can read it anew
    host_.OpenLine(record.file, record.line);
}
