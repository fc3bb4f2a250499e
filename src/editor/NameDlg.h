// Asks for a name.
#pragma once

#include <QDialog>
#include <string>

class QLineEdit;

class CNameDlg : public QDialog {
public:
    CNameDlg(QWidget *parent, const std::string &title);

    std::string Name() const;  // as it was typed

private:
    QLineEdit *name_;
};
