#include "debugger/BreakpointsDlg.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QListWidget>
#include <QPushButton>
#include <algorithm>
#include <tuple>

#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/StringIds.h"
#include "debugger/BreakpointCommands.h"
#include "editor/IDEDoc.h"
#include "editor/IDEView.h"
#include "framework/Language.h"
#include "framework/MDIChildWnd.h"
#include "framework/Text.h"
#include "platform/NativePath.h"
#include "platform/PathCalls.h"

std::string BreakpointRowText(const CMarker &marker) {
    const CBreakpointProps &props = *marker.props;
    const char *const depends = props.useCond && props.useHit ? " (hit,cond)"
                                : props.useCond               ? " (cond)"
                                : props.useHit                ? " (hit)"
                                                              : "";
    return marker.path.GetFileName() + ':' + std::to_string(marker.line) + depends;
}

CBreakpointsDlg::CBreakpointsDlg(QWidget *parent) : QDialog(parent), list_(new QListWidget(this)) {
    setWindowTitle(ToQString(LoadText(IDS_DIALOG_BREAKPOINTS)));
    list_->setUniformItemSizes(true);
    list_->setAccessibleName(windowTitle());

    auto *buttons = new QDialogButtonBox(Qt::Vertical, this);
    const auto add = [&](int text, void (CBreakpointsDlg::*run)()) {
        QPushButton *button = buttons->addButton(ToQString(LoadText(text)), QDialogButtonBox::ActionRole);
        connect(button, &QPushButton::clicked, this, run);
        return button;
    };
    goTo_ = add(IDS_BREAKPOINTS_GOTO, &CBreakpointsDlg::GoToSelected);
    properties_ = add(IDS_BREAKPOINTS_PROPERTIES, &CBreakpointsDlg::EditSelected);
    remove_ = add(IDS_BREAKPOINTS_REMOVE, &CBreakpointsDlg::RemoveSelected);
    removeAll_ = add(IDS_BREAKPOINTS_REMOVE_ALL, &CBreakpointsDlg::RemoveAll);
    buttons->addButton(QDialogButtonBox::Close);
    goTo_->setDefault(true);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(list_, &QListWidget::itemDoubleClicked, this, &CBreakpointsDlg::GoToSelected);
    connect(list_, &QListWidget::currentRowChanged, this, &CBreakpointsDlg::UpdateButtons);
    list_->installEventFilter(this);

    auto *row = new QHBoxLayout(this);
    row->addWidget(list_, 1);
    row->addWidget(buttons);
    Fill(0);
    list_->setCurrentRow(RowOfCaret());
    const int line = fontMetrics().height();
    resize(line * 26, line * 16);
    list_->setFocus();
}

// In the order of names and lines: that of the list changes with each edit.
void CBreakpointsDlg::Fill(int selected) {
    struct Row {
        std::string name;
        Place place;
        const CMarker *marker;
    };
    std::vector<Row> rows;
    for (const CMarker &marker : CIDEApp::Get().breakpoints.Markers())
        rows.push_back({LowerCase(marker.path.GetFileName()), {marker.File(), marker.line}, &marker});
    std::ranges::sort(rows, {}, [](const Row &row) { return std::tie(row.name, row.place.file, row.place.line); });

    places_.clear();
    list_->clear();
    for (Row &row : rows) {
        auto *item = new QListWidgetItem(ToQString(BreakpointRowText(*row.marker)), list_);
        item->setToolTip(ToQString(TextOfPlace(IDS_BREAKPOINT_PLACE, *row.marker)));
        places_.push_back(std::move(row.place));
    }
    list_->setCurrentRow(std::min(selected, list_->count() - 1));
    UpdateButtons();
}

int CBreakpointsDlg::RowOfCaret() const {
    const auto *view = dynamic_cast<const CIDEView *>(CIDEApp::Get().GetMainFrame()->GetActiveView());
    if (!view || !view->GetDocument()) return 0;
    const auto at = std::ranges::find_if(places_, [&](const Place &place) {
        return place.line == view->CaretLine() && EqualNoCase(place.file, view->GetDocument()->GetPathName());
    });
    return at == places_.end() ? 0 : static_cast<int>(at - places_.begin());
}

void CBreakpointsDlg::UpdateButtons() {
    for (QPushButton *button : {goTo_, properties_, remove_}) button->setEnabled(list_->currentRow() >= 0);
    removeAll_->setEnabled(list_->count() > 0);
}

bool CBreakpointsDlg::eventFilter(QObject *object, QEvent *event) {
    if (event->type() != QEvent::KeyPress || static_cast<QKeyEvent *>(event)->key() != Qt::Key_Delete)
        return QDialog::eventFilter(object, event);
    RemoveSelected();
    return true;
}

CMarker *CBreakpointsDlg::Selected() {
    const int row = list_->currentRow();
    if (row < 0) return nullptr;
    const Place &place = places_[static_cast<size_t>(row)];
    CMarker *const marker = CIDEApp::Get().breakpoints.Find(place.file, place.line);
    if (!marker) {
        CIDEApp::Get().GetMainFrame()->ShowError(LoadText(IDS_BREAKPOINT_GONE));
        reject();
    }
    return marker;
}

void CBreakpointsDlg::RemoveSelected() {
    CMarker *const marker = Selected();
    if (!marker) return;
    const std::string refusal = BoxText(TextOfPlace(IDS_BREAKPOINT_NOT_DELETED, *marker));
    if (RemoveBreakpoint(*marker))
        Fill(list_->currentRow());
    else
        CIDEApp::Get().GetMainFrame()->ShowError(refusal);
}

void CBreakpointsDlg::RemoveAll() {
    std::vector<CMarker *> markers;
    for (CMarker &marker : CIDEApp::Get().breakpoints.Markers()) markers.push_back(&marker);
    std::string refusal;
    for (CMarker *marker : markers)
        if (std::string words = BoxText(TextOfPlace(IDS_BREAKPOINT_NOT_DELETED, *marker)); !RemoveBreakpoint(*marker))
            refusal = std::move(words);
    Fill(0);
    if (!refusal.empty()) CIDEApp::Get().GetMainFrame()->ShowError(refusal);
}

void CBreakpointsDlg::GoToSelected() {
    const CMarker *const marker = Selected();
    if (!marker) return;
    const std::string file = marker->File();
    const int line = marker->line;
    CIDEDoc *document = FindDocumentOf(file);
    if (!document) {
        document = dynamic_cast<CIDEDoc *>(CIDEApp::Get().FindOrOpenDocument(file, true));
        Fill(list_->currentRow());  // what the file holds now can have fewer lines
    }
    if (!document) {
        CIDEApp::Get().GetMainFrame()->ShowError(BoxText(LoadText(IDS_CANT_READ_FILE, {DisplayPath(file)})));
        return;
    }
    for (CIDEView *view : document->GetCodeViews()) {
        view->SelectWholeLine(line);
        view->ShowViewLine(line, false);
    }
    if (CIDEView *view = document->GetFirstCodeView()) view->GetParentFrame()->ActivateFrame();
}

void CBreakpointsDlg::EditSelected() {
    const CMarker *const marker = Selected();
    if (!marker) return;
    const Place place = places_[static_cast<size_t>(list_->currentRow())];
    EditBreakpointProperties(this, *marker);
    const CMarker *const edited = CIDEApp::Get().breakpoints.Find(place.file, place.line);
    if (edited && list_->currentItem()) list_->currentItem()->setText(ToQString(BreakpointRowText(*edited)));
}
