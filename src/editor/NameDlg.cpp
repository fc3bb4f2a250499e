#include "editor/NameDlg.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>

#include "app/StringIds.h"
#include "framework/Language.h"
#include "framework/Text.h"

CNameDlg::CNameDlg(QWidget *parent, const std::string &title) : QDialog(parent), name_(new QLineEdit(this)) {
    setWindowTitle(ToQString(title));
    name_->setMinimumWidth(name_->fontMetrics().averageCharWidth() * 32);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QFormLayout(this);
    layout->addRow(ToQString(LoadText(IDS_LABEL_MACRO_NAME)), name_);
    layout->addRow(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

std::string CNameDlg::Name() const { return FromQString(name_->text()); }
