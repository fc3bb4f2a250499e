// The tip of the day.
#pragma once

#include <QDialog>

#include "app/TipsOfTheDay.h"

class QCheckBox;
class QLabel;

class CTipOfTheDayDlg : public QDialog {
public:
    explicit CTipOfTheDayDlg(QWidget *parent);

    void done(int result) override;  // keeps whether tips are wanted at start

private:
    void ShowNext();

    CTipsOfTheDay tips_;
    QLabel *tip_;
    QCheckBox *atStart_;
};
