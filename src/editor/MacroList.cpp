#include "editor/MacroList.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

#include "app/StringIds.h"
#include "editor/UserMacros.h"
#include "framework/Language.h"
#include "framework/Text.h"

CMacroList::CMacroList(QWidget *parent) : QDialog(parent), macros_(new QListWidget(this)) {
    setWindowTitle(ToQString(LoadText(IDS_DIALOG_MACROS)));
    for (int i = 0; i < UserMacroCount(); ++i)
        if (const std::string name = UserMacroName(i); !name.empty()) macros_->addItem(ToQString(name));
    macros_->setCurrentRow(0);
    auto *label = new QLabel(ToQString(LoadText(IDS_LABEL_MACROS)), this);
    label->setBuddy(macros_);

    auto *remove = new QPushButton(ToQString(LoadText(IDS_MACRO_DELETE)), this);
    auto *removeAll = new QPushButton(ToQString(LoadText(IDS_MACRO_DELETE_ALL)), this);
    const auto enable = [this, remove, removeAll] {
        remove->setEnabled(macros_->currentItem() != nullptr);
        removeAll->setEnabled(macros_->count() > 0);
    };
    connect(remove, &QPushButton::clicked, this, [this, enable] {
        delete macros_->currentItem();
        macros_->setCurrentRow(0);
        enable();
    });
    connect(removeAll, &QPushButton::clicked, this, [this, enable] {
        macros_->clear();
        enable();
    });
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    for (QPushButton *button : {remove, removeAll}) button->setAutoDefault(false);
    enable();

    auto *layout = new QGridLayout(this);
    layout->addWidget(label, 0, 0);
    layout->addWidget(macros_, 1, 0, 3, 1);
    layout->addWidget(remove, 1, 1);
    layout->addWidget(removeAll, 2, 1);
    layout->setRowStretch(3, 1);
    layout->addWidget(buttons, 4, 0, 1, 2);
}

std::vector<std::string> CMacroList::Names() const {
    std::vector<std::string> names;
    for (int row = 0; row < macros_->count(); ++row) names.push_back(FromQString(macros_->item(row)->text()));
    return names;
}
