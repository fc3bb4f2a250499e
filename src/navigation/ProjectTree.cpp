#include "navigation/ProjectTree.h"

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>
#include <QScrollBar>
#include <QUrl>

#include "app/CommandIds.h"
#include "app/StringIds.h"
#include "framework/Text.h"
#include "navigation/BarTree.h"
#include "navigation/WorkspaceBarHost.h"
#include "platform/NativePath.h"
#include "platform/PathCalls.h"

namespace {

constexpr QColor kLightBand(0xe0, 0xf0, 0xff);  // behind the active project's rows
constexpr double kDarkBandStrength = 0.16;      // of the highlight colour over a dark ground
constexpr int kDarkGround = 128;                // lightness below which the desktop counts as dark

QColor BandColor(const QPalette &palette) {
    const QColor ground = palette.color(QPalette::Base);
    if (ground.lightness() >= kDarkGround) return kLightBand;
    const QColor tint = palette.color(QPalette::Highlight);
    const auto mix = [](int from, int to) { return from + qRound((to - from) * kDarkBandStrength); };
    return QColor(mix(ground.red(), tint.red()), mix(ground.green(), tint.green()), mix(ground.blue(), tint.blue()));
}

bool IsReturn(int key) {
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

Qt::KeyboardModifiers ModifiersOf(const QKeyEvent &event) {
    return event.modifiers() & ~Qt::KeypadModifier;
}

// Keys that mean something to a row before they mean something to the program.
bool IsRowKey(int key) {
    return IsReturn(key) || key == Qt::Key_Delete || key == Qt::Key_Insert;
}

bool HoldsProjects(const std::string &file) {
    const std::string extension = _splitpath(file).extension;
    return EqualNoCase(extension, ".__c") || EqualNoCase(extension, ".__w");
}

}  // namespace

struct CProjectTree::Place {
    struct Spot {
        std::string project;
        RowKind kind = RowKind::none;
        std::string path;
    };
    struct Folding {
        std::string project;
        bool expanded = false;
        bool hasFolder = false;
        bool folderExpanded = false;
    };
    Spot current;
    int firstVisible = 0;
    std::vector<Folding> projects;
};

CProjectTree::CProjectTree(CWorkspaceBarHost &host, QWidget *parent)
    : QTreeView(parent), host_(host), model_(new CProjectTreeModel(this)) {
    setModel(model_);
    SetUpBarTree(*this);
    setAcceptDrops(true);
    MapCommands();
}

CProjectTree::Place CProjectTree::NotePlace() {
    Place place;
    const QModelIndex current = currentIndex();
    place.current = {model_->ProjectOf(current), model_->KindOf(current), model_->PathOf(current)};
    place.firstVisible = FirstVisibleRow();
    for (int row = 0; row < model_->rowCount(); ++row) {
        const QModelIndex index = model_->index(row, 0);
        Place::Folding folding{model_->PathOf(index), isExpanded(index)};
        const QModelIndex folder = model_->FindOutputFolder(folding.project);
        folding.hasFolder = folder.isValid();
        folding.folderExpanded = folding.hasFolder && isExpanded(folder);
        place.projects.push_back(std::move(folding));
    }
    return place;
}

void CProjectTree::RestorePlace(const Place &place) {
    // A project that is new shows its rows when it is the active one; its output folder is open.
    for (int row = 0; row < model_->rowCount(); ++row) {
        const QModelIndex index = model_->index(row, 0);
        setExpanded(index, model_->InActiveProject(index));
        const QModelIndex folder = model_->FindOutputFolder(model_->PathOf(index));
        if (folder.isValid()) setExpanded(folder, true);
    }
    for (const Place::Folding &folding : place.projects) {
        const QModelIndex index = model_->FindProject(folding.project);
        if (index.isValid()) setExpanded(index, folding.expanded);
        const QModelIndex folder = model_->FindOutputFolder(folding.project);
        if (folder.isValid() && folding.hasFolder) setExpanded(folder, folding.folderExpanded);
    }
    const QModelIndex current = model_->FindRow(place.current.project, place.current.kind, place.current.path);
    if (current.isValid()) setCurrentIndex(current);
    SetFirstVisibleRow(place.firstVisible);
}

void CProjectTree::Fill() {
    const Place place = NotePlace();
    model_->SetProjects(host_.Projects());
    RestorePlace(place);
}

void CProjectTree::Clear() {
    model_->Clear();
}

void CProjectTree::AddProject(const std::string &project) {
    if (!host_.HoldsManyProjects()) {  // it took the place of another
        Fill();
        return;
    }
    const std::optional<ProjectEntry> entry = host_.Project(project);
    if (!entry) return;
    const Place place = NotePlace();
    model_->AddProject(*entry);
    RestorePlace(place);
}

void CProjectTree::RemoveProject(const std::string &project) {
    model_->RemoveProject(host_.ProjectPath(project));
}

void CProjectTree::MarkActiveProject() {
    const std::string project = host_.ActiveProject();
    const QModelIndex index = model_->FindProject(project);
    const bool isNew = !model_->InActiveProject(index);
    model_->SetActiveProject(project);
    if (index.isValid() && isNew) expand(index);
    viewport()->update();
}

void CProjectTree::AddFile(const std::string &project, const std::string &file) {
    model_->AddFile(host_.ProjectPath(project), host_.File(project, file));
}

void CProjectTree::RemoveFile(const std::string &project, const std::string &file) {
    model_->RemoveFile(host_.ProjectPath(project), host_.File(project, file).path);
}

void CProjectTree::RebuildOutputRows() {
    const Place place = NotePlace();
    for (const Place::Folding &folding : place.projects) {
        model_->SetOutputs(host_.Outputs(folding.project));
        const QModelIndex folder = model_->FindOutputFolder(folding.project);
        if (folder.isValid()) expand(folder);
    }
    model_->LookForFiles();
    const QModelIndex current = model_->FindRow(place.current.project, place.current.kind, place.current.path);
    if (current.isValid() && current != currentIndex()) setCurrentIndex(current);
    SetFirstVisibleRow(place.firstVisible);
}

int CProjectTree::FirstVisibleRow() {
    executeDelayedItemsLayout();
    return verticalScrollBar()->value();  // the tree scrolls by rows
}

void CProjectTree::SetFirstVisibleRow(int row) {
    executeDelayedItemsLayout();
    updateGeometries();
    verticalScrollBar()->setValue(row);
}

std::string CProjectTree::SelectedProject() const {
    const std::string project = model_->ProjectOf(currentIndex());
    return project.empty() ? host_.ActiveProject() : project;
}

std::string CProjectTree::SelectedFile() const {
    const QModelIndex index = currentIndex();
    return model_->KindOf(index) == RowKind::file ? model_->PathOf(index) : std::string();
}

void CProjectTree::OpenRow(const QModelIndex &index) {
    const RowKind kind = model_->KindOf(index);
    if (kind == RowKind::file || kind == RowKind::outputFile) {
        host_.OpenFile(model_->PathOf(index));
        return;
    }
    if (index.isValid()) setExpanded(index, !isExpanded(index));
}

bool CProjectTree::event(QEvent *event) {
    if (event->type() == QEvent::ShortcutOverride) {
        const auto *key = static_cast<QKeyEvent *>(event);
        if (ModifiersOf(*key) == Qt::NoModifier && IsRowKey(key->key())) event->accept();
    }
    return QTreeView::event(event);
}

void CProjectTree::changeEvent(QEvent *event) {
    // Another program can have made or deleted files while the user was there.
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) model_->LookForFiles();
    QTreeView::changeEvent(event);
}

