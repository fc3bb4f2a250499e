// Which steps of the toolsuite a build runs.
#pragma once

#include <QDialog>

class QListWidget;

class CBuildOptionsDlg : public QDialog {
public:
    explicit CBuildOptionsDlg(QWidget *parent);

    void accept() override;

private:
    void Send(bool changing);  // every row's state to the toolsuite

    QListWidget *list_;
};
