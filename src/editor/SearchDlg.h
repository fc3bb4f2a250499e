// What the Find and Replace dialogs have in common: the text, how to look for it, and the view it is looked for in.
#pragma once

#include <QDialog>
#include <string>

#include "editor/FindSettings.h"

class CFindHistory;
class CIDEView;
class QCheckBox;
class QComboBox;
class QGridLayout;
class QHBoxLayout;
class QPushButton;
class QRadioButton;

// Begins with the user's settings. Enter finds, Esc closes. Ends when the view goes.
class CSearchDlg : public QDialog {
protected:
    CSearchDlg(QWidget *parent, CIDEView &view, int title, const std::string &text);

    // A field for one line of text with a list of earlier ones, below the rows that are there.
    QComboBox *AddTextRow(int label, const CFindHistory &history);
    void AddOptions();                 // behind the text rows
    QPushButton *AddButton(int text);  // from left to right; the first one is pressed by Enter
    void AddCloseButton();

    std::string Text() const;
    CFindSettings Settings() const;  // as the controls show them

    // Writes the settings, and if there is a text, selects its next hit in the view. False without a text.
    bool Find();

    void RememberText();  // in the history of the searches
    // Keeps the field's text for this run and shows it in its list.
    static void Remember(QComboBox *field, CFindHistory &history);

    CIDEView &view_;

private:
    QGridLayout *rows_;
    QHBoxLayout *buttons_;
    QComboBox *text_;
    QCheckBox *matchCase_ = nullptr;
    QCheckBox *wholeWord_ = nullptr;
    QCheckBox *regExpr_ = nullptr;
    QCheckBox *wordStart_ = nullptr;
    QRadioButton *up_ = nullptr;
    QRadioButton *down_ = nullptr;
};
