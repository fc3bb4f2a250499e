#include "navigation/ExtraBrowseLocationsDlg.h"

#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>

#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/Path.h"
#include "app/StringIds.h"
#include "framework/FileDialog.h"
#include "framework/Language.h"
#include "framework/Text.h"
#include "navigation/ExtraLocations.h"
#include "platform/NativePath.h"
#include "platform/PathCalls.h"
#include "project/AddFileDialogs.h"

namespace {

constexpr int kStored = Qt::UserRole;  // the location as it is stored
constexpr QSize kFirstSize(520, 280);

std::string LocationOf(const QListWidgetItem &row) {
    return FromQString(row.data(kStored).toString());
}

}  // namespace

CExtraBrowseLocationsDlg::CExtraBrowseLocationsDlg(QWidget *parent, std::string file)
    : QDialog(parent), file_(std::move(file)), list_(new QListWidget) {
    setWindowTitle(ToQString(LoadText(IDS_DIALOG_EXTRA_LOCATIONS)));
    auto *label = new QLabel(ToQString(LoadText(IDS_LABEL_EXTRA_LOCATIONS)));
    label->setBuddy(list_);
    list_->setTextElideMode(Qt::ElideMiddle);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    const auto addButton = [&](int text, void (CExtraBrowseLocationsDlg::*act)()) {
        auto *button = new QPushButton(ToQString(LoadText(text)));
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, act);
        return button;
    };
    auto *side = new QVBoxLayout;
    side->addWidget(addButton(IDS_LOCATION_ADD_FILES, &CExtraBrowseLocationsDlg::AddFiles));
    side->addWidget(addFolder_ = addButton(IDS_LOCATION_ADD_FOLDER, &CExtraBrowseLocationsDlg::AddFolder));
    side->addWidget(remove_ = addButton(IDS_LOCATION_REMOVE, &CExtraBrowseLocationsDlg::Remove));
    side->addStretch();
    auto *row = new QHBoxLayout;
    row->addWidget(list_, 1);
    row->addLayout(side);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addLayout(row);
    layout->addWidget(buttons);
    resize(kFirstSize);

    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(list_, &QListWidget::itemSelectionChanged, this, &CExtraBrowseLocationsDlg::UpdateButtons);
    auto *deleteKey = new QShortcut(QKeySequence::Delete, list_, nullptr, nullptr, Qt::WidgetShortcut);
    connect(deleteKey, &QShortcut::activated, this, &CExtraBrowseLocationsDlg::Remove);

    if (!file_.empty())
        for (const std::string &location : ReadExtraLocations(file_)) Append(location);
    list_->setCurrentRow(0);
    list_->setFocus();
    UpdateButtons();
}

void CExtraBrowseLocationsDlg::Add(const std::string &location) {
    for (int i = 0; i < list_->count(); ++i)
        if (NamesOneFile(LocationOf(*list_->item(i)), location)) return;
    Append(location);
}

void CExtraBrowseLocationsDlg::Append(const std::string &location) {
    if (location.empty()) return;
    auto *row = new QListWidgetItem(ToQString(DisplayPath(location)), list_);
    row->setData(kStored, ToQString(location));
    row->setToolTip(row->text());
}

void CExtraBrowseLocationsDlg::AddFiles() {
    for (const std::string &path : AskForFilesToAdd({})) Add(path);
    if (!list_->currentItem()) list_->setCurrentRow(0);
    UpdateButtons();
}

void CExtraBrowseLocationsDlg::AddFolder() {
    CFileDialog dialog(CFileDialog::Kind::folder);
    dialog.title = LoadText(IDS_LOCATION_CHOOSE_FOLDER);
    dialog.initialDirectory = CPath(file_).GetDirectory();
    if (dialog.DoModal(this)) Add(dialog.paths.front());
    if (!list_->currentItem()) list_->setCurrentRow(0);
    UpdateButtons();
}

void CExtraBrowseLocationsDlg::Remove() {
    const int row = list_->currentRow();
    if (row < 0 || !remove_->isEnabled()) return;
    delete list_->takeItem(row);
    list_->setCurrentRow(std::max(0, row - 1));
    UpdateButtons();
}

void CExtraBrowseLocationsDlg::UpdateButtons() {
    addFolder_->setEnabled(!file_.empty());
    remove_->setEnabled(!file_.empty() && list_->currentItem() && list_->currentItem()->isSelected());
}

void CExtraBrowseLocationsDlg::accept() {
    std::vector<std::string> locations;
    for (int i = 0; i < list_->count(); ++i) locations.push_back(LocationOf(*list_->item(i)));
    if (!file_.empty() && !WriteExtraLocations(file_, locations)) {
        if (CMainFrame *frame = CIDEApp::Get().GetMainFrame())
            frame->ShowError(LoadText(IDS_EXTRA_LOCATIONS_NOT_SAVED, {DisplayPath(file_)}));
        return;
    }
    QDialog::accept();
}
