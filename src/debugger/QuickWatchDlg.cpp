#include "debugger/QuickWatchDlg.h"

#include <QComboBox>
#include <QCompleter>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStringList>
#include <QVBoxLayout>

#include "app/StringIds.h"
#include "debugger/WatchList.h"
#include "framework/Language.h"
#include "framework/Text.h"

CQuickWatchDlg::CQuickWatchDlg(QWidget *parent, const std::string &expression, const std::vector<std::string> &names)
    : QDialog(parent), expression_(new QComboBox) {
    setWindowTitle(ToQString(LoadText(IDS_DIALOG_QUICK_WATCH)));
    QStringList list;
    for (const std::string &name : names) list << ToQString(name);
    expression_->setEditable(true);
    expression_->setInsertPolicy(QComboBox::NoInsert);
    expression_->addItems(list);
    // Names are offered in a list; one that completed itself would take the place of a shorter one that is meant.
    expression_->completer()->setCompletionMode(QCompleter::PopupCompletion);
    expression_->completer()->setFilterMode(Qt::MatchContains);
    expression_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    expression_->setMinimumContentsLength(40);
    QLineEdit &line = *expression_->lineEdit();
    line.setMaxLength(kLongestWatch);
    line.setText(ToQString(expression));
    line.selectAll();

    auto *label = new QLabel(ToQString(LoadText(IDS_LABEL_EXPRESSION)));
    label->setBuddy(expression_);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(expression_);
    layout->addSpacing(fontMetrics().height() / 2);
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    expression_->setFocus();

    QPushButton *const ok = buttons->button(QDialogButtonBox::Ok);
    const auto enable = [this, ok] { ok->setEnabled(!Expression().empty()); };
    connect(expression_, &QComboBox::editTextChanged, this, enable);
    enable();
}

std::string CQuickWatchDlg::Expression() const {
    return FromQString(expression_->currentText().trimmed());
}
