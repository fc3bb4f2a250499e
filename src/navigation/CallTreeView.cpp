#include "navigation/CallTreeView.h"

#include <QVBoxLayout>

#include "app/CommandIds.h"
#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/StringIds.h"
#include "framework/Document.h"
#include "navigation/CallTreeFile.h"
#include "navigation/FunctionJump.h"
#include "platform/PathCalls.h"

CCallTreeView::CCallTreeView(QWidget *parent) : CCodeWindowView(parent), tree_(new CTreeCtrlEx(this)) {
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(tree_);
    setFocusProxy(tree_);
    tree_->setExpandsOnDoubleClick(false);  // it leads to the source
    tree_->onActivate = [this](TreeItem item) { Jump(item); };
    tree_->onMenu = [this](TreeItem, const QPoint &at) {
        CIDEApp::Get().GetMainFrame()->TrackPopupMenu(IDR_TREE_MENU, at, this);
    };
    const auto needsRows = [this](CCmdUI &ui) { ui.Enable(tree_->GetChildCount() > 0); };
    OnCommand(
        ID_TREE_EXPAND_ALL, [this] { tree_->ExpandAll(); }, needsRows);
    OnCommand(
        ID_TREE_COLLAPSE_ALL, [this] { tree_->CollapseAll(); }, needsRows);
}

void CCallTreeView::Load(bool) {
    const std::string path = BuildFilePath(".tree");
    GetDocument()->SetPathName(path, false);
    if (path.empty() || !FileExists(path)) {
        ClearRows();
        return;
    }
    const BuildFileStamp file = StampOf(path);
    if (shown_.IsOf(file)) return;
    ClearRows();
    std::optional<CCallTree> calls;
    if (const auto text = ReadBuildFile(path)) calls = ParseCallTree(*text);
    if (!calls) return;
    calls->Fold();
    tree_->Fill([&] { InsertRows(calls->First(), nullptr); });
    tree_->ExpandAll();
    tree_->scrollToTop();
    shown_ = file;
}

void CCallTreeView::Clear() {
    GetDocument()->SetPathName({}, false);
    ClearRows();
}

void CCallTreeView::ClearRows() {
    tree_->DeleteAllItems();
    locations_.clear();
    shown_.time.reset();
}

void CCallTreeView::InsertRows(const CallTreeNode *first, TreeItem parent) {
    for (const CallTreeNode *node = first; node; node = node->next) {
        if (node->location) locations_.push_back(*node->location);
        const auto data = node->location ? static_cast<intptr_t>(locations_.size()) : 0;
        InsertRows(node->firstChild, tree_->InsertItem(node->name, parent, node->color, data));
    }
}

void CCallTreeView::Jump(TreeItem item) {
    const intptr_t data = tree_->GetItemData(item);
    if (data == 0) return;
    // Copies: what the jump sets off can fill the tree anew.
    const std::string name = tree_->GetItemText(item);
    const CallTreeLocation location = locations_[static_cast<size_t>(data - 1)];
    JumpToFunction(name, location);
}
