#include "framework/WindowsDlg.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "framework/Document.h"
#include "framework/MDIChildWnd.h"
#include "framework/MDIFrameWnd.h"
#include "framework/Text.h"
#include "platform/NativePath.h"

namespace {

enum Column { kName, kFolder };

// A row keeps its window's place among the children, not the window, which may be gone by then.
constexpr int kPlace = Qt::UserRole;

}  // namespace

CWindowsDlg::CWindowsDlg(CMDIFrameWnd *frame, const Texts &texts) : QDialog(frame), frame_(frame) {
    setWindowTitle(ToQString(texts.title));
    list_ = new QTreeWidget(this);
    list_->setHeaderLabels({ToQString(texts.nameColumn), ToQString(texts.folderColumn)});
    list_->setRootIsDecorated(false);
    list_->setUniformRowHeights(true);
    list_->setAllColumnsShowFocus(true);
    list_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    list_->setTextElideMode(Qt::ElideMiddle);
    auto *label = new QLabel(ToQString(texts.list), this);
    label->setBuddy(list_);

    auto *buttons = new QDialogButtonBox(Qt::Vertical, this);
    activate_ = buttons->addButton(ToQString(texts.activate), QDialogButtonBox::ActionRole);
    save_ = buttons->addButton(ToQString(texts.save), QDialogButtonBox::ActionRole);
    close_ = buttons->addButton(ToQString(texts.closeWindows), QDialogButtonBox::ActionRole);
    buttons->addButton(QDialogButtonBox::Close);
    activate_->setDefault(true);

    auto *layout = new QVBoxLayout(this);
    auto *row = new QHBoxLayout;
    row->addWidget(list_, 1);
    row->addWidget(buttons);
    layout->addWidget(label);
    layout->addLayout(row);

    connect(activate_, &QPushButton::clicked, this, &CWindowsDlg::Activate);
    connect(save_, &QPushButton::clicked, this, &CWindowsDlg::SaveSelected);
    connect(close_, &QPushButton::clicked, this, &CWindowsDlg::CloseSelected);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(list_, &QTreeWidget::itemDoubleClicked, this, &CWindowsDlg::Activate);
    connect(list_, &QTreeWidget::itemSelectionChanged, this, &CWindowsDlg::UpdateButtons);
    list_->installEventFilter(this);

    Fill();
    const int line = fontMetrics().height();
    resize(line * 36, line * 20);
    list_->setColumnWidth(kName, line * 11);
    list_->setFocus();
}

void CWindowsDlg::Fill() {
    const std::vector<CMDIChildWnd *> children = frame_->Children();
    list_->clear();
    for (size_t place = 0; place < children.size(); ++place) {
        const CDocument *document = children[place]->GetActiveDocument();
        const QString title = ToQString(document->GetTitle());  // the path with the star of a changed document
        const QString path = ToQString(DisplayPath(document->GetPathName()));
        auto *row = new QTreeWidgetItem(list_);
        row->setText(kName, title.mid(title.lastIndexOf('/') + 1));
        row->setText(kFolder, path.left(path.lastIndexOf('/')));
        row->setToolTip(kName, title);
        row->setToolTip(kFolder, path);
        row->setData(kName, kPlace, static_cast<int>(place));
        if (children[place] == frame_->MDIGetActive()) list_->setCurrentItem(row);
    }
    if (!list_->currentItem() && list_->topLevelItemCount() > 0) list_->setCurrentItem(list_->topLevelItem(0));
    UpdateButtons();
}

std::vector<CMDIChildWnd *> CWindowsDlg::Selected() const {
    const std::vector<CMDIChildWnd *> children = frame_->Children();
    std::vector<CMDIChildWnd *> selected;
    for (const QTreeWidgetItem *row : list_->selectedItems())
        if (const auto place = static_cast<size_t>(row->data(kName, kPlace).toInt()); place < children.size())
            selected.push_back(children[place]);
    return selected;
}

void CWindowsDlg::UpdateButtons() {
    const std::vector<CMDIChildWnd *> selected = Selected();
    activate_->setEnabled(selected.size() == 1);
    close_->setEnabled(!selected.empty());
    save_->setEnabled(std::ranges::any_of(
        selected, [](const CMDIChildWnd *child) { return child->GetActiveDocument()->IsModified(); }));
}

bool CWindowsDlg::eventFilter(QObject *object, QEvent *event) {
    if (event->type() != QEvent::KeyPress || static_cast<QKeyEvent *>(event)->key() != Qt::Key_Delete)
        return QDialog::eventFilter(object, event);
    CloseSelected();
    return true;
}

void CWindowsDlg::Activate() {
    const std::vector<CMDIChildWnd *> selected = Selected();
    if (selected.size() != 1) return;
    accept();
    selected.front()->ActivateFrame();
}

void CWindowsDlg::SaveSelected() {
    for (const CMDIChildWnd *child : Selected())
        if (child->GetActiveDocument()->IsModified() && !child->GetActiveDocument()->DoFileSave()) break;
    Fill();
}

void CWindowsDlg::CloseSelected() {
    for (CMDIChildWnd *child : Selected()) {
        const size_t before = frame_->Children().size();
        child->close();
        if (frame_->Children().size() == before) break;  // the user wants to keep it
    }
    Fill();
}
