#include "debugger/WatchBar.h"

#include <QScopedValueRollback>
#include <algorithm>
#include <iterator>
#include <vector>

#include "app/BarIds.h"
#include "app/CommandIds.h"
#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/Settings.h"
#include "app/StringIds.h"
#include "debugger/QuickWatchDlg.h"
#include "debugger/ValueTree.h"
#include "debugger/WatchDropTarget.h"
#include "debugger/WatchItem.h"
#include "debugger/WatchList.h"
#include "framework/Language.h"
#include "framework/Text.h"

namespace {

bool IsDebugging() {
    return CIDEApp::Get().session.IsAlive();
}
int DefaultFormat() {
    return GetUserInt("Debugger", "DefWatchFormat", 0);
}
CWatchItem *WatchOf(CPropTreeItem *row) {
    return static_cast<CWatchItem *>(row);
}

// As much as the project gives back, without a part of a character.
std::string CutToLongest(const std::string &text) {
    const std::string whole = FromQString(ToQString(text).trimmed());
    size_t end = std::min<size_t>(whole.size(), kLongestWatch);
    const auto isInside = [&](size_t at) { return at < whole.size() && (whole[at] & 0xC0) == 0x80; };
    while (isInside(end)) --end;
    return whole.substr(0, end);
}

}  // namespace

CWatchBar::CWatchBar(QWidget *parent)
    : CDebugBar(kBarWatch, IDS_BAR_WATCH, parent), tree_(new CValueTree("WatchNameWidth", this)) {
    tree_->setRootIsDecorated(false);
    SetContent(tree_);
    MapCommands();
    tree_->onActivate = [this](CPropTreeItem *row) { EditExpression(WatchOf(row)); };
    tree_->onInsert = [this] { CIDEApp::Get().GetMainFrame()->RunCommand(ID_WATCH_ADD, this); };
    tree_->onDelete = [this] { RemoveSelected(); };
    tree_->onMenu = [this](CPropTreeItem *row, const QPoint &at) { ShowMenu(row, at); };
    new CWatchDropTarget(*tree_, [this](const std::string &text) { TakeDrop(text); });
}

CWatchBar::~CWatchBar() {
    if (CIDEApp::Get().session.IsOpen()) Save();
}

template <typename Act>
void CWatchBar::ForEachRow(Act act) const {
    for (const auto &row : tree_->Items()) act(*WatchOf(row.get()));
}

CWatchItem *CWatchBar::CurrentRow() const {
    return WatchOf(tree_->GetCurrentItem());
}

// --- A run ---

void CWatchBar::BeginRun() {
    tree_->Fill([this] {
        tree_->DeleteAllItems();
        for (const StoredWatch &watch : LoadWatches(CIDEApp::Get().GetActiveProjectPath(), DefaultFormat()))
            InsertRow(watch.expression, watch.format);
    });
    ShowContent();
}

void CWatchBar::Refresh() {
    if (!IsDebugging()) return;
    const bool sameStop = ReadsStopAgain();
    ForEachRow([sameStop](CWatchItem &row) { row.Refresh(sameStop); });
}

void CWatchBar::BlankValues() {
    ForEachRow([](CWatchItem &row) { row.Blank(); });
}

void CWatchBar::EndRun() {
    tree_->CancelEdit();
    Save();
}

void CWatchBar::Clear() {
    tree_->DeleteAllItems();
    ShowQuietText();
}

void CWatchBar::Save() const {
    const std::string project = CIDEApp::Get().GetActiveProjectPath();
    if (project.empty()) return;
    std::vector<StoredWatch> watches;
    ForEachRow([&](const CWatchItem &row) { watches.push_back({row.Expression(), row.Format()}); });
    StoreWatches(project, watches);
}

// --- Rows ---

void CWatchBar::InsertRow(const std::string &expression, int format) {
    tree_->InsertItem(std::make_unique<CWatchItem>(expression, format, [this] { OnWritten(); }));
}

void CWatchBar::AddWatch(const std::string &text) {
    const std::string expression = CutToLongest(text);
    if (!IsDebugging() || expression.empty()) return;
    InsertRow(expression, DefaultFormat());
    tree_->SelectItem(tree_->Items().back().get());
    Refresh();
}

