#include "editor/GotoLineDlg.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QSpinBox>

#include "app/StringIds.h"
#include "framework/Language.h"
#include "framework/Text.h"

CGotoLineDlg::CGotoLineDlg(QWidget *parent, int line, int lineCount) : QDialog(parent), line_(new QSpinBox(this)) {
    setWindowTitle(ToQString(LoadText(IDS_DIALOG_GOTO_LINE)));
    line_->setRange(1, lineCount);
    line_->setValue(line);
    line_->selectAll();
    line_->setMinimumWidth(line_->fontMetrics().averageCharWidth() * 16);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *layout = new QFormLayout(this);
    layout->addRow(ToQString(LoadText(IDS_LABEL_LINE, {std::to_string(lineCount)})), line_);
    layout->addRow(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

int CGotoLineDlg::Line() const {
    return line_->value();
}
