// A dialog of several pages behind tabs, with OK and Cancel.
#pragma once

#include <QDialog>
#include <string>

class QDialogButtonBox;
class QTabWidget;
class QVBoxLayout;

class CPropertySheet : public QDialog {
public:
    CPropertySheet(QWidget *parent, const std::string &title);

    void AddPage(QWidget *page);  // its window title is what its tab says; the sheet owns it

protected:
    void AddStrip(QWidget *strip);  // between pages and buttons, of its own height; the sheet owns it

private:
    void PutButtonsLast();

    QTabWidget *tabs_;
    QDialogButtonBox *buttons_;
    QVBoxLayout *layout_;
};