bool CWatchBar::AskExpression(std::string &expression) {
    std::vector<std::string> names;
    for (const COspreyVar &variable : CIDEApp::Get().debugger.Variables().Variables()) names.push_back(variable.name);
    CQuickWatchDlg dialog(CIDEApp::Get().GetMainFrame(), expression, names);
    if (dialog.exec() != QDialog::Accepted) return false;
    expression = CutToLongest(dialog.Expression());
    return !expression.empty() && IsDebugging();
}

void CWatchBar::AddWatchByDialog(const std::string &text) {
    std::string expression = text;
    if (IsDebugging() && AskExpression(expression)) AddWatch(expression);
}

void CWatchBar::EditExpression(CWatchItem *row) {
    if (!row || !IsDebugging()) return;
    std::string expression = row->Expression();
    if (!AskExpression(expression) || !Holds(row)) return;
    if (row->Expression() != expression) row->SetExpression(expression);
    Refresh();
}

bool CWatchBar::Holds(const CWatchItem *row) const {
    return std::ranges::any_of(tree_->Items(), [row](const auto &each) { return each.get() == row; });
}

void CWatchBar::RemoveSelected() {
    const std::vector<CPropTreeItem *> rows = tree_->SelectedItems();
    if (!IsDebugging() || rows.empty()) return;
    const auto &left = tree_->Items();
    const auto isFirst = [&](const auto &each) { return each.get() == rows.front(); };
    const auto place = std::ranges::find_if(left, isFirst) - left.begin();
    tree_->Fill([&] {
        std::ranges::for_each(rows.rbegin(), rows.rend(), [this](CPropTreeItem *row) { tree_->DeleteItem(row); });
    });
    const auto last = std::ssize(left) - 1;
    if (last >= 0) tree_->SelectItem(left[static_cast<size_t>(std::min(place, last))].get());
}

void CWatchBar::RemoveAll() {
    tree_->DeleteAllItems();
}

void CWatchBar::SetFormat(int format) {
    if (IsForAllRows())
        ForEachRow([format](CWatchItem &row) { row.SetFormat(format); });
    else if (CWatchItem *row = CurrentRow())
        row->SetFormat(format);
}

// Other bars show the same bytes.
void CWatchBar::OnWritten() {
    CIDEApp::Get().GetMainFrame()->DebugBars().RefreshBehindEdit(*this);
    Refresh();
}

void CWatchBar::TakeDrop(const std::string &text) {
    if (IsDebugging())
        AddWatch(text);
    else
        CIDEApp::Get().AddOutputLine(LoadText(IDS_WATCH_NOT_DEBUGGING));
}

// --- Commands ---

void CWatchBar::ShowMenu(CPropTreeItem *row, const QPoint &at) {
    const QScopedValueRollback pointer(menuRow_, WatchOf(row));
    const QScopedValueRollback open(menuOpen_, true);
    CIDEApp::Get().GetMainFrame()->TrackPopupMenu(IDR_WATCH_MENU, at, this);
}

void CWatchBar::MapCommands() {
    const auto whileDebugging = [](CCmdUI &ui) { ui.Enable(IsDebugging()); };
    // Of a menu, the row under the pointer; by key, the one last clicked.
    const auto row = [this] { return !menuOpen_ ? CurrentRow() : Holds(menuRow_) ? menuRow_ : nullptr; };
    const auto onRow = [row](CCmdUI &ui) { ui.Enable(IsDebugging() && row()); };
    OnCommand(
        ID_WATCH_ADD, [this] { AddWatchByDialog({}); }, whileDebugging);
    OnCommand(
        ID_WATCH_EDIT, [this, row] { EditExpression(row()); }, onRow);
    OnCommand(
        ID_WATCH_REMOVE, [this, row] { tree_->DeleteItem(row()); }, onRow);
    OnCommand(
        ID_WATCH_REMOVE_ALL, [this] { RemoveAll(); },
        [this](CCmdUI &ui) { ui.Enable(IsDebugging() && !tree_->Items().empty()); });
    OnCommandRange(
        ID_WATCH_FORMAT_FIRST, ID_WATCH_FORMAT_LAST, [this](int id) { SetFormat(id - ID_WATCH_FORMAT_FIRST); },
        [this, row](CCmdUI &ui) {
            ui.Enable(IsDebugging() && !tree_->Items().empty());
            ui.SetCheck(row() && row()->Format() == ui.id - ID_WATCH_FORMAT_FIRST);
        });
}
