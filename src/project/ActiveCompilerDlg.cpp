#include "project/ActiveCompilerDlg.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QVBoxLayout>

#include "app/MainFrame.h"
#include "app/Path.h"
#include "app/StringIds.h"
#include "framework/Language.h"
#include "framework/Text.h"
#include "project/Screen.h"
#include "project/ToolsuiteTable.h"

CActiveCompilerDlg::CActiveCompilerDlg(QWidget *parent, const std::string &selected)
    : QDialog(parent), list_(new QListWidget) {
    setWindowTitle(ToQString(LoadText(IDS_DIALOG_COMPILER)));
    auto *label = new QLabel(ToQString(LoadText(IDS_LABEL_COMPILER)));
    label->setBuddy(list_);
    list_->setSortingEnabled(true);
    ScanToolsuites([this](const CSharedLibrary &library, const std::string &name) {
        if (!list_->findItems(ToQString(name), Qt::MatchExactly | Qt::MatchCaseSensitive).isEmpty()) return;
        auto *item = new QListWidgetItem(ToQString(name), list_);
        item->setData(Qt::UserRole, ToQString(CPath(library.Path()).GetFileName()));
    });
    const auto present = list_->findItems(ToQString(selected), Qt::MatchExactly);
    if (!present.isEmpty()) list_->setCurrentItem(present.front());

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(list_, &QListWidget::itemDoubleClicked, this, [this] { accept(); });

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(list_);
    layout->addWidget(buttons);
    list_->setFocus();
}

void CActiveCompilerDlg::accept() {
    const QListWidgetItem *item = list_->currentItem();
    if (item == nullptr || !item->isSelected()) {
        Frame().ShowError(LoadText(IDS_NO_COMPILER_SELECTED));
        return;
    }
    compiler_ = FromQString(item->text());
    QDialog::accept();
}
