// Asks when a breakpoint stops the program.
#pragma once

#include <QDialog>
#include <functional>
#include <string>

#include "debugger/BreakpointProps.h"

class QButtonGroup;
class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;
class QVBoxLayout;

class CBreakpointPropertiesDlg : public QDialog {
public:
    // Takes the edited properties over; the answer is empty, or the words for why they can't be. `hitCount` is 0 behind
    // a reset.
    using Apply = std::function<std::string(const CBreakpointProps &)>;

    // `place`: words for file and line.
    CBreakpointPropertiesDlg(QWidget *parent, const std::string &place, const CBreakpointProps &props, Apply apply);

protected:
    void accept() override;  // stays open, with a box, while the properties can't be taken over

private:
    void AddCondition(QVBoxLayout &column);
    void AddHits(QVBoxLayout &column);
    QButtonGroup *AddChoices(QVBoxLayout &column, int firstText, int count, int chosen);
    void Show();  // what is on, and the count
    CBreakpointProps Edited() const;

    CBreakpointProps props_;
    Apply apply_;
    QCheckBox *useCondition_ = nullptr;
    QLineEdit *condition_ = nullptr;
    QButtonGroup *conditionMode_ = nullptr;
    QCheckBox *useHits_ = nullptr;
    QSpinBox *hits_ = nullptr;
    QButtonGroup *hitMode_ = nullptr;
    QLabel *count_ = nullptr;
    QPushButton *reset_ = nullptr;
    QPushButton *ok_ = nullptr;
};
