// The list of files that a project's build leaves.
#pragma once

#include <QDialog>
#include <string>

class QPlainTextEdit;

inline constexpr size_t kLongestOutputList = 1023;  // bytes that a project file's list is read with

class COutputListDlg : public QDialog {
public:
    // `project`: its title, for the user. `defaults`: what the button of this name puts into the place of the list.
    COutputListDlg(QWidget *parent, const std::string &project, const std::string &list, const std::string &defaults);

    std::string List() const;  // on one line

    void accept() override;  // stays open, with words, while the list is too long

private:
    QPlainTextEdit *list_;
};
