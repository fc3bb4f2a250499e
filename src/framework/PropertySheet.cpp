#include "framework/PropertySheet.h"

#include <QDialogButtonBox>
#include <QTabWidget>
#include <QVBoxLayout>

#include "framework/Text.h"

CPropertySheet::CPropertySheet(QWidget *parent, const std::string &title)
    : QDialog(parent),
      tabs_(new QTabWidget),
      buttons_(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel)),
      layout_(new QVBoxLayout(this)) {
    setWindowTitle(ToQString(title));
    connect(buttons_, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons_, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout_->addWidget(tabs_, 1);
    layout_->addWidget(buttons_);
}

void CPropertySheet::AddPage(QWidget *page) {
    tabs_->addTab(page, page->windowTitle());
    PutButtonsLast();
}

void CPropertySheet::AddStrip(QWidget *strip) {
    layout_->addWidget(strip);
    PutButtonsLast();
}

// The focus goes round the widgets in the order in which they came to the sheet.
void CPropertySheet::PutButtonsLast() {
    buttons_->setParent(nullptr);
    layout_->addWidget(buttons_);
}