void CProjectTree::drawRow(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const {
    if (model_->InActiveProject(index)) painter->fillRect(option.rect, BandColor(palette()));
    QTreeView::drawRow(painter, option, index);
}

void CProjectTree::mouseDoubleClickEvent(QMouseEvent *event) {
    const QModelIndex index = indexAt(event->position().toPoint());
    if (event->button() != Qt::LeftButton || !index.isValid()) {
        QTreeView::mouseDoubleClickEvent(event);
        return;
    }
    setCurrentIndex(index);
    if (event->modifiers() & Qt::ControlModifier) {
        MakeProjectActive(model_->ProjectOf(index));
    } else {
        OpenRow(index);
    }
    event->accept();
}

void CProjectTree::keyPressEvent(QKeyEvent *event) {
    const Qt::KeyboardModifiers modifiers = ModifiersOf(*event);
    if (IsReturn(event->key()) && modifiers == Qt::ControlModifier) {
        MakeProjectActive(model_->ProjectOf(currentIndex()));
    } else if (IsReturn(event->key()) && modifiers == Qt::NoModifier) {
        OpenRow(currentIndex());
    } else if (event->key() == Qt::Key_Delete && modifiers == Qt::NoModifier) {
        RemoveSelectedFile();
    } else if (event->key() == Qt::Key_Insert && modifiers == Qt::NoModifier) {
        SendCommand(*this, ID_PROJECT_ADD_FILES);
    } else {
        QTreeView::keyPressEvent(event);
    }
}

void CProjectTree::contextMenuEvent(QContextMenuEvent *event) {
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const QModelIndex index = byKey ? currentIndex() : indexAt(event->pos());
    if (!byKey) setCurrentIndex(index);
    const QPoint at =
        byKey && index.isValid() ? viewport()->mapToGlobal(visualRect(index).center()) : event->globalPos();
    event->accept();
    switch (model_->KindOf(index)) {
        case RowKind::none:
        case RowKind::empty:
            if (host_.IsOpen()) host_.ShowMenu(IDR_WORKSPACE_MENU_ROOT, at, *this);
            return;
        case RowKind::project:
            host_.ShowMenu(IDR_WORKSPACE_MENU_PROJECT, at, *this);
            return;
        case RowKind::file:
            host_.ShowMenu(IDR_WORKSPACE_MENU_FILE, at, *this);
            return;
        case RowKind::outputFolder:
        case RowKind::outputFile:
            host_.ShowMenu(IDR_WORKSPACE_MENU_OUTPUTS, at, *this);
            return;
    }
}

void CProjectTree::OfferDrop(QDropEvent &drag) const {
    if (!drag.mimeData()->hasUrls()) return;
    drag.setDropAction(Qt::CopyAction);  // the files stay where they are
    drag.accept();
}

void CProjectTree::TakeDrop(QDropEvent &drop) {
    OfferDrop(drop);
    const std::string project = host_.ActiveProject();
    std::vector<std::string> added, opened;
    for (const QUrl &url : drop.mimeData()->urls()) {
        if (!url.isLocalFile()) continue;
        const std::string file = FromNativePath(FromQString(url.toLocalFile()));
        if (!FileExists(file)) continue;
        (project.empty() || HoldsProjects(file) ? opened : added).push_back(file);
    }
    if (!added.empty()) host_.AddFiles(project, added);
    for (const std::string &file : opened) host_.OpenFile(file);
}

void CProjectTree::dragEnterEvent(QDragEnterEvent *event) {
    OfferDrop(*event);
}

void CProjectTree::dragMoveEvent(QDragMoveEvent *event) {
    OfferDrop(*event);
}

void CProjectTree::dropEvent(QDropEvent *event) {
    TakeDrop(*event);
}
