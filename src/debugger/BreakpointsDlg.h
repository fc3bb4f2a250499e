// The list of all breakpoints, from which one goes to them, changes and removes them.
#pragma once

#include <QDialog>
#include <string>
#include <vector>

class CMarker;
class QListWidget;
class QPushButton;

// "main.c:12 (hit,cond)": the line as stored, from 0, and what the breakpoint's stop depends on.
std::string BreakpointRowText(const CMarker &marker);

class CBreakpointsDlg : public QDialog {
public:
    explicit CBreakpointsDlg(QWidget *parent);

protected:
    bool eventFilter(QObject *object, QEvent *event) override;  // the Del key

private:
    // A row keeps its marker's place, not the marker: a stop of the target while the dialog is open can end that.
    struct Place {
        std::string file;
        int line = -1;
    };

    void Fill(int selected);
    int RowOfCaret() const;  // 0 without a breakpoint there
    void UpdateButtons();
    CMarker *Selected();  // null behind an error box that ended the dialog, or without a selection

    void RemoveSelected();
    void RemoveAll();
    void GoToSelected();
    void EditSelected();

    std::vector<Place> places_;
    QListWidget *list_;
    QPushButton *remove_, *removeAll_, *goTo_, *properties_;
};
