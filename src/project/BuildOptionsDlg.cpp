#include "project/BuildOptionsDlg.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/StringIds.h"
#include "framework/Language.h"
#include "framework/Text.h"
#include "project/CurrentWorkspace.h"
#include "project/Workspace.h"

CBuildOptionsDlg::CBuildOptionsDlg(QWidget *parent) : QDialog(parent), list_(new QListWidget) {
    setWindowTitle(ToQString(LoadText(IDS_DIALOG_BUILD_OPTIONS)));
    auto *label = new QLabel(ToQString(LoadText(IDS_LABEL_BUILD_STEPS)));
    label->setBuddy(list_);
    const CWorkspace &workspace = WorkspaceOrNone();
    for (int step = 0; step < workspace.GetToolsNumber(); ++step) {
        auto *item = new QListWidgetItem(ToQString(workspace.GetToolActionName({}, step)), list_);
        item->setCheckState(workspace.IsToolActive({}, step) ? Qt::Checked : Qt::Unchecked);
    }
    if (list_->count() > 0) list_->setCurrentRow(0);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Apply);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(buttons->button(QDialogButtonBox::Apply), &QPushButton::clicked, this, [this] { Send(true); });

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(list_);
    layout->addWidget(buttons);
    list_->setFocus();
}

void CBuildOptionsDlg::Send(bool changing) {
    for (int step = 0; step < list_->count(); ++step)
        WorkspaceOrNone().SetToolActive({}, step, list_->item(step)->checkState() == Qt::Checked, changing);
}

void CBuildOptionsDlg::accept() {
    Send(false);
    QDialog::accept();
}
