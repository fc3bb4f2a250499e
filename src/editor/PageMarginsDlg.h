// The page setup: margins, header and footer of printed pages.
#pragma once

#include <QDialog>
#include <functional>

#include "editor/PrintSettings.h"
#include "framework/CmdTarget.h"

class QButtonGroup;
class QComboBox;
class QDoubleSpinBox;
class QGroupBox;
class QLineEdit;

class CPageMarginsDlg : public QDialog, public CCmdTarget {
public:
    CPageMarginsDlg(QWidget *parent, const CPrintSettings &settings);

    CPrintSettings Settings() const;

private:
    // The text of header or footer, with a button that adds codes to it, and where it stands in its line.
    struct Line {
        QLineEdit *text;
        QButtonGroup *alignment;
    };

    QGroupBox *MakeMargins();
    QGroupBox *MakeLine(Line &line, int title, int menu, const std::string &text, PrintAlignment alignment);
    void MapCodes();

    const CPrintSettings settings_;  // as they came
    QComboBox *unit_;
    QDoubleSpinBox *top_, *bottom_, *left_, *right_;
    Line header_, footer_;
};

// Shows the page setup; on OK stores what was set there. Main thread.
void RunPageMargins();
