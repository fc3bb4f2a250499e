#include "navigation/OutputListDlg.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "app/MainFrame.h"
#include "app/StringIds.h"
#include "framework/Language.h"
#include "framework/Text.h"
#include "project/Screen.h"

namespace {

constexpr int kColumns = 56, kLines = 5;  // of text on show

}  // namespace

COutputListDlg::COutputListDlg(QWidget *parent, const std::string &project, const std::string &list,
                               const std::string &defaults)
    : QDialog(parent), list_(new QPlainTextEdit) {
    setWindowTitle(ToQString(LoadText(IDS_DIALOG_OUTPUT_LIST)));
    auto *label = new QLabel(ToQString(LoadText(IDS_LABEL_OUTPUT_LIST, {project})));
    label->setBuddy(list_);
    list_->setTabChangesFocus(true);
    list_->setPlainText(ToQString(list));
    list_->moveCursor(QTextCursor::End);
    list_->setMinimumSize(kColumns * fontMetrics().averageCharWidth(), (kLines + 1) * fontMetrics().lineSpacing());
    auto *hint = new QLabel(ToQString(LoadText(IDS_OUTPUT_LIST_HINT, {"%name%", "%config%", "%target%"})));
    hint->setWordWrap(true);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    const auto *reset = buttons->addButton(ToQString(LoadText(IDS_OUTPUT_LIST_DEFAULT)), QDialogButtonBox::ResetRole);
    connect(reset, &QPushButton::clicked, this, [this, defaults] { list_->setPlainText(ToQString(defaults)); });
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(list_, 1);
    layout->addWidget(hint);
    layout->addWidget(buttons);
    list_->setFocus();
}

std::string COutputListDlg::List() const {
    std::string list = FromQString(list_->toPlainText());
    std::ranges::replace(list, '\n', ';');
    return list;
}

void COutputListDlg::accept() {
    if (List().size() > kLongestOutputList) {
        Frame().ShowWarning(LoadText(IDS_OUTPUT_LIST_TOO_LONG, {std::to_string(kLongestOutputList)}));
        return;
    }
    QDialog::accept();
}
