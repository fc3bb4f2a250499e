// The dialog of all open child windows.
#pragma once

#include <QDialog>
#include <string>

class CMDIChildWnd;
class CMDIFrameWnd;
class QPushButton;
class QTreeWidget;

class CWindowsDlg : public QDialog {
public:
    // Words with their access keys.
    struct Texts {
        std::string title, list, activate, save, closeWindows;
        std::string nameColumn, folderColumn;
    };

    CWindowsDlg(CMDIFrameWnd *frame, const Texts &texts);

protected:
    bool eventFilter(QObject *object, QEvent *event) override;  // Del in the list closes the selected windows

private:
    void Fill();
    void UpdateButtons();
    void Activate();        // the current one, and ends the dialog
    void SaveSelected();
    void CloseSelected();   // until the user cancels
    std::vector<CMDIChildWnd *> Selected() const;

    CMDIFrameWnd *frame_;
    QTreeWidget *list_;
    QPushButton *activate_, *save_, *close_;
};
