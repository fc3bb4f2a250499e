// Toolsuite and kind of a new project.
#pragma once

#include <QDialog>
#include <set>
#include <string>

class QComboBox;
class QListWidget;

class CNewProjectDlg : public QDialog {
public:
    CNewProjectDlg(QWidget *parent, const std::string &compiler);

    std::string GetCompiler() const;
    int GetKind() const;  // 0 empty, 1 with a source, 2 with source and header

private:
    void FillCompilers(const std::string &selected);
    void FillKinds();

    QComboBox *compilers_;  // names, with the library's file name as data
    QListWidget *kinds_;
    std::set<std::string> withHeaders_;  // names of the toolsuites that have a text for a new header
};
