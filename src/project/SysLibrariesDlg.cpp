#include "project/SysLibrariesDlg.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/StringIds.h"
#include "framework/Language.h"
#include "framework/Text.h"
#include "platform/FileFind.h"
#include "platform/PathCalls.h"
#include "platform/ProgramDirectory.h"

std::vector<std::string> FindSystemLibraries(const std::string &target) {
    const std::string lower = LowerCase(target);
    const char *mask = "*.lib";
    if (lower.find("pic16") != std::string::npos)
        mask = "*pic16*.lib";
    else if (lower.find("pic18") != std::string::npos)
        mask = "*pic18*.lib";

    std::vector<std::string> libraries;
    for (const std::string prefix : {"", "large\\"})
        for (const FoundFile &file : FindFiles(ProgramFile("Lib\\" + prefix + mask)))
            if ((file.attributes & kFileAttributeDirectory) == 0) libraries.push_back(prefix + file.name);
    return libraries;
}

CSysLibrariesDlg::CSysLibrariesDlg(QWidget *parent, const std::string &target)
    : QDialog(parent), list_(new QListWidget) {
    setWindowTitle(ToQString(LoadText(IDS_DIALOG_LIBRARIES)));
    auto *label = new QLabel(ToQString(LoadText(IDS_LABEL_LIBRARIES)));
    label->setBuddy(list_);
    for (const std::string &library : FindSystemLibraries(target)) list_->addItem(ToQString(library));

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(list_, &QListWidget::itemDoubleClicked, this, &QDialog::accept);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(list_);
    layout->addWidget(buttons);
    list_->setFocus();
}

std::string CSysLibrariesDlg::GetSelection() const {
    const auto selected = list_->selectedItems();
    return selected.isEmpty() ? "" : FromQString(selected.front()->text());
}
