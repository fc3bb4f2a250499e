// Choice of the compiler.
#pragma once

#include <QDialog>
#include <string>

class QListWidget;

class CActiveCompilerDlg : public QDialog {
public:
    CActiveCompilerDlg(QWidget *parent, const std::string &selected);

    const std::string &GetCompiler() const { return compiler_; }  // the chosen name, after OK

    void accept() override;  // stays open, with words, while nothing is selected

private:
    QListWidget *list_;
    std::string compiler_;
};
