// Asks for a line to go to.
#pragma once

#include <QDialog>

class QSpinBox;

// Lines count from 1.
class CGotoLineDlg : public QDialog {
public:
    CGotoLineDlg(QWidget *parent, int line, int lineCount);

    int Line() const;

private:
    QSpinBox *line_;
};
