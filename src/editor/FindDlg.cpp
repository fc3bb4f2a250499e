#include "editor/FindDlg.h"

#include <QPushButton>

#include "app/StringIds.h"

CFindDlg::CFindDlg(QWidget *parent, CIDEView &view, const std::string &text)
    : CSearchDlg(parent, view, IDS_DIALOG_FIND, text) {
    AddOptions();
    connect(AddButton(IDS_FIND_NEXT), &QPushButton::clicked, this, &CFindDlg::accept);
    AddCloseButton();
}

void CFindDlg::accept() {
    Find();
    QDialog::accept();
}
