#include "navigation/FuncInfoView.h"

#include <QVBoxLayout>
#include <utility>

#include "app/CommandIds.h"
#include "app/StringIds.h"
#include "framework/Document.h"
#include "framework/Language.h"
#include "navigation/FunctionJump.h"
#include "platform/PathCalls.h"

namespace {

constexpr int kNameWidth = 32, kNumberWidth = 10;  // average characters

}  // namespace

CFuncInfoView::CFuncInfoView(QWidget *parent) : CCodeWindowView(parent), list_(new CReportCtrl(this)) {
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(list_);
    setFocusProxy(list_);
    list_->SetColumns({{LoadText(IDS_COLUMN_FUNCTION), kNameWidth, false, true},
                       {LoadText(IDS_COLUMN_ROM), kNumberWidth, true},
                       {LoadText(IDS_COLUMN_RAM), kNumberWidth, true},
                       {LoadText(IDS_COLUMN_RAM_PART), kNumberWidth, true}});
    list_->onActivate = [this](intptr_t index) { Jump(index); };
    OnCommand(
        ID_EDIT_COPY, [this] { list_->Copy(); }, [this](CCmdUI &ui) { ui.Enable(list_->HasSelection()); });
}

void CFuncInfoView::Load(bool onlyIfNeeded) {
    if (onlyIfNeeded && !reload_) return;
    const std::string path = BuildFilePath(".stat");
    GetDocument()->SetPathName(path, false);
    if (path.empty() || !FileExists(path)) {
        ClearRows();
        return;
    }
    const BuildFileStamp file = StampOf(path);
    if (shown_.IsOf(file)) return;
    const bool sameFile = path == shown_.path;
    if (!sameFile) ClearRows();
    std::optional<std::vector<SStatData>> stats;
    if (const auto text = ReadBuildFile(path)) stats = ParseFunctionStats(*text);
    if (!stats) shown_.time.reset();
    stats_ = std::move(stats).value_or(std::vector<SStatData>());
    reload_ = stats_.empty();
    ShowRows();
    if (!stats_.empty()) shown_ = file;
}

void CFuncInfoView::Clear() {
    GetDocument()->SetPathName({}, false);
    ClearRows();
}

void CFuncInfoView::ClearRows() {
    list_->Clear();
    stats_.clear();
    shown_.time.reset();
    reload_ = true;
}

void CFuncInfoView::ShowRows() {
    std::vector<ReportRow> rows;
    rows.reserve(stats_.size());
    for (size_t i = 0; i < stats_.size(); ++i) {
        const SStatData &stat = stats_[i];
        rows.push_back(
            {{stat.name, std::to_string(stat.rom), std::to_string(stat.ramWhole), std::to_string(stat.ramPart)},
             static_cast<intptr_t>(i)});
    }
    if (rows.empty()) rows.push_back({{LoadText(IDS_NO_FUNCTION_DATA)}});
    list_->SetRows(std::move(rows));
}

void CFuncInfoView::Jump(intptr_t index) {
    const auto place = static_cast<size_t>(index);
    if (place >= stats_.size()) return;
    const SStatData function = stats_[place];  // a copy: what the jump sets off can fill the list anew
    JumpToFunction(function);
}
