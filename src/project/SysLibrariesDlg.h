// Choice of a library that came with the program.
#pragma once

#include <QDialog>
#include <string>
#include <vector>

class QListWidget;

// The library files that fit `target`, as they lie under the program's "Lib" directory: "x.lib", "large\x.lib".
std::vector<std::string> FindSystemLibraries(const std::string &target);

class CSysLibrariesDlg : public QDialog {
public:
    CSysLibrariesDlg(QWidget *parent, const std::string &target);

    std::string GetSelection() const;  // empty: nothing selected

private:
    QListWidget *list_;
};
