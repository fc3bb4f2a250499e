// The list of saved macros, from which they are deleted.
#pragma once

#include <QDialog>
#include <string>
#include <vector>

class QListWidget;

// Nothing is deleted in the settings: who runs the dialog does that on OK.
class CMacroList : public QDialog {
public:
    explicit CMacroList(QWidget *parent);

    std::vector<std::string> Names() const;  // of what is left, in order

private:
    QListWidget *macros_;
};
