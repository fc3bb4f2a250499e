// Asks for the clock rate of the target.
#pragma once

#include <QDialog>

class QComboBox;
class QLabel;
class QPushButton;

class CClockRateDlg : public QDialog {
public:
    CClockRateDlg(QWidget *parent, long rate);  // Hz

    long Rate() const { return rate_; }  // Hz; as given unless the dialog was accepted

private:
    void OnEdited();

    long rate_;
    QComboBox *box_;
    QLabel *meaning_;
    QPushButton *ok_;
};
